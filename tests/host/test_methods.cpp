#include "Document.h"
#include "MethodIndex.h"
#include "MethodListDialog.h"
#include "Methods.h"
#include "session.h"

#include "uZtCodeEdit.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>

using namespace Qt::StringLiterals;

namespace {

class TScript : public TDocument {
public:
    explicit TScript(const QString &AText, const char *AExtension = "vbs") : TDocument(u"new"_s)
    {
        Become(AExtension, AText);
    }
    void Become(const char *AExtension, const QString &AText)
    {
        SetLanguage(ZtLanguageOfFile(u"x."_s + QLatin1StringView(AExtension)));
        Editor()->SetText(AText);
    }
    TMethodIndex *Index() { return ZtMethodIndexOf(*this); }
    // "name:line" of each method, for which a fraction of a minute is needed.
    QString Methods()
    {
        QStringList found;
        EXPECT_TRUE(Index()->ReadOn(60'000));
        for (int i = 0; i < Index()->Count(); ++i)
            found += u"%1:%2"_s.arg(Index()->Name(i)).arg(Index()->Line(i));
        return found.join(u' ');
    }
};

} // namespace

TEST(Methods, AreListedWithTheirLines)
{
    EXPECT_EQ(TScript(u"sub A\nend sub ' sub X\nfunction b(c)\nend function\nSUB\nd"_s).Methods(),
              u"A:1 b:3 d:6"_s);
    EXPECT_EQ(TScript(u"function a() {\n}\n/* function x\n*/\nfunction b() {}"_s, "js").Methods(),
              u"a:1 b:5"_s);
    // A long line is read in pieces, which cut words in two.
    const QString rest = u"function abc(){}function d\nfunction e"_s;
    for (int blanks = 16378; blanks < 16386; ++blanks)
        EXPECT_EQ(TScript(QString(blanks, u' ') + rest, "js").Methods(), u"abc:1 d:1 e:2"_s);
}

TEST(Methods, AreReadAgainWhenTheTextHasChanged)
{
    TScript script(u"sub A\nend sub"_s);
    TMethodIndex *index = script.Index();
    const auto read = [&] {
        while (!index->IsComplete())
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return script.Methods();
    };
    EXPECT_EQ(read(), u"A:1"_s);
    for (const QChar typed : u"\nsub B"_s) {
        script.Editor()->InsertText(TZtChangeType::ctPaste, QString(typed));
        QApplication::processEvents();
        EXPECT_EQ(index->Count() + index->Progress(), 0) << "not before a pause";
    }
    EXPECT_EQ(read(), u"Bsub:2"_s);
    script.Become("js", u"function f() {\n}\n'function g'"_s);
    EXPECT_EQ(script.Methods(), u"f:1 g:3"_s);
    script.Become("pas", {});
    EXPECT_FALSE(script.Index());
}

TEST(Methods, TheListIsFilteredWhileTyping)
{
    QString text;
    for (int i = 1; i <= 2000; ++i)
        text += u"sub Method%1\n"_s.arg(i);
    TScript script(text);
    const struct {
        QString Filter;
        int Rows;
        QList<int> Keys;
        int Line; // 0: none was taken
    } rows[] = {
        {{}, 2000, {Qt::Key_Return}, 1},
        {u"METHOD15"_s, 111, {Qt::Key_Return}, 15},
        {u"99"_s, 38, {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_Return}, 199},
        {u"x"_s, 0, {Qt::Key_Return, Qt::Key_Escape}, 0},
        {u"15"_s, 139, {Qt::Key_Escape}, 0},
    };
    for (const auto &row : rows) {
        TMethodListDialog dialog(*script.Index());
        dialog.show();
        auto *filter = dialog.findChild<QLineEdit *>();
        filter->setText(row.Filter);
        for (const int key : QList<int>{Qt::Key_Up} + row.Keys) {
            QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
            QApplication::sendEvent(filter, &event);
        }
        EXPECT_EQ(dialog.findChild<QListView *>()->model()->rowCount(), row.Rows);
        EXPECT_EQ(dialog.Line(), row.Line) << row.Filter.toStdString();
        EXPECT_EQ(dialog.result() == QDialog::Accepted, row.Line > 0);
        EXPECT_FALSE(dialog.isVisible());
    }
}
