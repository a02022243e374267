#include "peers.h"

#include "uZtCodeEdit.h"
#include "uZtCodeJSParser.h"
#include "uZtCodeSqlParser.h"
#include "uZtCodeXmlParser.h"
#include "uZtJournal.h"
#include "uZtPlatform.h"
#include "uZtStringStream.h"
#include "uZtTextMarks.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPaintEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSyntaxHighlighter>
#include <QTemporaryDir>
#include <QTextBlock>

#include <algorithm>
#include <type_traits>

#ifdef ZT_HAVE_QSCINTILLA
#include <Qsci/qscilexerjavascript.h>
#include <Qsci/qscilexersql.h>
#include <Qsci/qscilexerxml.h>
#include <Qsci/qsciscintilla.h>
#endif

namespace {

constexpr int ReplaceCount = 100'000; // occurrences in the text
constexpr int DiagnosticCount = 100'000;
constexpr int MarkCount = 10'000;

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
    bool ColourAll() override
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
        return true;
    }
    void RepaintUnchanged() override { FEdit.Invalidate(); }
    void MarkLines() override
    {
        TZtTextMarks &marks = FEdit.GetTextMarks();
        const int lines = LineCount();
        std::vector<TZtDiagnostic> found;
        for (int i = 0; i < DiagnosticCount; ++i) {
            const int line = int(qint64(i) * lines / DiagnosticCount);
            found.push_back({{2, line}, {7, line}, TZtSeverity(i % 3), QStringLiteral("wrong")});
        }
        marks.Diagnostics.Set(QStringLiteral("compiler"), found);
        for (int i = 0; i < MarkCount; ++i)
            marks.Marks.Set(int(qint64(i) * lines / MarkCount), TZtLineMark(i % 7), true);
    }

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

// The same with every correction and a journal of the changes.
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
        FJournal = std::make_unique<TZtJournal>(*FEdit.GetLines(),
                                                FFolder.filePath(QString::number(++FNumber)), base);
    }

private:
    QTemporaryDir FFolder;
    std::unique_ptr<TZtJournal> FJournal;
    int FNumber = 0;
};

// The same with all that ztedit can show: line numbers, marks, changes, the overview, brackets, ...
class TCompletePeer : public TCorrectedPeer {
public:
    TCompletePeer()
    {
        FEdit.SetExtras(ZtAllExtras());
        FEdit.SetScheme(TZtColorScheme::Find(QStringLiteral("Light")));
    }
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

// With line numbers and a background for the caret's line.
class TNumberedEdit : public QPlainTextEdit {
public:
    TNumberedEdit() : FNumbers(this)
    {
        connect(this, &QPlainTextEdit::blockCountChanged, this, [this] { PlaceNumbers(); });
        connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect &ARect, int ADown) {
            if (ADown)
                FNumbers.scroll(0, ADown);
            else
                FNumbers.update(0, ARect.y(), FNumbers.width(), ARect.height());
        });
        connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] { ShowCaretLine(); });
        PlaceNumbers();
        ShowCaretLine();
    }
    QWidget *Numbers() { return &FNumbers; }

protected:
    void resizeEvent(QResizeEvent *AEvent) override
    {
        QPlainTextEdit::resizeEvent(AEvent);
        PlaceNumbers();
    }

private:
    class TNumbers : public QWidget {
    public:
        explicit TNumbers(TNumberedEdit *AEdit) : QWidget(AEdit), FEdit(AEdit) {}

    protected:
        void paintEvent(QPaintEvent *AEvent) override { FEdit->PaintNumbers(AEvent->rect()); }

    private:
        TNumberedEdit *FEdit;
    };

    void PlaceNumbers()
    {
        const int digits = int(QString::number(blockCount()).size());
        const int width = 6 + fontMetrics().horizontalAdvance(QLatin1Char('9')) * digits;
        setViewportMargins(width, 0, 0, 0);
        const QRect inside = contentsRect();
        FNumbers.setGeometry(inside.left(), inside.top(), width, inside.height());
    }
    void PaintNumbers(const QRect &ARect)
    {
        QPainter painter(&FNumbers);
        painter.fillRect(ARect, QColor(0xF0, 0xF0, 0xF0));
        painter.setPen(Qt::darkGray);
        for (QTextBlock block = firstVisibleBlock(); block.isValid(); block = block.next()) {
            const QRectF place = blockBoundingGeometry(block).translated(contentOffset());
            if (place.top() > ARect.bottom())
                break;
            if (block.isVisible() && place.bottom() >= ARect.top())
                painter.drawText(0, int(place.top()), FNumbers.width() - 3, fontMetrics().height(),
                                 Qt::AlignRight, QString::number(block.blockNumber() + 1));
        }
    }
    void ShowCaretLine()
    {
        QTextEdit::ExtraSelection line;
        line.format.setBackground(QColor(0xFF, 0xFF, 0xE0));
        line.format.setProperty(QTextFormat::FullWidthSelection, true);
        line.cursor = textCursor();
        line.cursor.clearSelection();
        setExtraSelections({line});
    }

    TNumbers FNumbers;
};

template <typename TEdit> class TPlainPeer : public TPeer {
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
    bool ColourAll() override
    {
        FHighlighter.rehighlight();
        return true;
    }
    void RepaintUnchanged() override
    {
        FEdit.viewport()->update();
        if constexpr (std::is_same_v<TEdit, TNumberedEdit>)
            FEdit.Numbers()->update();
    }

private:
    TEdit FEdit;
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
    bool ColourAll() override
    {
        FEdit.SendScintilla(QsciScintilla::SCI_CLEARDOCUMENTSTYLE);
        FEdit.SendScintilla(QsciScintilla::SCI_COLOURISE, 0UL, -1L);
        return true;
    }
    void RepaintUnchanged() override { FEdit.viewport()->update(); }

private:
    std::unique_ptr<QsciLexer> FLexer;

protected:
    QsciScintilla FEdit;
};

// With line numbers, markers, brace matching, the caret's line and guides.
class TCompleteScintillaPeer : public TScintillaPeer {
public:
    TCompleteScintillaPeer()
    {
        FEdit.setMarginType(0, QsciScintilla::NumberMargin);
        FEdit.setMarginType(1, QsciScintilla::SymbolMargin);
        FEdit.setMarginWidth(1, 16);
        FEdit.markerDefine(QsciScintilla::Circle, Marker);
        FEdit.setBraceMatching(QsciScintilla::SloppyBraceMatch);
        FEdit.setCaretLineVisible(true);
        FEdit.setCaretLineBackgroundColor(QColor(0xFF, 0xFF, 0xE0));
        FEdit.setIndentationGuides(true);
    }
    void LoadFile(const QString &AFileName) override
    {
        TScintillaPeer::LoadFile(AFileName);
        FEdit.setMarginWidth(0, QString::number(FEdit.lines()) + QLatin1Char('0'));
        for (int line = 0; line < std::min(FEdit.lines(), 1000); line += 10)
            FEdit.markerAdd(line, Marker);
    }

private:
    static constexpr int Marker = 1;
};

#endif

template <typename TOne> TPeerKind Kind(const char *AName, TSet ASet, bool AOwn)
{
    return {AName, ASet, AOwn, [] { return std::make_unique<TOne>(); }};
}

} // namespace

const std::vector<TPeerKind> &Peers()
{
    static const std::vector<TPeerKind> peers = {
        Kind<TZtPeer>("TZtCodeEdit", TSet::Bare, true),
#ifdef ZT_HAVE_QSCINTILLA
        Kind<TScintillaPeer>("QScintilla", TSet::Bare, false),
#endif
        Kind<TPlainPeer<QPlainTextEdit>>("QPlainTextEdit", TSet::Bare, false),
        Kind<TCorrectedPeer>("corrected", TSet::Complete, true),
        Kind<TCompletePeer>("complete", TSet::Complete, true),
#ifdef ZT_HAVE_QSCINTILLA
        Kind<TCompleteScintillaPeer>("QScintilla, complete", TSet::Complete, false),
#endif
        Kind<TPlainPeer<TNumberedEdit>>("QPlainTextEdit, numbered", TSet::Complete, false),
    };
    return peers;
}
