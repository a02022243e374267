#include "token_rows.h"

#include "uZtCodeJSParser.h"
#include "uZtCodeVBParser.h"

#include <memory>

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
QString ToText(const TZtMethodDescription *AEvent)
{
    if (!AEvent)
        return QStringLiteral("none");
    const char *const kinds[] = {"procedure",  "function",        "constructor",
                                 "destructor", "class procedure", "class function"};
    const char *const marks[] = {"var", "out", "const", "none"};
    QStringList params;
    for (int i = 0; i < AEvent->GetParamCount(); ++i) {
        const TZtMethodParam *param = AEvent->GetParams(i);
        params +=
            QStringLiteral("%1 %2 %3")
                .arg(marks[int(param->GetParamType())], param->GetName(), param->GetParamVarType());
    }
    return QStringLiteral("%1.%2 %3 (%4) %5")
        .arg(AEvent->GetName(), AEvent->GetProcName(), kinds[int(AEvent->GetProcType())],
             params.join(", "), AEvent->GetResultType());
}

QString Described(QObject *AObject, const QString &AEventName)
{
    return ToText(GetMethodDescription(AObject, AEventName).get());
}

TEST(MethodDescription, OfARegisteredSignature)
{
    const struct {
        QString Signature, Description;
    } rows[] = {
        {"procedure(Sender: TObject) of object", "procedure (var Sender TObject) "},
        {"Procedure", "procedure () "},
        {" PROCEDURE ( ) Of Object ", "procedure () "},
        {"procedure(A, b_1: Integer; var C: System.Word; const D: string; out E: T)",
         "procedure (var A Integer, var b_1 Integer, var C System.Word, const D string, out E T) "},
        {"procedure(var A, B; const C; D: array of TObject)",
         "procedure (var A , var B , const C , var D TObject) "},
        {"function:Boolean of object", "function () Boolean"},
        {"function(variable, outer: T): R", "function (var variable T, var outer T) R"},
    };
    TButton button;
    button.setObjectName("b");
    for (const auto &row : rows) {
        ZtRegisterEvent(&TSender::staticMetaObject, "OnEvent", row.Signature);
        EXPECT_EQ(Described(&button, "OnEvent"), "b.OnEvent " + row.Description);
    }
}

TEST(MethodDescription, AMalformedSignatureTellsItsPlace)
{
    const struct {
        QString Signature;
        int Position;
        QString Expected;
    } rows[] = {
        {"", 1, "\"procedure\" or \"function\""},
        {"  proc", 3, "\"procedure\" or \"function\""},
        {"procedure x", 11, "the end"},
        {"procedure: T", 10, "the end"},
        {"procedure of", 13, "\"object\""},
        {"procedure of objects", 14, "\"object\""},
        {"procedure()(", 12, "the end"},
        {"procedure(", 11, "a parameter's name"},
        {"procedure(1A: T)", 11, "a parameter's name"},
        {"procedure(var const A: T)", 21, "\")\""},
        {"procedure(A)", 12, "\":\""},
        {"procedure(A:)", 13, "a type"},
        {"procedure(A: T;)", 16, "a parameter's name"},
        {"procedure(A: T", 15, "\")\""},
        {"procedure(A: array T)", 20, "\"of\""},
        {"function", 9, "\":\""},
        {"function: ", 11, "a type"},
    };
    for (const auto &row : rows) {
        try {
            ZtRegisterEvent(&TSender::staticMetaObject, "OnBad", row.Signature);
            ADD_FAILURE() << row.Signature.toStdString();
        } catch (const EZtEventSignature &error) {
            EXPECT_EQ(error.GetPosition(), row.Position) << row.Signature.toStdString();
            EXPECT_EQ(error.Message(), QStringLiteral("Event signature \"%1\": %2 is expected at "
                                                      "character %3.")
                                           .arg(row.Signature, row.Expected)
                                           .arg(row.Position));
        }
    }
    TSender sender;
    EXPECT_EQ(Described(&sender, "OnBad"), "none");
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
    const struct {
        QObject *Object;
        QString EventName, Description;
    } rows[] = {
        {&button, "OnTake", ".OnTake procedure (var A T) "},
        {&button, "ontake", ".OnTake procedure (var A T) "},
        {&button, "OnBoth", ".OnBoth procedure (var B T) "},
        {&sender, "OnBoth", ".OnBoth procedure (var A T) "},
        {&other, "OnTake", "none"},
        {&button, "OnTak", "none"},
        {&button, " OnTake", "none"},
        {&button, "OnTake ", "none"},
        {&button, " \t", "none"},
        {&button, "", "none"},
        {nullptr, "OnTake", "none"},
        {&button, "deleteLater", "none"},
        {&button, "objectName", "none"},
        {&button, "OnSignal", ".OnSignal procedure (var Registered T) "},
        {&button, "asked", ".asked function () double"},
        {&button, "changed",
         ".changed procedure (var text QString, var Arg2 int, var source QObject, "
         "var what const char*) "},
        {&other, "objectNameChanged", ".objectNameChanged procedure (var objectName QString) "},
    };
    for (const auto &row : rows)
        EXPECT_EQ(Described(row.Object, row.EventName), row.Description)
            << row.EventName.toStdString();
}

TEST(MethodDescription, RegisteredFieldByField)
{
    TZtMethodDescription event;
    event.SetProcName("OnFields");
    event.SetProcType(TMethodKind::mkClassFunction);
    event.SetResultType("R");
    TZtMethodParam *first = event.AddParam();
    EXPECT_EQ(first->GetParamType(), TZtParamType::ptVar);
    event.AddParam()->SetParamType(TZtParamType::ptOut);
    first->SetName("A");
    first->SetParamVarType("QList<int>");
    event.SetParamCount(5);
    EXPECT_EQ(event.GetParamCount(), 2);
    EXPECT_EQ(event.GetParams(0), first);
    EXPECT_THROW(event.GetParams(2), EListError);
    EXPECT_THROW(event.GetParams(-1), EListError);
    ZtRegisterEvent(&TSender::staticMetaObject, event);
    TSender sender;
    EXPECT_EQ(Described(&sender, "OnFields"),
              ".OnFields class function (var A QList<int>, out  ) R");
    event.SetProcType(TMethodKind::mkConstructor);
    ZtRegisterEvent(&TSender::staticMetaObject, event);
    EXPECT_EQ(Described(&sender, "OnFields"), ".OnFields constructor (var A QList<int>, out  ) ");
}

// Events of a button: procedures and functions by their number of parameters.
class MethodTools : public testing::Test {
protected:
    MethodTools()
    {
        Register("OnClick", TMethodKind::mkProcedure, {"Sender"});
        Register("OnNone", TMethodKind::mkProcedure, {});
        Register("OnTwo", TMethodKind::mkProcedure, {"%2", "%1"});
        Register("OnAsk", TMethodKind::mkFunction, {});
        Register("OnAskTwo", TMethodKind::mkFunction, {"A", "B"});
        Register("OnClass", TMethodKind::mkClassFunction, {});
    }
    static void Register(const QString &AName, TMethodKind AKind, const QStringList &AParams)
    {
        TZtMethodDescription event;
        event.SetProcName(AName);
        event.SetProcType(AKind);
        for (const QString &param : AParams)
            event.AddParam()->SetName(param);
        ZtRegisterEvent(&TButton::staticMetaObject, event);
    }
    static QString Shown(QString AText)
    {
        return AText.replace(QLatin1String("\r\n"), QLatin1String("|"));
    }
    TButton Button;
    TZtCodeVBParser VB;
    TZtCodeJSParser JS;
};

TEST_F(MethodTools, CreateMethod)
{
    const struct {
        QString Component, Event, Name, VB, JS;
    } rows[] = {
        {"Button1", "OnClick", "Button1_OnClick",
         "|sub Button1_OnClick(Sender)|  |end sub rem Button1_OnClick|",
         "|function Button1_OnClick(Sender)|{  |} // Button1_OnClick|"},
        {"", "OnTwo", "OnTwo", "|sub OnTwo(%2, %1)|  |end sub rem OnTwo|",
         "|function OnTwo(%2, %1)|{  |} // OnTwo|"},
        {"%2", "OnAsk", "%2_OnAsk", "|function %2_OnAsk()|  |end function rem %2_OnAsk|",
         "|function %2_OnAsk()|{  |} // %2_OnAsk|"},
        {"b", "onasktwo", "b_onasktwo",
         "|function b_onasktwo(A, B)|  |end function rem b_onasktwo|",
         "|function b_onasktwo(A, B)|{  |} // b_onasktwo|"},
        {"b", "OnClass", "b_OnClass", "|sub b_OnClass()|  |end sub rem b_OnClass|",
         "|function b_OnClass()|{  |} // b_OnClass|"},
    };
    for (const auto &row : rows) {
        Button.setObjectName(row.Component);
        QString name = "before";
        EXPECT_EQ(Shown(VB.CreateMethod(&Button, row.Event, name)), row.VB);
        EXPECT_EQ(name, row.Name);
        EXPECT_EQ(Shown(JS.CreateMethod(&Button, row.Event, name)), row.JS);
        EXPECT_EQ(name, row.Name);
    }
    QString name = "before";
    EXPECT_THROW(VB.CreateMethod(&Button, "OnNothing", name), EZtParser);
    EXPECT_EQ(name, "b_OnNothing");
    EXPECT_THROW(JS.CreateMethod(nullptr, "OnClick", name), EZtParser);
    EXPECT_EQ(name, "OnClick");
    TZtLangParser plain;
    EXPECT_EQ(plain.CreateMethod(&Button, "OnClick", name), "");
    EXPECT_EQ(name, "OnClick");
}

TEST_F(MethodTools, GetSameMethods)
{
    const struct {
        TZtLangParser *Lexer;
        QString Event, Text, Methods;
    } rows[] = {
        {&VB, "OnClick", "", ""},
        {&VB, "OnClick", "sub a(x)\r\nend sub\r\nSUB B ( _x )\r\nend sub", "a|B|"},
        {&VB, "OnClick", "sub a(x, y)\r\nsub b()\r\nfunction c(x)", ""},
        {&VB, "OnTwo", "sub a(ByVal x, ByRef y)", "a|"},
        {&VB, "OnTwo", "sub a(x, y As Integer)\r\nsub b(x = 1, y)", "b|"},
        {&VB, "OnTwo", "sub a(x ' the first\r\n, y rem the last\r\n)", "a|"},
        {&VB, "OnNone", "sub a\r\nb\r\nsub c()", "a|c|"},
        // What follows a name without parentheses is passed over, a header too.
        {&VB, "OnNone", "sub a sub b sub c", "a|c|"},
        {&VB, "OnNone", "sub a\r\nend sub\r\nsub b", "a|b|"},
        {&VB, "OnNone", "end sub a\r\nsub ()\r\nsub sub a\r\nsub", ""},
        {&VB, "OnTwo", "sub a(x\r\ny", "a|"},
        {&VB, "OnAsk", "function a\r\nend function\r\nfunction b()\r\nend function", "a|b|"},
        {&VB, "OnAsk", "sub a\r\nend function a\r\n", ""},
        {&VB, "OnClass", "function a\r\nsub b", ""},
        {&VB, "OnNothing", "sub a\r\nfunction b", ""},
        {&JS, "OnAskTwo", "function a(x, y) {\r\n}\r\nfunction b(x, y) {\r\n}", "a|"},
        {&JS, "OnAskTwo", "function a(x, y) {\r\n};\r\nfunction b(x, /* , z */ y) {\r\n}", "a|b|"},
        {&JS, "OnTwo", "function a(x, y) {\r\n}", ""},
    };
    for (const auto &row : rows) {
        Feed(*row.Lexer, row.Text);
        EXPECT_EQ(Shown(row.Lexer->GetSameMethods(&Button, row.Event)), row.Methods)
            << row.Event.toStdString() << ": " << row.Text.toStdString();
        EXPECT_EQ(row.Lexer->ReadChar(), u'\0');
    }
    Feed(VB, "sub a");
    EXPECT_EQ(VB.GetSameMethods(nullptr, "OnNone"), "");
}

TEST_F(MethodTools, MethodLineNr)
{
    const struct {
        TZtLangParser *Lexer;
        QString Text, Name;
        int LineNr;
    } rows[] = {
        {&VB, "", "a", -1},
        {&VB, "sub a", "A", 1},
        {&VB, "\r\nsub a(b)\r\nend sub\r\nfunction B\r\nend function", "b", 4},
        {&VB, "sub\r\n\r\n' note\r\na\r\n(x)", "a", 4},
        {&VB, "end sub a\r\nend function a", "a", -1},
        {&VB, "sub a\r\nend sub rem a\r\nsub b", "b", 3},
        {&VB, "sub a\nsub b", "b", 2},
        // A header in the place of a name is none.
        {&VB, "sub sub a\r\nsub b", "a", -1},
        {&VB, "x = a\r\n'sub a\r\n\"sub a\"", "a", -1},
        {&VB, "sub a\r\nsub a", "", -1},
        {&JS, "function a() {\r\n}\r\nfunction b() {\r\n}", "a", 1},
        {&JS, "function a() {\r\n} // a\r\n\r\nfunction b() {\r\n}", "b", -1},
        {&JS, "function a() {\r\n};\r\nfunction b() {\r\n}", "b", 3},
    };
    for (const auto &row : rows) {
        Feed(*row.Lexer, row.Text);
        row.Lexer->ReadChar(); // the text is read from its start, wherever the lexer stands
        EXPECT_EQ(row.Lexer->MethodLineNr(row.Name), row.LineNr) << row.Text.toStdString();
    }
    Feed(VB, "sub a(b)");
    EXPECT_EQ(VB.MethodLineNr("a"), 1);
    EXPECT_EQ(VB.ReadChar(), u'(');
}

} // namespace

#include "test_methods.moc"
