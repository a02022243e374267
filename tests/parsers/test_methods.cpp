#include "lexing.h"

#include "uZtCodeJSParser.h"
#include "uZtCodeVBParser.h"
#include "uZtException.h"

#include <gtest/gtest.h>

namespace {

class TSender : public QObject {
    Q_OBJECT
Q_SIGNALS:
    void changed(const QString &text, int, QObject &source, const char *what = nullptr);
    double asked();
    void OnSignal(int value);
};

class TButton : public TSender {
    Q_OBJECT
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
        const TZtMethodParam &param = *event->GetParams(i);
        params +=
            QStringList{marks[int(param.GetParamType())], param.GetName(), param.GetParamVarType()}
                .join(' ');
    }
    return QString("%1.%2 %3 (%4) %5")
        .arg(event->GetName(), event->GetProcName(),
             event->GetProcType() == TMethodKind::mkProcedure ? "procedure" : "function",
             params.join(", "), event->GetResultType());
}

// The message of what a step raises; empty for nothing.
QString Raised(const std::function<void()> &AStep)
{
    try {
        AStep();
    } catch (const EZtException &error) {
        return error.Message();
    }
    return {};
}

TEST(Methods, RegisteredSignatures)
{
    TSender sender;
    ExpectUnderEachLine("methods/signatures.txt", [&](const QString &line) {
        const QString error = Raised(
            [&] { ZtRegisterEvent(&TSender::staticMetaObject, "OnEvent", GoldenText(line)); });
        return error.isEmpty() ? Described(&sender, "OnEvent").section(u' ', 1).trimmed() : error;
    });
}

TEST(Methods, EventsByClassAndName)
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
    }
    TZtLangParser &Lexer(const QString &ALine)
    {
        return ALine.startsWith('v') ? static_cast<TZtLangParser &>(VB) : JS;
    }
    static QString Shown(QString AText) { return AText.replace("\r\n", "|"); }

    TButton Button;
    TZtCodeVBParser VB;
    TZtCodeJSParser JS;
};

TEST_F(MethodTools, CreateMethod)
{
    ExpectUnderEachLine("methods/created.txt", [this](const QString &line) {
        Button.setObjectName(line.section(' ', 1, 1));
        QString name, text;
        const QString error =
            Raised([&] { text = Lexer(line).CreateMethod(&Button, line.section(' ', 2), name); });
        return name + ": " + Shown(text) + error;
    });
}

// The methods that fit each event, then the lines of those that are called a, b and c.
TEST_F(MethodTools, MethodsOfATextAndTheirLines)
{
    ExpectUnderEachLine("methods/texts.txt", [this](const QString &line) {
        TZtLangParser &lexer = Lexer(line);
        TTextStream stream(GoldenText(line));
        lexer.SetInputStream(&stream, false);
        QString shown = "found:";
        for (const char *event : {"OnNone", "OnClick", "OnTwo", "OnAsk", "OnAskTwo", "OnNothing"})
            if (const QString names = Shown(lexer.GetSameMethods(&Button, event)); !names.isEmpty())
                shown += QString(" %1 %2").arg(event, names);
        for (const char *name : {"A", "b", "c", ""})
            if (const int at = lexer.MethodLineNr(name); at != -1)
                shown += QString(" %1:%2").arg(name).arg(at);
        return shown;
    });
}

} // namespace

#include "test_methods.moc"
