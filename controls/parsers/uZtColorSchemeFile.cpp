#include "uZtColorScheme.h"

#include "uZtElements.h"
#include "uZtJsonText.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>
#include <iterator>

using enum TZtViewColor;

namespace {

struct TTexts {
    Q_DECLARE_TR_FUNCTIONS(ColorScheme)
};

constexpr qint64 LargestFile = 1 << 20;

const QString AllLanguages = QStringLiteral("*");

bool HasElement(const TZtLanguageElements &ALanguage, QStringView AElement)
{
    return std::ranges::any_of(ALanguage.Elements,
                               [&](QLatin1StringView name) { return AElement == name; });
}

bool IsLanguage(QStringView ALanguage)
{
    return ALanguage == AllLanguages ||
           std::ranges::any_of(ZtLanguageElements(), [&](const TZtLanguageElements &language) {
               return ALanguage == language.Language;
           });
}

bool IsElement(QStringView ALanguage, QStringView AElement)
{
    return std::ranges::any_of(ZtLanguageElements(), [&](const TZtLanguageElements &language) {
        return (ALanguage == AllLanguages || ALanguage == language.Language) &&
               HasElement(language, AElement);
    });
}

[[noreturn]] void Fail(qsizetype APlace, const QString &AReason) { throw EZtJson(APlace, AReason); }

[[noreturn]] void FailName(const TZtJsonMember &AMember, const char *AFault)
{
    Fail(AMember.NamePlace, TTexts::tr(AFault).arg(AMember.Name));
}

void Expect(const TZtJsonMember &AMember, QJsonValue::Type AType)
{
    if (AMember.Value.type() == AType)
        return;
    if (AMember.Name.isEmpty()) // the outermost
        Fail(AMember.Place, TTexts::tr("A scheme has to be an object."));
    const QString fault = AType == QJsonValue::Bool ? TTexts::tr("\"%1\" has to be true or false.")
                          : AType == QJsonValue::String
                              ? TTexts::tr("\"%1\" has to be a text in quotes.")
                              : TTexts::tr("\"%1\" has to be an object.");
    Fail(AMember.Place, fault.arg(AMember.Name));
}

QString ReadText(const TZtJsonMember &AMember)
{
    Expect(AMember, QJsonValue::String);
    return AMember.Value.toString();
}

TColor ReadColor(const TZtJsonMember &AMember)
{
    const QString text = ReadText(AMember);
    constexpr qsizetype Digits = 6;
    const bool formed = text.size() == Digits + 1 && text.front() == u'#' &&
                        std::all_of(text.begin() + 1, text.end(),
                                    [](QChar C) { return C < u'g' && isxdigit(C.unicode()); });
    if (!formed)
        Fail(AMember.Place, TTexts::tr("\"%1\" is no colour of the form \"#rrggbb\".").arg(text));
    const uint rgb = text.sliced(1).toUInt(nullptr, 16);
    return ((rgb & 0xFF) << 16) | (rgb & 0xFF00) | (rgb >> 16);
}

} // namespace

// Reads the members of a file, each by its row in a table.
class TZtColorScheme::TReader {
public:
    static std::shared_ptr<const TZtColorScheme> Read(const QByteArray &AText)
    {
        const TZtJsonMember root = ZtReadJson(AText);
        Expect(root, QJsonValue::Object);
        TReader reader;
        // What is extended has to be there first, wherever it is named.
        if (const TZtJsonMember *member = root.Find(u"extends"))
            reader.ReadExtended(*member);
        static constexpr TRow Rows[] = {
            {"$schema", &TReader::ReadNothing}, {"name", &TReader::ReadName},
            {"extends", &TReader::ReadNothing}, {"colors", &TReader::ReadColors},
            {"styles", &TReader::ReadStyles},
        };
        for (const TZtJsonMember &member : root.Members) {
            const auto *row = std::ranges::find_if(
                Rows, [&](const TRow &ARow) { return member.Name == QLatin1String(ARow.Name); });
            if (row == std::end(Rows))
                FailName(member, QT_TRANSLATE_NOOP("ColorScheme", "There is no key \"%1\"."));
            (reader.*row->Read)(member);
        }
        reader.CheckWhole(root);
        return reader.FScheme;
    }

private:
    struct TRow {
        const char *Name;
        void (TReader::*Read)(const TZtJsonMember &AMember);
    };

    TReader() : FScheme(new TZtColorScheme) { FScheme->FHasStyles = true; }

    void ReadNothing(const TZtJsonMember &AMember) { ReadText(AMember); }

    void ReadName(const TZtJsonMember &AMember)
    {
        FScheme->FName = ReadText(AMember);
        if (FScheme->FName.isEmpty())
            Fail(AMember.Place, TTexts::tr("The name is empty."));
    }

    // The classic scheme has no styles that could be changed.
    void ReadExtended(const TZtJsonMember &AMember)
    {
        const QString name = ReadText(AMember);
        const auto base = Find(name);
        if (!base || !base->HasStyles())
            Fail(AMember.Place,
                 TTexts::tr("There is no scheme \"%1\" that could be extended.").arg(name));
        FScheme->FColors = base->FColors;
        FScheme->FStyles = base->FStyles;
        FIsKnown.fill(true);
    }

    void ReadColors(const TZtJsonMember &AMember)
    {
        Expect(AMember, QJsonValue::Object);
        FColorsPlace = AMember.Place;
        for (const TZtJsonMember &member : AMember.Members) {
            size_t part = 0;
            while (part < ViewColorCount && ColorName(TZtViewColor(part)) != member.Name)
                ++part;
            if (part == ViewColorCount)
                FailName(member,
                         QT_TRANSLATE_NOOP("ColorScheme", "There is no part of the view \"%1\"."));
            FScheme->FColors[part] = ReadColor(member);
            FIsKnown[part] = true;
        }
    }

    void ReadStyles(const TZtJsonMember &AMember)
    {
        Expect(AMember, QJsonValue::Object);
        for (const TZtJsonMember &language : AMember.Members) {
            if (!IsLanguage(language.Name))
                FailName(language,
                         QT_TRANSLATE_NOOP("ColorScheme", "There is no language \"%1\"."));
            Expect(language, QJsonValue::Object);
            for (const TZtJsonMember &element : language.Members) {
                if (!IsElement(language.Name, element.Name))
                    FailName(element,
                             QT_TRANSLATE_NOOP("ColorScheme", "There is no element \"%1\"."));
                Expect(element, QJsonValue::Object);
                ReadStyle(element, FScheme->FStyles[{language.Name, element.Name}]);
            }
        }
    }

    static void ReadStyle(const TZtJsonMember &AElement, TPartStyle &AStyle)
    {
        static constexpr struct {
            const char *Name;
            TFontStyle Style;
        } Flags[] = {
            {"bold", TFontStyle::fsBold},
            {"italic", TFontStyle::fsItalic},
            {"underline", TFontStyle::fsUnderline},
        };
        for (const TZtJsonMember &member : AElement.Members) {
            const auto *flag = std::ranges::find_if(
                Flags, [&](const auto &ARow) { return member.Name == QLatin1String(ARow.Name); });
            if (flag != std::end(Flags)) {
                Expect(member, QJsonValue::Bool);
                AStyle.Said |= flag->Style;
                AStyle.Style.setFlag(flag->Style, member.Value.toBool());
            } else if (member.Name == u"color") {
                AStyle.Fore = ReadColor(member);
            } else if (member.Name == u"background") {
                AStyle.Back = ReadColor(member);
            } else {
                FailName(member, QT_TRANSLATE_NOOP("ColorScheme",
                                                   "There is no property of a style \"%1\"."));
            }
        }
    }

    void CheckWhole(const TZtJsonMember &ARoot) const
    {
        if (FScheme->FName.isEmpty())
            Fail(ARoot.Place, TTexts::tr("The scheme has no \"name\"."));
        for (size_t part = 0; part < ViewColorCount; ++part)
            if (!FIsKnown[part])
                Fail(FColorsPlace < 0 ? ARoot.Place : FColorsPlace,
                     TTexts::tr("There is no colour for \"%1\".")
                         .arg(ColorName(TZtViewColor(part))));
    }

    std::shared_ptr<TZtColorScheme> FScheme;
    std::array<bool, ViewColorCount> FIsKnown{};
    qsizetype FColorsPlace = -1;
};

std::shared_ptr<const TZtColorScheme> TZtColorScheme::FromJson(const QByteArray &AText,
                                                               const QString &AName)
{
    try {
        return TReader::Read(AText);
    } catch (const EZtJson &E) {
        const TZtJsonPlace place = ZtJsonPlace(AText, E.GetPlace());
        throw EZtColorScheme(AName, place.Line, place.Column, E.Message());
    }
}

std::shared_ptr<const TZtColorScheme> TZtColorScheme::Load(const QString &AFileName)
{
    QFile file(AFileName);
    if (!file.open(QIODevice::ReadOnly))
        throw EZtColorScheme(AFileName, 0, 0, file.errorString());
    const QByteArray text = file.read(LargestFile + 1);
    if (text.size() > LargestFile)
        throw EZtColorScheme(AFileName, 0, 0, TTexts::tr("The file is too large."));
    if (file.error() != QFileDevice::NoError)
        throw EZtColorScheme(AFileName, 0, 0, file.errorString());
    return FromJson(text, AFileName);
}
