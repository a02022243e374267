#include "uZtJsonText.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

// Goes over a text that is known to be JSON, for the places alone.
class TPlaces {
public:
    explicit TPlaces(const QByteArray &AText) : FText(AText) {}

    void Read(TZtJsonMember &AMember)
    {
        SkipBlanks();
        AMember.Place = FPlace;
        if (FText[FPlace] == '{')
            return ReadObject(AMember);
        if (FText[FPlace] == '[')
            return SkipArray();
        if (FText[FPlace] == '"')
            return SkipString();
        while (FPlace < FText.size() && !Blanks.contains(FText[FPlace]) && FText[FPlace] != '}')
            ++FPlace;
    }

private:
    void SkipBlanks()
    {
        while (Blanks.contains(FText[FPlace]))
            ++FPlace;
    }
    void SkipString()
    {
        while (FText[++FPlace] != '"')
            if (FText[FPlace] == '\\')
                ++FPlace;
        ++FPlace;
    }
    void SkipArray()
    {
        int depth = 0;
        do {
            const char C = FText[FPlace];
            depth += C == '[' ? 1 : C == ']' ? -1 : 0;
            if (C == '"')
                SkipString();
            else
                ++FPlace;
        } while (depth > 0);
    }
    void ReadObject(TZtJsonMember &AMember)
    {
        const QJsonObject object = AMember.Value.toObject();
        ++FPlace;
        for (SkipBlanks(); FText[FPlace] != '}'; SkipBlanks()) {
            const qsizetype place = FPlace;
            SkipString();
            const QByteArray quoted = '[' + FText.mid(place, FPlace - place) + ']';
            const QString name = QJsonDocument::fromJson(quoted).array().first().toString();
            if (AMember.Find(name))
                throw EZtJson(place,
                              QCoreApplication::translate("Json", "The name \"%1\" is there twice.")
                                  .arg(name));
            AMember.Members.push_back({name, place, 0, object.value(name), {}});
            Read(AMember.Members.back());
        }
        ++FPlace;
    }

    static constexpr QByteArrayView Blanks = " \t\r\n,:"; // and what else parts values

    const QByteArray &FText;
    qsizetype FPlace = 0;
};

// Some faults are reported behind the character at which they are found.
qsizetype PlaceOf(const QJsonParseError &AError)
{
    switch (AError.error) {
    case QJsonParseError::UnterminatedObject:
    case QJsonParseError::UnterminatedArray:
    case QJsonParseError::MissingNameSeparator:
    case QJsonParseError::MissingObject:
    case QJsonParseError::IllegalValue:
        return std::max(AError.offset - 1, 0);
    default:
        return AError.offset;
    }
}

constexpr char Mark[] = "\xEF\xBB\xBF"; // of UTF-8, at the start of some files

} // namespace

const TZtJsonMember *TZtJsonMember::Find(QStringView AName) const
{
    const auto found = std::ranges::find(Members, AName, &TZtJsonMember::Name);
    return found == Members.end() ? nullptr : &*found;
}

TZtJsonMember ZtReadJson(const QByteArray &AText)
{
    if (AText.startsWith(Mark))
        throw EZtJson(
            0, QCoreApplication::translate("Json", "The text begins with a byte order mark."));
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(AText, &error);
    if (error.error != QJsonParseError::NoError)
        throw EZtJson(PlaceOf(error), error.errorString() + u'.');
    TZtJsonMember root{};
    root.Value = document.isObject() ? QJsonValue(document.object()) : document.array();
    TPlaces(AText).Read(root);
    return root;
}

TZtJsonPlace ZtJsonPlace(const QByteArray &AText, qsizetype APlace)
{
    const QByteArray before = AText.first(std::clamp<qsizetype>(APlace, 0, AText.size()));
    const QString last = QString::fromUtf8(before.sliced(before.lastIndexOf('\n') + 1));
    return {int(before.count('\n')) + 1, int(last.size()) + 1};
}
