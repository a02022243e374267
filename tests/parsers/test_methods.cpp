#include "lexing.h"

#include "uZtCodeJSParser.h"
#include "uZtCodeVBParser.h"

#include <gtest/gtest.h>

namespace {

class TSender : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
Q_SIGNALS:
    void changed(const QString &text, int, QObject &source, const char *what = nullptr);
    double asked();
    void OnSignal(int value);
};

class TButton : public TSender {
    Q_OBJECT
public:
    using TSender::TSender;
};

// "name.event kind (mark name type, ...) result"
QString Described(QObject *AObject, const QString &AEventName)
{
    const auto event = GetMethodDescription(AObject, AEventName);
    if (!event)
        return "none";
    const char *const marks[] = {"var", "out", "const"};
    QStringList params;
    for (int i = 0; i < event->GetParamCount(); ++i) {
        const TZtMethodParam *param = event->GetParams(i);
        params +=
            QString("%1 %2 %3")
                .arg(marks[int(param->GetParamType())], param->GetName(), param->GetParamVarType());
    }
    return QString("%1.%2 %3 (%4) %5")
        .arg(event->GetName(), event->GetProcName(),
             event->GetProcType() == TMethodKind::mkProcedure ? "procedure" : "function",
             params.join(", "), event->GetResultType());
}

TEST(MethodDescription, OfARegisteredSignature)
{
    TButton button;
    ExpectUnderEachLine("methods/signatures.txt", [&](const QString &line) {
        const auto *type = &TSender::staticMetaObject;
        const QString event = "On" + line;
        const QString error = Raised([&] { ZtRegisterEvent(type, event, GoldenText(line)); });
        const QString described = Described(&button, event);
        return error.isEmpty() ? described.mid(event.size() + 2).trimmed() : error;
    });
    EXPECT_THROW(ZtRegisterEvent(nullptr, "OnBad", "procedure"), EZtException);
    EXPECT_THROW(ZtRegisterEvent(&TSender::staticMetaObject, " ", "procedure"), EZtException);
}

TEST(MethodDescription, IsFoundByClassAndName)
{
    ZtRegisterEvent(&TSender::staticMetaObject, "OnTake", "procedure(A: T)");
    ZtRegisterEvent(&TSender::staticMetaObject, "OnBoth", "procedure(A: T)");
    ZtRegisterEvent(&TButton::staticMetaObject, "OnBoth", "procedure(B: T)");
    ZtRegisterEvent(&QObject::staticMetaObject, "OnSignal", "procedure(Registered: T)");
    TSender sender;
    TButton button;
    QObject other;
    button.setObjectName("button");
    const QHash<QChar, QObject *> objects = {{'s', &sender}, {'b', &button}, {'o', &other}};
    ExpectUnderEachLine("methods/events.txt", [&](const QString &line) {
        return Described(objects.value(line.front()), GoldenText(line)).trimmed();
    });
}

TEST(MethodDescription, RegisteredFieldByField)
{
    TZtMethodDescription event;
    event.SetProcName("OnFields");
    event.SetResultType("R");
    TZtMethodParam *first = event.AddParam();
    event.AddParam()->SetParamType(TZtParamType::ptOut);
    first->SetName("A");
    first->SetParamVarType("QList<int>");
    event.SetParamCount(5);
    EXPECT_EQ(event.GetParams(0), first);
    EXPECT_THROW(event.GetParams(2), EListError);
    EXPECT_THROW(event.GetParams(-1), EListError);
    TSender sender;
    for (const auto &[kind, result] : {std::pair(TMethodKind::mkClassFunction, "R"),
                                       std::pair(TMethodKind::mkConstructor, "")}) {
        event.SetProcType(kind);
        ZtRegisterEvent(&TSender::staticMetaObject, event);
        const QString description = Described(&sender, "OnFields");
        EXPECT_TRUE(description.endsWith(QString(" (var A QList<int>, out  ) ") + result));
    }
}

// Events of a button: procedures and functions by their number of parameters.
class MethodTools : public testing::Test {
protected:
    MethodTools()
    {
        const char *const events[][2] = {{"OnClick", "procedure(Sender: T)"},
                                         {"OnNone", "procedure"},
                                         {"OnTwo", "procedure(A, B: T)"},
                                         {"OnAsk", "function: T"},
                                         {"OnAskTwo", "function(A, B: T): T"}};
        for (const auto &[name, signature] : events)
            ZtRegisterEvent(&TButton::staticMetaObject, name, signature);
        TZtMethodDescription event;
        event.SetProcName("OnClass");
        event.SetProcType(TMethodKind::mkClassFunction);
        ZtRegisterEvent(&TButton::staticMetaObject, event);
    }
    static QString Shown(QString AText) { return AText.replace("\r\n", "|"); }
    TButton Button;
    TZtCodeVBParser VB;
    TZtCodeJSParser JS;
};

TEST_F(MethodTools, CreateMethod)
{
    const struct {
        QString Component, Event, Name, Word, Params;
    } rows[] = {{"Button1", "OnClick", "Button1_OnClick", "sub", "Sender"},
                {"", "OnTwo", "OnTwo", "sub", "A, B"},
                {"%2", "OnAsk", "%2_OnAsk", "function", ""},
                {"b", "onasktwo", "b_onasktwo", "function", "A, B"},
                {"b", "OnClass", "b_OnClass", "sub", ""}};
    for (const auto &row : rows) {
        Button.setObjectName(row.Component);
        const QString head = ' ' + row.Name + '(' + row.Params + ')';
        QString name = "before";
        EXPECT_EQ(Shown(VB.CreateMethod(&Button, row.Event, name)),
                  '|' + row.Word + head + "|  |end " + row.Word + " rem " + row.Name + '|');
        EXPECT_EQ(name, row.Name);
        EXPECT_EQ(Shown(JS.CreateMethod(&Button, row.Event, name)),
                  "|function" + head + "|{  |} // " + row.Name + '|');
    }
    QString name = "before";
    EXPECT_THROW(VB.CreateMethod(&Button, "OnNothing", name), EZtParser);
    EXPECT_EQ(name, "b_OnNothing");
    EXPECT_THROW(JS.CreateMethod(nullptr, "OnClick", name), EZtParser);
    EXPECT_EQ(name, "OnClick");
}

// The methods that fit each event, then the lines of those that are called a, b and c.
TEST_F(MethodTools, MethodsOfATextAndTheirLines)
{
    ExpectUnderEachLine("methods/texts.txt", [this](const QString &line) {
        TZtLangParser &lexer = line.startsWith('v') ? static_cast<TZtLangParser &>(VB) : JS;
        TTextStream stream(GoldenText(line));
        lexer.SetInputStream(&stream, false);
        QString shown = "found:";
        for (const char *event : {"OnNone", "OnClick", "OnTwo", "OnAsk", "OnAskTwo"})
            if (const QString names = Shown(lexer.GetSameMethods(&Button, event)); !names.isEmpty())
                shown += QString(" %1 %2").arg(event, names);
        for (const char *name : {"A", "b", "c"})
            if (const int at = lexer.MethodLineNr(name); at != -1)
                shown += QString(" %1:%2").arg(name).arg(at);
        EXPECT_EQ(lexer.MethodLineNr(""), -1);
        EXPECT_EQ(lexer.GetSameMethods(&Button, "OnClass"), "");
        EXPECT_EQ(lexer.GetSameMethods(&Button, "OnNothing"), "");
        EXPECT_EQ(lexer.GetSameMethods(nullptr, "OnNone"), "");
        return shown;
    });
    TTextStream stream("sub a(b)");
    VB.SetInputStream(&stream, false);
    EXPECT_EQ(VB.MethodLineNr("a"), 1);
    EXPECT_EQ(VB.ReadChar(), u'(');
}

} // namespace

#include "test_methods.moc"
