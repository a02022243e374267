#include "uZtMethodDescription.h"

#include "uZtStrings.h"

#include <QHash>
#include <QMetaMethod>

#include <utility>

namespace {

/// The registered events, by class and lower-case name.
using TEventKey = std::pair<const QMetaObject *, QString>;

QHash<TEventKey, TZtMethodDescription> &RegisteredEvents()
{
    static QHash<TEventKey, TZtMethodDescription> events;
    return events;
}

constexpr std::pair<const char *, TZtParamType> ParamMarks[] = {
    {"var", TZtParamType::ptVar},
    {"const", TZtParamType::ptConst},
    {"out", TZtParamType::ptOut},
};

/// Reads a signature's text: a word or a symbol at a time, blanks skipped.
class TSignatureReader {
public:
    explicit TSignatureReader(const QString &AText) : FText(AText) { Skip(0); }

    void Read(TZtMethodDescription &AEvent)
    {
        const bool function = TakeWord("function");
        if (!function && !TakeWord("procedure"))
            Fail(QStringLiteral("\"procedure\" or \"function\""));
        AEvent.SetProcType(function ? TMethodKind::mkFunction : TMethodKind::mkProcedure);
        if (TakeSymbol(u'('))
            ReadParams(AEvent);
        if (function) {
            Expect(u':');
            AEvent.SetResultType(Name(QStringLiteral("a type")));
        }
        if (TakeWord("of"))
            ExpectWord("object");
        if (FPos < FText.size())
            Fail(QStringLiteral("the end"));
    }

private:
    void ReadParams(TZtMethodDescription &AEvent)
    {
        if (TakeSymbol(u')'))
            return;
        do
            ReadGroup(AEvent);
        while (TakeSymbol(u';'));
        Expect(u')');
    }

    void ReadGroup(TZtMethodDescription &AEvent)
    {
        TZtParamType paramType = TZtParamType::ptVar;
        bool marked = false;
        for (const auto &[word, markedType] : ParamMarks)
            if (!marked && TakeWord(word)) {
                marked = true;
                paramType = markedType;
            }
        const int first = AEvent.GetParamCount();
        do {
            TZtMethodParam *param = AEvent.AddParam();
            param->SetName(Name(QStringLiteral("a parameter's name")));
            param->SetParamType(paramType);
        } while (TakeSymbol(u','));
        if (marked && !At(u':'))
            return;
        Expect(u':');
        const QString type = Type();
        for (int i = first; i < AEvent.GetParamCount(); ++i)
            AEvent.GetParams(i)->SetParamVarType(type);
    }

    QString Type()
    {
        if (!TakeWord("array"))
            return Name(QStringLiteral("a type"));
        ExpectWord("of");
        return Name(QStringLiteral("a type")); // an open array is known by its elements
    }

    /// The word at the position; it may hold periods, as a qualified name does.
    QStringView Word() const
    {
        qsizetype end = FPos;
        while (end < FText.size() && (FText.at(end).isLetterOrNumber() || FText.at(end) == u'_' ||
                                      (FText.at(end) == u'.' && end > FPos)))
            ++end;
        const bool isName = end > FPos && !FText.at(FPos).isDigit();
        return isName ? QStringView(FText).mid(FPos, end - FPos) : QStringView();
    }
    bool At(char16_t ASymbol) const { return FPos < FText.size() && FText.at(FPos) == ASymbol; }

    bool TakeWord(const char *AWord)
    {
        const QStringView word = Word();
        if (word.compare(QLatin1StringView(AWord), Qt::CaseInsensitive) != 0)
            return false;
        Skip(word.size());
        return true;
    }
    bool TakeSymbol(char16_t ASymbol)
    {
        if (!At(ASymbol))
            return false;
        Skip(1);
        return true;
    }
    QString Name(const QString &AWhat)
    {
        const QStringView word = Word();
        if (word.isEmpty())
            Fail(AWhat);
        Skip(word.size());
        return word.toString();
    }
    void ExpectWord(const char *AWord)
    {
        if (!TakeWord(AWord))
            Fail(u'"' + QLatin1StringView(AWord) + u'"');
    }
    void Expect(char16_t ASymbol)
    {
        if (!TakeSymbol(ASymbol))
            Fail(QStringLiteral("\"%1\"").arg(QChar(ASymbol)));
    }

    void Skip(qsizetype ACount)
    {
        for (FPos += ACount; FPos < FText.size() && FText.at(FPos).isSpace();)
            ++FPos;
    }
    [[noreturn]] void Fail(const QString &AWhat) const
    {
        const int position = int(FPos) + 1;
        throw EZtEventSignature(
            QStringLiteral("Event signature \"%1\": %2 is expected at character %3.")
                .arg(FText, AWhat, QString::number(position)),
            position);
    }

    const QString &FText;
    qsizetype FPos = 0;
};

const TZtMethodDescription *FindRegistered(const QMetaObject *AClass, const QString &AEventName)
{
    const auto &events = RegisteredEvents();
    for (const QString name = AEventName.toLower(); AClass; AClass = AClass->superClass())
        if (const auto found = events.constFind({AClass, name}); found != events.cend())
            return &*found;
    return nullptr;
}

// A signal with default arguments is listed first as it is declared, then once for each shorter
// argument list.
QMetaMethod FindSignal(const QMetaObject *AClass, const QString &AEventName)
{
    for (; AClass; AClass = AClass->superClass())
        for (int i = AClass->methodOffset(); i < AClass->methodCount(); ++i) {
            const QMetaMethod method = AClass->method(i);
            if (method.methodType() == QMetaMethod::Signal &&
                AEventName.compare(QLatin1StringView(method.name()), Qt::CaseInsensitive) == 0)
                return method;
        }
    return {};
}

std::unique_ptr<TZtMethodDescription> DescribeSignal(const QMetaMethod &ASignal)
{
    auto event = std::make_unique<TZtMethodDescription>();
    event->SetProcName(QString::fromLatin1(ASignal.name()));
    if (ASignal.returnType() != QMetaType::Void) {
        event->SetProcType(TMethodKind::mkFunction);
        event->SetResultType(QString::fromLatin1(ASignal.typeName()));
    }
    const QList<QByteArray> names = ASignal.parameterNames();
    for (int i = 0; i < ASignal.parameterCount(); ++i) {
        TZtMethodParam *param = event->AddParam();
        param->SetName(names.at(i).isEmpty() ? QStringLiteral("Arg%1").arg(i + 1)
                                             : QString::fromLatin1(names.at(i)));
        QString type = QString::fromLatin1(ASignal.parameterTypeName(i));
        if (type.endsWith(u'&'))
            type.chop(1);
        param->SetParamVarType(type);
    }
    return event;
}

} // namespace

const TZtMethodParam *TZtMethodDescription::GetParams(int Index) const
{
    if (Index < 0 || Index >= GetParamCount())
        throw EListError(QStringLiteral("List index out of bounds (%1)").arg(Index));
    return &FParams[size_t(Index)];
}

TZtMethodParam *TZtMethodDescription::GetParams(int Index)
{
    return const_cast<TZtMethodParam *>(std::as_const(*this).GetParams(Index));
}

void ZtRegisterEvent(const QMetaObject *AClass, const QString &AEventName,
                     const QString &ASignature)
{
    TZtMethodDescription event;
    event.SetProcName(AEventName);
    TSignatureReader(ASignature).Read(event);
    ZtRegisterEvent(AClass, event);
}

void ZtRegisterEvent(const QMetaObject *AClass, const TZtMethodDescription &AEvent)
{
    if (!AClass || ZtTrim(AEvent.GetProcName()).isEmpty())
        throw EZtException(QStringLiteral("An event needs a class and a name."));
    TZtMethodDescription event = AEvent;
    if (event.GetProcType() != TMethodKind::mkFunction &&
        event.GetProcType() != TMethodKind::mkClassFunction)
        event.SetResultType(QString());
    RegisteredEvents().insert({AClass, event.GetProcName().toLower()}, event);
}

std::unique_ptr<TZtMethodDescription> GetMethodDescription(QObject *AObject,
                                                           const QString &AEventName)
{
    if (!AObject || ZtTrim(AEventName).isEmpty())
        return nullptr;
    std::unique_ptr<TZtMethodDescription> result;
    if (const auto *event = FindRegistered(AObject->metaObject(), AEventName))
        result = std::make_unique<TZtMethodDescription>(*event);
    else if (const QMetaMethod signal = FindSignal(AObject->metaObject(), AEventName);
             signal.isValid())
        result = DescribeSignal(signal);
    if (result)
        result->SetName(AObject->objectName());
    return result;
}
