#include "peers.h"

#include "uZtCodeEdit.h"
#include "uZtCodeJSParser.h"
#include "uZtCodeSqlParser.h"
#include "uZtCodeXmlParser.h"
#include "uZtJournal.h"
#include "uZtPlatform.h"
#include "uZtStringStream.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSyntaxHighlighter>
#include <QTemporaryDir>
#include <QTextBlock>

#ifdef ZT_HAVE_QSCINTILLA
#include <Qsci/qscilexerjavascript.h>
#include <Qsci/qscilexersql.h>
#include <Qsci/qscilexerxml.h>
#include <Qsci/qsciscintilla.h>
#endif

namespace {

constexpr int ReplaceCount = 100'000; // occurrences in the text

QFont BenchFont()
{
    QFont font(QStringLiteral("Courier new"), 10);
    font.setFixedPitch(true);
    return font;
}

// --- this project's control ----------------------------------------------------------------------

class TZtPeer : public TPeer {
public:
    ~TZtPeer() override { FEdit.SetParser(nullptr); }
    QWidget *Widget() override { return &FEdit; }
    void SetLanguage(TLanguage ALanguage) override
    {
        FEdit.SetParser(nullptr);
        if (ALanguage == TLanguage::JavaScript)
            FParser = std::make_unique<TZtCodeJSParser>();
        else if (ALanguage == TLanguage::Xml)
            FParser = std::make_unique<TZtCodeXMLParser>();
        else
            FParser = std::make_unique<TZtCodeSqlParser>();
        FEdit.SetParser(FParser.get());
    }
    void LoadFile(const QString &AFileName) override { FEdit.LoadFromFile(AFileName); }
    int LineCount() override { return FEdit.GetLines()->GetCount(); }
    void MoveTo(int ALine, int AColumn) override
    {
        FEdit.SetLinePos(ALine);
        FEdit.SetCharPos(AColumn);
    }
    bool Find(const QString &S, bool ACase, bool AWholeWords) override
    {
        MoveTo(0, 0);
        FEdit.SetSearchOptions(Options(S, ACase, AWholeWords));
        ZtSendMessage(&FEdit, quint32(TZtMsg::wmUser) + 3);
        return FEdit.GetSelStart() != FEdit.GetSelEnd();
    }
    int ReplaceAll(const QString &S, const QString &AWith) override
    {
        MoveTo(0, 0);
        TZtSearchReplaceOptions options = Options(S, true, false);
        options.Replace = options.ReplaceAll = true;
        options.ReplaceWith = AWith;
        FEdit.SetSearchOptions(options);
        bool done = false;
        ZtPlatform().MsgBoxInfo = [&](const QString &, const QString &) { done = true; };
        FEdit.SetOnSearchMessage([&](const QString &) { done = true; });
        ZtPostMessage(&FEdit, quint32(TZtMsg::wmUser) + 3);
        while (!done)
            QApplication::processEvents();
        ZtPlatform() = ZtDefaultPlatform();
        return ReplaceCount;
    }
    void Paste() override { ZtSendMessage(&FEdit, TZtMsg::wmPaste); }
    void ColourAll() override
    {
        TStringList *lines = FEdit.GetLines();
        int next = 0;
        FParser->OnGetNewBuffer = [&](bool reset, QString &s) {
            if (reset || next >= lines->GetCount())
                return false;
            lines->AppendTo(next++, s);
            s.append(QLatin1StringView("\r\n"));
            return true;
        };
        FParser->ResetBuffer();
        QString token;
        TColor back, fore;
        TFontStyles style;
        bool lineBreak;
        while (FParser->GetNextToken(token, back, fore, style, lineBreak)) {
        }
        FParser->OnGetNewBuffer = nullptr;
    }
    void RepaintUnchanged() override { FEdit.Invalidate(); }

private:
    TZtSearchReplaceOptions Options(const QString &S, bool ACase, bool AWholeWords)
    {
        TZtSearchReplaceOptions options;
        options.SearchString = S;
        options.SearchForward = true;
        options.Options = TZtSearchFlag::sfDown;
        options.Options.setFlag(TZtSearchFlag::sfMatchCase, ACase);
        options.Options.setFlag(TZtSearchFlag::sfWholeWord, AWholeWords);
        options.WidenTo(*FEdit.GetLines());
        return options;
    }

    std::unique_ptr<TZtLangParser> FParser;

protected:
    TZtCodeEdit FEdit;
};

// The same with all that ztedit switches on: every correction, and a journal of the changes.
class TCorrectedPeer : public TZtPeer {
public:
    TCorrectedPeer() { FEdit.SetCorrections(ZtAllCorrections()); }
    void LoadFile(const QString &AFileName) override
    {
        FJournal.reset();
        TZtStringStream stream;
        stream.LoadFromFile(AFileName);
        FEdit.GetLines()->SetUtf8Text(stream.Bytes());
        FEdit.SetModified(false);
        FEdit.ClearUndo();
        TZtJournalBase base;
        base.Path = AFileName;
        base.Bytes = stream.Bytes();
        FJournal = std::make_unique<TZtJournal>(
            *FEdit.GetLines(), FFolder.filePath(QString::number(++FNumber)), base);
    }

private:
    QTemporaryDir FFolder;
    std::unique_ptr<TZtJournal> FJournal;
    int FNumber = 0;
};

// --- Qt's plain text editor with a small highlighter ---------------------------------------------

class TSmallHighlighter : public QSyntaxHighlighter {
public:
    explicit TSmallHighlighter(QTextDocument *ADocument) : QSyntaxHighlighter(ADocument)
    {
        FKeyWord.setForeground(Qt::blue);
        FKeyWord.setFontWeight(QFont::Bold);
        FNumber.setForeground(Qt::red);
    }

protected:
    void highlightBlock(const QString &AText) override
    {
        static const QRegularExpression words(QStringLiteral(
            "\\b(var|function|return|if|else|for|while|select|from|where)\\b|\\b\\d+\\b"));
        for (auto it = words.globalMatch(AText); it.hasNext();) {
            const QRegularExpressionMatch match = it.next();
            setFormat(int(match.capturedStart()), int(match.capturedLength()),
                      AText.at(match.capturedStart()).isDigit() ? FNumber : FKeyWord);
        }
    }

private:
    QTextCharFormat FKeyWord;
    QTextCharFormat FNumber;
};

class TPlainPeer : public TPeer {
public:
    TPlainPeer() : FHighlighter(FEdit.document())
    {
        FEdit.setFont(BenchFont());
        FEdit.setLineWrapMode(QPlainTextEdit::NoWrap);
    }
    QWidget *Widget() override { return &FEdit; }
    void SetLanguage(TLanguage) override {}
    void LoadFile(const QString &AFileName) override
    {
        QFile file(AFileName);
        if (file.open(QIODevice::ReadOnly))
            FEdit.setPlainText(QString::fromUtf8(file.readAll()));
    }
    int LineCount() override { return FEdit.blockCount(); }
    void MoveTo(int ALine, int AColumn) override
    {
        QTextCursor cursor(FEdit.document()->findBlockByNumber(ALine));
        cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, AColumn);
        FEdit.setTextCursor(cursor);
    }
    bool Find(const QString &S, bool ACase, bool AWholeWords) override
    {
        QTextDocument::FindFlags flags;
        flags.setFlag(QTextDocument::FindCaseSensitively, ACase);
        flags.setFlag(QTextDocument::FindWholeWords, AWholeWords);
        const QTextCursor found = FEdit.document()->find(S, 0, flags);
        if (!found.isNull())
            FEdit.setTextCursor(found);
        return !found.isNull();
    }
    int ReplaceAll(const QString &S, const QString &AWith) override
    {
        QTextCursor cursor(FEdit.document());
        cursor.beginEditBlock();
        for (QTextCursor at = FEdit.document()->find(S, 0, QTextDocument::FindCaseSensitively);
             !at.isNull(); at = FEdit.document()->find(S, at, QTextDocument::FindCaseSensitively))
            at.insertText(AWith);
        cursor.endEditBlock();
        return ReplaceCount;
    }
    void Paste() override { FEdit.paste(); }
    void ColourAll() override { FHighlighter.rehighlight(); }
    void RepaintUnchanged() override { FEdit.viewport()->update(); }

private:
    QPlainTextEdit FEdit;
    TSmallHighlighter FHighlighter;
};

#ifdef ZT_HAVE_QSCINTILLA

class TScintillaPeer : public TPeer {
public:
    TScintillaPeer()
    {
        FEdit.setUtf8(true);
        FEdit.setMarginWidth(1, 20);
        FEdit.setEdgeMode(QsciScintilla::EdgeLine);
        FEdit.setEdgeColumn(80);
    }
    QWidget *Widget() override { return &FEdit; }
    void SetLanguage(TLanguage ALanguage) override
    {
        if (ALanguage == TLanguage::JavaScript)
            FLexer = std::make_unique<QsciLexerJavaScript>();
        else if (ALanguage == TLanguage::Xml)
            FLexer = std::make_unique<QsciLexerXML>();
        else
            FLexer = std::make_unique<QsciLexerSQL>();
        FLexer->setFont(BenchFont());
        FEdit.setLexer(FLexer.get());
    }
    void LoadFile(const QString &AFileName) override
    {
        QFile file(AFileName);
        if (file.open(QIODevice::ReadOnly))
            FEdit.read(&file);
    }
    int LineCount() override { return FEdit.lines(); }
    void MoveTo(int ALine, int AColumn) override { FEdit.setCursorPosition(ALine, AColumn); }
    bool Find(const QString &S, bool ACase, bool AWholeWords) override
    {
        return FEdit.findFirst(S, false, ACase, AWholeWords, false, true, 0, 0);
    }
    int ReplaceAll(const QString &S, const QString &AWith) override
    {
        // One undo action and no picture in between. Its notices of a change are switched off: for
        // each of them it counts the characters before the change, which would take minutes.
        FEdit.setUpdatesEnabled(false);
        FEdit.SendScintilla(QsciScintilla::SCI_SETMODEVENTMASK, 0UL);
        FEdit.beginUndoAction();
        QElapsedTimer timer;
        timer.start();
        int count = 0;
        for (bool found = FEdit.findFirst(S, false, true, false, false, true, 0, 0);
             found && timer.elapsed() < 20'000; found = FEdit.findNext(), ++count)
            FEdit.replace(AWith);
        FEdit.endUndoAction();
        FEdit.SendScintilla(QsciScintilla::SCI_SETMODEVENTMASK,
                            (unsigned long)QsciScintilla::SC_MODEVENTMASKALL);
        FEdit.setUpdatesEnabled(true);
        return count;
    }
    void Paste() override { FEdit.paste(); }
    void ColourAll() override
    {
        FEdit.SendScintilla(QsciScintilla::SCI_CLEARDOCUMENTSTYLE);
        FEdit.SendScintilla(QsciScintilla::SCI_COLOURISE, 0UL, -1L);
    }
    void RepaintUnchanged() override { FEdit.viewport()->update(); }

private:
    std::unique_ptr<QsciLexer> FLexer;
    QsciScintilla FEdit;
};

#endif

} // namespace

const std::vector<TPeerKind> &Peers()
{
    static const std::vector<TPeerKind> peers = {
        {"TZtCodeEdit", [] { return std::make_unique<TZtPeer>(); }},
        {"corrected", [] { return std::make_unique<TCorrectedPeer>(); }},
#ifdef ZT_HAVE_QSCINTILLA
        {"QScintilla", [] { return std::make_unique<TScintillaPeer>(); }},
#endif
        {"QPlainTextEdit", [] { return std::make_unique<TPlainPeer>(); }},
    };
    return peers;
}
