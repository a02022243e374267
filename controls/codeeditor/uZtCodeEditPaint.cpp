#include "uZtCodeEditPass.h"

#include "uZtComposition.h"

#include "uZtCaret.h"
#include "uZtEditExtras.h"
#include "uZtEditSearch.h"
#include "uZtSystemColors.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScopedValueRollback>

namespace {

constexpr int LongestPiece = 16'384; // of a line that the lexer is given at once
constexpr int ReadOnlyDarker = 10;   // per cent

} // namespace

bool TZtCodeEdit::ParserGetNewBuffer(bool AReset, QString &S)
{
    if (AReset) {
        SetParserLineNr(0);
        return true;
    }
    const bool more = FParserColumn > 0 && FParserLineNr <= FLines->GetCount();
    if (!more) {
        if (FParserLineNr >= FLines->GetCount())
            return false;
        FParserColumn = 0;
        if (!IsCorrected(TZtCorrection::zcPicture)) // else a paint stores nothing
            FLines->SetObjects(FParserLineNr, GetParser()->GetLineKind());
        ParserLineCollapse = IsLineCollapse(FParserLineNr, ParserLineCollapsed);
        ++FParserLineNr;
    }
    HandOverPiece(S);
    return true;
}

// A line and its break, or what fits into a piece of it: of a line of megabytes only the start is
// in sight, and a lexer that is not asked for more need not be given more.
void TZtCodeEdit::HandOverPiece(QString &S)
{
    const int length = FLines->GetLength(FParserLineNr - 1);
    const int from = std::min(FParserColumn, length); // the host may have cut it since
    const int left = length - from;
    const int count = std::min(left, LongestPiece);
    S.resize(0); // the memory serves the next line too
    S.reserve(count + 2);
    FLines->AppendTo(FParserLineNr - 1, from, count, S);
    FParserColumn = from + count;
    if (count < left)
        return;
    S.append(QLatin1StringView("\r\n"));
    FParserColumn = 0;
}

void TZtCodeEdit::ParserSkipTo(const QString &AText)
{
    const TZtBufferSearch search(AText, TZtSearchFlag::sfDown | TZtSearchFlag::sfMatchCase);
    const int count = FLines->GetCount();
    if (FParserColumn > 0 && FParserLineNr <= count) { // in the middle of a line
        const qsizetype at = search.Find(FLines->View(FParserLineNr - 1), FParserColumn);
        FParserColumn = int(std::max<qsizetype>(at, 0));
        if (at >= 0)
            return;
    }
    while (FParserLineNr < count && search.Find(FLines->View(FParserLineNr), 0) < 0)
        ++FParserLineNr;
}

void TZtCodeEdit::DarkenColor(TColor &Color, bool Apply, int Percent) const
{
    if (!Apply)
        return;
    const bool system = (Color >> 24) == 0xFF;
    const TColor rgb = system ? ZtColorToRGB(Color, palette()) : Color;
    Color = 0;
    for (int shift = 0; shift < 32; shift += 8)
        Color |= (((rgb >> shift) & 0xFF) * quint32(100 - Percent) / 100) << shift;
}

void TZtCodeEdit::Invalidate()
{
    if (!FHScrollBar || !FVScrollBar)
        return; // under construction
    TellWatcher();
    if (FHighlighter && !FRedraws)
        FHighlighter->ForgetColours(); // a host's tables may be others now
    if (FSearch->PutsPaintOff())
        return;
    update(ClientArea().adjusted(0, 0, -BarsWidth(), -FHScrollBar->height()));
}

// What the editor itself asks for: the colours are what they were.
void TZtCodeEdit::Redraw()
{
    const QScopedValueRollback own(FRedraws, true);
    Invalidate();
}

void TZtCodeEdit::Paint()
{
    if (InPaint)
        return;
    const QScopedValueRollback inPaint(InPaint, true);
    FSearch->Painted();
    if (BeginFrame()) {
        if (IsCorrected(TZtCorrection::zcPicture))
            ComposeText();
        else
            ComposeLines();
        FFrame->Finish();
    }
    CopyFrame();
    PaintCorners();
    PaintFlatBorder();
    UpdatePageSizes();
}

bool TZtCodeEdit::BeginFrame()
{
    FFrame->TextPainter().SetFont(font());
    SetCharWidth(FFrame->TextPainter().CharWidth());
    SetLineWidth(FFrame->TextPainter().LineHeight());

    using enum TZtViewColor;
    const auto color = [this](TColor c) { return ZtToQColor(c, palette()).rgb(); };
    const TColor back = Shaded(GetViewColor(vcBackground), GetReadOnly());
    const bool own = !FScheme || FRightMarginColor != clBtnFace; // the margin's colour
    const int g = RealGuttorWidth();
    const bool columns = HasColumns();
    const int margin = (FRightMargin - FHScrollBar->GetPosition()) * FCharWidth + ZtTextLeft;
    const bool marginShown = GetShowRightMargin() && margin > 0 && margin < GetClientWidth() - g;
    FExtras->Guttor().Arrange(GuttorSight());
    FFrame->Begin({ClientArea().size(), devicePixelRatioF(), font(), g,
                   marginShown ? g + margin : -1, color(back),
                   own ? color(FRightMarginColor) : GetViewRgb(vcRightMargin), GetViewRgb(vcGuttor),
                   FScheme || columns ? GetViewRgb(vcGuttor) : color(clBtnHighlight),
                   FScheme || columns ? GetViewRgb(vcGuttorEdge) : color(clBtnShadow),
                   IsCorrected(TZtCorrection::zcPicture),
                   columns ? FExtras->GetGuttorLook() : TZtGuttorLook()},
                  columns ? &FExtras->Guttor() : nullptr);
    return FCharWidth > 0 && FLineWidth > 0;
}

void TZtCodeEdit::PrepareParser()
{
    const int first = FVScrollBar->GetPosition();
    TZtLangParser *parser = GetParser();
    parser->ResetBuffer();
    parser->SetRemarkEnd(QString());
    parser->SetEndLines(true);
    parser->SetLineKind(FLines->GetObjects(first));
    SetParserLineNr(first);
    FeedParser();
}

// The lexer reads the editor's text, also when a host uses it between two paints.
void TZtCodeEdit::FeedParser()
{
    TZtLangParser *parser = GetParser();
    // A host's parser may outlive the editor; it reads the end of the input then.
    parser->OnGetNewBuffer = [editor = QPointer(this)](bool reset, QString &s) {
        return editor && editor->ParserGetNewBuffer(reset, s);
    };
    parser->OnSkipTo = [editor = QPointer(this)](const QString &text) {
        if (editor)
            editor->ParserSkipTo(text);
    };
}

TZtCodeEdit::TPaintPass::TPaintPass(TZtCodeEdit &AEdit) : Edit(AEdit)
{
    const bool reversed = ZtIsBefore(Edit.FSelEnd, Edit.FSelStart);
    Begin = reversed ? Edit.FSelEnd : Edit.FSelStart;
    End = reversed ? Edit.FSelStart : Edit.FSelEnd;
    Guttor = Edit.RealGuttorWidth();
    Blank = Edit.GetViewRgb(TZtViewColor::vcBlank);
    Left = Guttor - Edit.FHScrollBar->GetPosition() * Edit.FCharWidth + ZtTextLeft;
    Right = Edit.GetClientWidth();
    X = Left;
    for (quint32 i = 0; i < SystemColours.size(); ++i)
        SystemColours[i] = ZtToQColor(ZtSystemColor(i), Edit.palette()).rgb();
    if (!Edit.FScheme)
        return;
    const auto set = [&](TColor system, TZtViewColor part) {
        SystemColours[system & 0xFF] = Edit.GetViewRgb(part);
    };
    set(clWindow, TZtViewColor::vcBackground);
    set(clWindowText, TZtViewColor::vcText);
    set(clHighlight, TZtViewColor::vcSelection);
    set(clHighlightText, TZtViewColor::vcSelectionText);
}

// A background as it is in a read-only text.
TColor TZtCodeEdit::Shaded(TColor AColor, bool AReadOnly) const
{
    TColor color = AColor;
    if (!FScheme)
        DarkenColor(color, AReadOnly, ReadOnlyDarker);
    else if (GetReadOnly() &&
             (AColor == clWindow || AColor == FScheme->GetColor(TZtViewColor::vcBackground)))
        color = FScheme->GetColor(TZtViewColor::vcReadOnly);
    return color;
}

void TZtCodeEdit::ComposeLines()
{
    if (FVScrollBar->GetPosition() >= FLines->GetCount())
        return;
    PrepareParser();
    const TZtLangParser *parser = FParser;
    const TZtNotifier::THold lexing(*parser);
    const THold hold(*this);
    TPaintPass pass(*this);
    // A handler may exchange the lexer; the paint that this asks for shows the whole text.
    while (pass.Row * FLineWidth < GetHeight() && parser == GetParser()) {
        if (!FParser->GetNextToken(pass.Token, pass.Back, pass.Fore, pass.Style, pass.LineBreak))
            break;
        if (pass.LastLine != FParserLineNr)
            pass.StartLine();
        pass.Back = Shaded(pass.Back, FReadOnly);
        if (ParserLineCollapse)
            FFrame->AddButton(pass.Row, !ParserLineCollapsed);
        // A lexer may hand over the LF behind a CR. It belongs to no line and takes no column.
        const bool lineFeed = pass.AfterBreak && pass.Token == QLatin1StringView("\n");
        pass.AfterBreak = pass.LineBreak;
        if (pass.LineBreak) {
            ++pass.Row;
            pass.X = pass.Left;
            pass.Col = 0;
        } else if (pass.X >= pass.Right) {
            if (pass.NothingMoreToSee())
                break;
        } else if (!lineFeed) {
            pass.AddToken();
        }
    }
}

// Asked right of the picture: whether a very long line has more pieces and no line below it is in
// sight. The lexer is spared megabytes then. In all other cases it reads on, for the state at the
// next line's start.
bool TZtCodeEdit::TPaintPass::NothingMoreToSee() const
{
    return Edit.FParserColumn > 0 && (Edit.FParserLineNr == Edit.FLines->GetCount() ||
                                      (Row + 1) * Edit.FLineWidth >= Edit.GetHeight());
}

void TZtCodeEdit::TPaintPass::StartLine()
{
    LineColoured = false;
    if (Edit.FOnParserLineChange) {
        TColor back = Back;
        TColor fore = Fore;
        if (Edit.Fire(Edit.FOnParserLineChange, Edit.FParserLineNr, back, fore)) {
            LineColoured = true;
            LineBack = back;
            LineFore = fore;
            Edit.FFrame->ColourRow(Row, X, Rgb(back));
        }
    }
    LastLine = Edit.FParserLineNr;
}

void TZtCodeEdit::TPaintPass::AddPiece(QStringView S, TColor AFore, TColor ABack)
{
    const TColor fore = LineColoured ? LineFore : AFore;
    const TColor back = LineColoured ? LineBack : ABack;
    X += Edit.FFrame->AddText(Row, X, S, Rgb(fore), Rgb(back), Style);
}

void TZtCodeEdit::TPaintPass::AddToken()
{
    QStringView token = Token;
    int length = int(token.size());
    const int n = Edit.FParserLineNr - 1;
    const bool starts = n == Begin.y();
    const bool ends = n == End.y();
    const bool touches = Begin.y() <= n && n <= End.y() && !(starts && Begin.x() >= Col + length) &&
                         !(ends && Col >= End.x());
    if (touches) {
        if (starts && Col < Begin.x()) {
            const int head = Begin.x() - Col;
            AddPiece(token.first(head), Fore, Back);
            token = token.sliced(head);
            Col += head;
            length -= head;
        }
        QStringView tail;
        if (ends && End.x() < Col + length) {
            const int kept = End.x() - Col;
            tail = token.sliced(kept);
            token = token.first(kept);
            Col += kept;
            length = kept;
        }
        AddPiece(token, clHighlightText, clHighlight);
        if (tail.isEmpty()) {
            Col += length;
            return;
        }
        token = tail;
        length = int(tail.size());
    }
    AddPiece(token, Fore, Back);
    Col += length;
}

// Where the picture is seen: without the bars and the seams beside them.
QRect TZtCodeEdit::PictureArea() const
{
    return {0, 0, GetClientWidth() - BarsWidth() - 1,
            GetClientHeight() - FHScrollBar->height() - 1};
}

void TZtCodeEdit::CopyFrame()
{
    if (Canvas())
        FFrame->CopyTo(*Canvas(), PictureArea());
}

void TZtCodeEdit::PaintCorners()
{
    if (!Canvas())
        return;
    const QColor face(GetViewRgb(TZtViewColor::vcGuttor));
    const int width = GetClientWidth();
    const int height = GetClientHeight();
    const int barWidth = BarsWidth();
    const int top = height - FHScrollBar->height() - 1;
    // The boxes beside the bars, and in one go what the picture leaves open between them: the
    // seams, and the bars' places, which are seen where a bar is hidden.
    Canvas()->fillRect(QRect(0, top, width, height - top), face);
    Canvas()->fillRect(QRect(width - barWidth - 1, 0, barWidth + 1, top), face);
}

void TZtCodeEdit::PaintFlatBorder()
{
    if (!Canvas() || FBorderStyle != TBorderStyle::bsSingle || GetCtl3D())
        return;
    QRect frame(0, 0, GetClientWidth(), GetClientHeight());
    if (FVScrollBar->isVisibleTo(this))
        frame.setWidth(frame.width() - BarsWidth());
    if (FHScrollBar->isVisibleTo(this))
        frame.setHeight(frame.height() - FHScrollBar->height());
    Canvas()->setPen(ZtToQColor(clBlack, palette()));
    Canvas()->drawRect(frame.adjusted(0, 0, -1, -1));
}

void TZtCodeEdit::UpdatePageSizes()
{
    if (FCharWidth < 1 || FLineWidth < 1)
        return;
    const int lines = int((GetClientHeight() - FHScrollBar->height() - RowPitch()) / RowPitch());
    if (FVScrollBar->GetPageSize() != lines)
        FVScrollBar->SetPageSize(lines);
    const int columns = (GetClientWidth() - BarsWidth() - RealGuttorWidth()) / FCharWidth - 1;
    if (FHScrollBar->GetPageSize() != columns)
        FHScrollBar->SetPageSize(columns);
    if (IsCorrected(TZtCorrection::zcScroll))
        SetRanges(columns, lines);
}

void TZtCodeEdit::paintEvent(QPaintEvent *AEvent)
{
    // The caret's blinking asks for its own rectangle alone: the picture below it is there, unless
    // the border or a seam crosses it.
    const QPoint origin = ClientArea().topLeft();
    const QRect asked = AEvent->region().boundingRect().translated(-origin);
    const int border = FBorderStyle == TBorderStyle::bsSingle && !GetCtl3D() ? 1 : 0;
    const bool caretOnly = FCaret->Covers(asked) && FFrame->IsComplete() &&
                           PictureArea().adjusted(border, border, 0, 0).contains(asked);
    if (!caretOnly)
        TCustomControl::paintEvent(AEvent);
    QPainter painter(this);
    painter.translate(origin);
    if (caretOnly)
        FFrame->CopyTo(painter, asked);
    PaintComposition(painter);
    FCaret->Draw(painter);
    if (FTextDrag)
        DrawDropMark(painter);
}

// Without zcComposition over the picture, beside the caret.
void TZtCodeEdit::PaintComposition(QPainter &APainter) const
{
    if (FComposition->IsEmpty() || IsCorrected(TZtCorrection::zcComposition) ||
        FCaret->Rect().isEmpty())
        return;
    QFont underlined = font();
    underlined.setUnderline(true);
    const QFontMetrics metrics(underlined);
    const QRect box(FCaret->Rect().topLeft(),
                    QSize(metrics.horizontalAdvance(FComposition->GetText()), FLineWidth));
    APainter.fillRect(box, QColor(GetViewRgb(TZtViewColor::vcBackground)));
    APainter.setPen(QColor(GetViewRgb(TZtViewColor::vcText)));
    APainter.setFont(underlined);
    APainter.drawText(box, Qt::AlignLeft | Qt::AlignVCenter, FComposition->GetText());
}

std::vector<TZtPaintRow> TZtCodeEdit::PaintedRows() const { return FFrame->Rows(); }
