#include "Document.h"
#include "MainWindow.h"
#include "SaveFlow.h"
#include "SideFile.h"
#include "StatusTexts.h"
#include "message_boxes.h"

#include "uZtCodeEdit.h"
#include "uZtException.h"

#include <QApplication>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QTabBar>
#include <QTemporaryDir>
#include <QWindow>

#include <new>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class Host : public TMessageBoxes {
protected:
    QString Make(const char *AName, const QByteArray &ABytes) const
    {
        QFile file(Folder.filePath(QString::fromLatin1(AName)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(ABytes);
        return file.fileName();
    }
    // The file after `AText` was put in front of its first line and saved.
    QByteArray SavedAfterEdit(const QString &APath, const QString &AText)
    {
        TDocument document(u"new"_s);
        document.Load(APath);
        document.Editor()->InsertText(TZtChangeType::ctPaste, AText);
        EXPECT_TRUE(document.IsModified());
        Saved = ZtSaveDocument(document);
        EXPECT_EQ(document.IsModified(), !Saved);
        return ZtReadFile(APath);
    }

    QTemporaryDir Folder;
    bool Saved = false;
};

QByteArray Raw(const char *AHex) { return QByteArray::fromHex(AHex); }

// As it is loaded, and after an "x" was put in front.
const struct {
    const char *Name;
    QByteArray Loaded;
    QByteArray Edited;
    int Questions;
} Files[] = {
    {"empty", "", "x", 0},
    {"crlf.pas", "a\r\nb\r\n", "xa\r\nb\r\n", 0},
    {"no final break", "a\nb", "xa\nb", 0},
    {"blank lines", "a  \n\n\n", "xa  \n\n\n", 0},
    {"cr", "a\rb\r", "xa\rb\r", 0},
    {"nul", QByteArray("a\0b\n", 4), QByteArray("xa\0b\n", 5), 0},
    {"utf-8 mark", "\xEF\xBB\xBF\xE2\x82\xAC\n", "\xEF\xBB\xBFx\xE2\x82\xAC\n", 0},
    {"windows", "\xE4\x80\x81\r\n", "x\xE4\x80\x81\r\n", 0},
    {"utf-16", Raw("feff00610000000a"), Raw("feff007800610000000a"), 0},
    {"mixed", "a\nb\r\nc\r\nd", "xa\r\nb\r\nc\r\nd", 1},
    {"odd byte", Raw("fffe610062"), Raw("fffe78006100fdff"), 1},
};

} // namespace

TEST_F(Host, AnUneditedFileKeepsItsBytes)
{
    for (const auto &row : Files) {
        SCOPED_TRACE(row.Name);
        const QString path = Make(row.Name, row.Loaded);
        TDocument document(u"new"_s);
        document.Load(path);
        EXPECT_FALSE(document.IsModified());
        EXPECT_TRUE(ZtSaveDocumentAs(document, Folder.filePath(u"copy"_s)));
        EXPECT_EQ(ZtReadFile(Folder.filePath(u"copy"_s)), row.Loaded);
        QFile::remove(document.Path());
        EXPECT_TRUE(ZtSaveDocument(document));
        EXPECT_EQ(ZtReadFile(document.Path()), row.Loaded);
    }
    EXPECT_TRUE(Asked.isEmpty());
}

TEST_F(Host, AnEditedFileKeepsItsFormat)
{
    for (const auto &row : Files) {
        SCOPED_TRACE(row.Name);
        Asked.clear();
        const QString path = Make(row.Name, row.Loaded);
        EXPECT_EQ(SavedAfterEdit(path, u"x"_s), row.Edited);
        EXPECT_EQ(Asked.size(), row.Questions);
    }
}

TEST_F(Host, ARefusedQuestionLeavesTheFile)
{
    Answer = mrNo;
    const struct {
        QByteArray Loaded;
        QString Typed;
        const char *Question;
    } rows[] = {
        {"a\n\r\n", u"x"_s, "mixed. All of them will be written as LF."},
        {Raw("fffe610062"), u"x"_s, "holds bytes that are no UTF-16 LE text"},
        {"\xE4\n", u"\n\u0142"_s,
         "the first is \u0142 (U+0142) in line 2, column 1. Save it as UTF-8"},
        {"a\n", QString(QChar(0xD83D)),
         "the first is U+D83D in line 1, column 1. Save it as UTF-16"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Question);
        EXPECT_EQ(SavedAfterEdit(Make("a", row.Loaded), row.Typed), row.Loaded);
        EXPECT_FALSE(Saved);
        EXPECT_TRUE(Asked.last().contains(QString::fromUtf8(row.Question)))
            << Asked.last().toStdString();
    }
}

TEST_F(Host, AnAgreedEncodingHoldsEveryCharacter)
{
    EXPECT_EQ(SavedAfterEdit(Make("a", "\xE4\r\n"), u"\u0142"_s), "\u0142\u00E4\r\n");
    EXPECT_EQ(SavedAfterEdit(Make("b", "a"), QString(QChar(0xD83D))), Raw("fffe3dd86100"));
}

TEST_F(Host, AForeignChangeIsNotOverwrittenUnasked)
{
    const QString path = Make("a.pas", "one\n");
    TDocument document(u"new"_s);
    document.Load(path);
    document.Editor()->InsertText(TZtChangeType::ctPaste, u"x"_s);
    Make("a.pas", "two\n");
    Answer = mrNo;
    EXPECT_FALSE(ZtSaveDocument(document));
    EXPECT_EQ(ZtReadFile(path), "two\n");
    Answer = mrYes;
    EXPECT_TRUE(ZtSaveDocument(document));
    EXPECT_EQ(ZtReadFile(path), "xone\n");
    EXPECT_EQ(Asked.size(), 2);
}

TEST_F(Host, AFileThatCannotBeComparedIsNotOverwrittenUnasked)
{
    const QString path = Make("%2.pas", "one\n");
    TDocument document(u"new"_s);
    document.Load(path);
    document.Editor()->InsertText(TZtChangeType::ctPaste, u"x"_s);
    QFile::remove(path);
    QFile::link(u"%2.pas"_s, path);
    Answer = mrNo;
    EXPECT_FALSE(ZtSaveDocument(document));
    EXPECT_EQ(Asked,
              (QStringList{u"\"%2.pas\" cannot be read to see whether another program changed "
                           "it: Too many levels of symbolic links. Overwrite it?"_s}));
    Answer = mrYes;
    EXPECT_FALSE(ZtSaveDocument(document));
    EXPECT_TRUE(Asked.last().startsWith(u"Cannot write \"%1\": "_s.arg(path)));
    EXPECT_TRUE(document.IsModified());
}

TEST_F(Host, ASaveThatWasCutShortCanBeTakenBack)
{
    const struct {
        const char *Opened;
        int Answer;
        QByteArray Now;
        QByteArray Kept;
    } rows[] = {
        {"a", mrYes, "old\n", "ha"},
        {"a", mrNo, "ha", "old\n"},
        {"a", mrCancel, "ha", ""},
        {"a's hard link", mrYes, "old\n", "ha"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Opened);
        Asked.clear();
        Answer = row.Answer;
        const QString path = Make("a", "ha");
        const QString backup = Make(".a.0123456789abcdef.zt-old", "old\n");
        const QString opened = Folder.filePath(QLatin1StringView(row.Opened));
        const QString kept = opened + u".kept"_s;
        link(QFile::encodeName(path).constData(), QFile::encodeName(opened).constData());
        TMainWindow window;
        EXPECT_EQ(window.OpenFile(opened)->Editor()->GetText(),
                  QString::fromLatin1(row.Now.trimmed()) + u"\r\n"_s);
        EXPECT_EQ(Asked.size(), 1);
        EXPECT_TRUE(Asked[0].contains(QFileInfo(kept).fileName())) << Asked[0].toStdString();
        EXPECT_EQ(ZtReadFile(path), row.Now);
        EXPECT_EQ(QFile::exists(backup), row.Kept.isEmpty());
        EXPECT_EQ(QFile::exists(kept) ? ZtReadFile(kept) : QByteArray(), row.Kept);
        QFile::remove(kept);
    }
    Asked.clear();
    Make("a", "same");
    const QString same = Make(".a.0123456789abcdef.zt-old", "same");
    ZtOfferRestore(Folder.filePath(u"a"_s));
    EXPECT_FALSE(QFile::exists(same));
    TZtSideFile living(Folder.filePath(u"a"_s));
    living.BecomeBackup();
    ZtOfferRestore(Folder.filePath(u"a"_s));
    EXPECT_TRUE(Asked.isEmpty());
}

namespace {

// Runs out of memory when it is told to.
class TPoorDocument : public TDocument {
public:
    using TDocument::TDocument;
    bool IsModified() const override
    {
        return Poor ? throw std::bad_alloc() : TDocument::IsModified();
    }
    bool Poor = false;

protected:
    TZtCodeEdit *CreateEditor() override
    {
        return Poor ? throw std::bad_alloc() : TDocument::CreateEditor();
    }
};

} // namespace

TEST_F(Host, WithoutMemoryNothingIsLost)
{
    const QString path = Make("a.pas", "one\n");
    TPoorDocument document(u"new"_s);
    document.Load(path);
    document.Editor()->InsertText(TZtChangeType::ctPaste, u"x"_s);
    document.Poor = true;
    EXPECT_THROW(document.Load(Make("b", "two")), EStreamError);
    EXPECT_FALSE(ZtSaveDocument(document));
    EXPECT_EQ(Asked, QStringList{u"\"a.pas\" is not saved: There is not enough memory."_s});
    document.Poor = false;
    EXPECT_EQ(document.Editor()->GetText(), u"xone\r\n"_s);
    EXPECT_EQ(document.Path(), path);
    EXPECT_TRUE(document.IsModified() && ZtSaveDocument(document));
    EXPECT_EQ(ZtReadFile(path), "xone\n");
}

TEST_F(Host, LoadingAgainForgetsTheUndoListAndKeepsTheLanguage)
{
    const QString path = Make("a.pas", "one\n");
    TDocument document(u"new"_s);
    document.Load(path);
    EXPECT_STREQ(document.Language().Name, "Pascal");
    document.SetLanguage(ZtLanguages()[0]);
    EXPECT_FALSE(document.IsModified());
    document.Editor()->InsertText(TZtChangeType::ctPaste, u"x"_s);
    Make("a.pas", "two\n");
    document.Load(path);
    EXPECT_FALSE(document.IsModified());
    EXPECT_FALSE(document.Editor()->GetCanUndo());
    EXPECT_EQ(document.Editor()->GetText(), u"two\r\n"_s);
    EXPECT_STREQ(document.Language().Name, "Plain text");
    EXPECT_THROW(document.Load(path + u"none"_s), EStreamError);
    EXPECT_EQ(document.Path(), path);
}

TEST_F(Host, AFileIsOpenInOneTabAndAnUnusedTabGoes)
{
    TMainWindow window;
    window.NewDocument();
    TDocument *first = window.OpenFile(Make("a.pas", "one"));
    EXPECT_EQ(window.DocumentCount(), 1);
    window.OpenFile(Make("b.sql", "two"));
    QFile::link(first->Path(), Folder.filePath(u"link"_s));
    EXPECT_EQ(window.OpenFile(Folder.filePath(u"link"_s)), first);
    EXPECT_EQ(window.DocumentCount(), 2);
    EXPECT_EQ(window.CurrentDocument(), first);
    window.OpenFiles({Folder.filePath(u"none"_s), Folder.path()});
    EXPECT_EQ(window.DocumentCount(), 2);
    EXPECT_EQ(Asked.size(), 1);
}

TEST_F(Host, AFileThatIsNotThereIsBegun)
{
    const QString path = Folder.filePath(u"new.js"_s);
    TMainWindow window;
    const QStringList files{path, path, Make("a.pas", "one"), Folder.path(), QString()};
    EXPECT_EQ(window.OpenEach(files, &TMainWindow::OpenOrBegin).size(), 2);
    EXPECT_EQ(window.DocumentCount(), 2);
    TDocument *document = window.DocumentOf(path);
    ASSERT_TRUE(document);
    EXPECT_STREQ(document->Language().Name, "JavaScript");
    EXPECT_FALSE(document->IsModified());
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_TRUE(window.Save(document));
    EXPECT_EQ(ZtReadFile(path), "");
    QFile::remove(path);
    document->Editor()->InsertText(TZtChangeType::ctPaste, u"x"_s);
    EXPECT_TRUE(window.Save(document));
    EXPECT_EQ(ZtReadFile(path), "x\n");
    EXPECT_TRUE(Asked.isEmpty());
    // Another program was quicker.
    const QString late = Folder.filePath(u"late"_s);
    document = window.OpenOrBegin(late);
    Make("late", "theirs");
    Answer = mrNo;
    EXPECT_FALSE(window.Save(document));
    EXPECT_EQ(ZtReadFile(late), "theirs");
}

TEST_F(Host, GoingToALinePutsItIntoTheMiddle)
{
    TMainWindow window;
    window.resize(600, 400);
    TDocument *document = window.OpenFile(Make("lines", QByteArray("x\n").repeated(1000)));
    window.show();
    QApplication::processEvents();
    const int page = document->Editor()->GetVScrollBar()->GetPageSize();
    ASSERT_GT(page, 5);
    const struct {
        int Line, Top;
    } rows[] = {{500, 499 - page / 2},
                {510, 509 - page / 2},
                {3, 0},
                {999, 1000 - page},
                {5000, 1000 - page}};
    for (const auto &row : rows) {
        if (row.Line == 510)
            document->Load(document->Path()); // into an editor that was not shown before
        document->GoToLine(row.Line);
        EXPECT_EQ(document->Editor()->GetVScrollBar()->GetPosition(), row.Top) << row.Line;
        EXPECT_EQ(document->Editor()->GetLinePos(), qMin(row.Line, 1000) - 1);
    }
}

TEST_F(Host, NamesAreShownAsTheyAre)
{
    const char *name = "a&b[*]<b>%4.pas";
    const QString text = QString::fromLatin1(name);
    TMainWindow window;
    window.OpenFile(Make(name, "\xE4\n"))
        ->Editor()
        ->InsertText(TZtChangeType::ctPaste, u"\u0142"_s);
    window.show();
    QApplication::processEvents();
    const auto *tabs = window.findChild<QTabBar *>();
    EXPECT_EQ(tabs->tabText(0), u"a&&b[*]<b>%4.pas*"_s);
    EXPECT_TRUE(tabs->tabToolTip(0).contains(u"a&amp;b[*]&lt;b&gt;%4.pas"_s));
    EXPECT_TRUE(window.windowHandle()->title().startsWith(text + u'*'))
        << window.windowHandle()->title().toStdString();
    Answer = mrNo;
    window.Save(window.CurrentDocument());
    EXPECT_TRUE(Asked.join(u' ').contains(u'"' + text + u'"')) << Asked.join(u' ').toStdString();
}

TEST(Status, EachTextIsWholeOrNotThere)
{
    QWidget bar;
    QHBoxLayout row(&bar);
    row.setContentsMargins(0, 0, 0, 0);
    TStatusTexts texts;
    row.addWidget(&texts);
    const QStringList shown{u"Line 1, column 1"_s, u"<b>&x"_s, u"UTF-8"_s, u"CR LF, mixed"_s};
    texts.SetTexts(shown);
    bar.show();
    size_t before = 0;
    for (int width = 0; width <= texts.sizeHint().width(); ++width) {
        bar.resize(width, 20);
        row.activate();
        QStringList seen;
        for (const QLabel *label : texts.findChildren<QLabel *>())
            if (label->isVisible()) {
                seen += label->text();
                EXPECT_GE(label->width(), label->sizeHint().width());
            }
        EXPECT_EQ(seen, shown.first(seen.size())) << width;
        EXPECT_GE(size_t(seen.size()), before);
        before = size_t(seen.size());
    }
    EXPECT_EQ(before, 4u);
    texts.SetTexts({u"Line 1000000, column 1"_s});
    EXPECT_EQ(texts.findChildren<QLabel *>().constFirst()->isVisible(), true);
}

TEST_F(Host, WhatACommandRaisesEndsItAlone)
{
    QStringList shown;
    ZtPlatform().ShowException = [&](const QString &message) { shown += message; };
    TMainWindow window;
    TZtCodeEdit *editor = window.OpenFile(Make("a.pas", "one"))->Editor();
    editor->OnKeyDown = [](QObject *, quint16 &, TShiftState) { throw std::bad_alloc(); };
    for (QAction *action : window.menuBar()->actions().at(1)->menu()->actions())
        if (action->text().startsWith(u"Select"_s))
            action->trigger();
    EXPECT_EQ(shown, QStringList{u"There is not enough memory."_s});
    editor->InsertText(TZtChangeType::ctPaste, u"x"_s);
    ZtPlatform().MsgBoxYesNoCancel = [](const QString &, const QString &) -> int {
        throw std::runtime_error("no question");
    };
    EXPECT_FALSE(window.close()) << "the text is not saved";
    EXPECT_EQ(shown.size(), 2);
}

TEST_F(Host, ClosingAsksAboutAnEditedText)
{
    const QString path = Make("a.pas", "one");
    TMainWindow window;
    TDocument *document = window.OpenFile(path);
    document->Editor()->InsertText(TZtChangeType::ctPaste, u"x"_s);
    QApplication::processEvents();
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(window.findChild<QTabBar *>()->tabText(0), u"a.pas*"_s);
    Answer = mrCancel;
    EXPECT_FALSE(window.close());
    EXPECT_FALSE(window.CloseDocument(document));
    Answer = mrYes;
    EXPECT_TRUE(window.CloseDocument(document));
    EXPECT_EQ(ZtReadFile(path), "xone");
    document = window.OpenFile(path);
    document->Editor()->InsertText(TZtChangeType::ctPaste, u"y"_s);
    Answer = mrNo;
    EXPECT_TRUE(window.close());
    EXPECT_EQ(ZtReadFile(path), "xone");
}

TEST_F(Host, TheEditMenuActsOnTheEditor)
{
    QString clipboard;
    ZtPlatform().ClipboardText = [&] { return clipboard; };
    ZtPlatform().SetClipboardText = [&](const QString &text) { clipboard = text; };
    ZtPlatform().KeyboardShift = [] { return TShiftState(); };
    TMainWindow window;
    TZtCodeEdit *editor = window.OpenFile(Make("a.pas", "one"))->Editor();
    QMenu *menu = window.menuBar()->actions().at(1)->menu();
    const auto act = [&](const char *name) {
        Q_EMIT menu->aboutToShow();
        for (QAction *action : menu->actions())
            if (action->text().remove(u'&').section(u'\t', 0, 0) == QLatin1StringView(name)) {
                const bool enabled = action->isEnabled();
                action->trigger();
                QApplication::processEvents();
                return enabled;
            }
        return false;
    };
    for (const char *name : {"Undo", "Cut", "Copy", "Paste"})
        EXPECT_FALSE(act(name)) << name;
    EXPECT_TRUE(act("Select all"));
    EXPECT_TRUE(act("Copy"));
    EXPECT_TRUE(act("Paste"));
    EXPECT_TRUE(act("Paste"));
    EXPECT_EQ(editor->GetText(), u"oneone\r\n"_s);
    EXPECT_TRUE(act("Undo"));
    EXPECT_EQ(editor->GetText(), u"one\r\n"_s);
    act("Select all");
    EXPECT_TRUE(act("Cut"));
    EXPECT_EQ(clipboard, u"one"_s);
}
