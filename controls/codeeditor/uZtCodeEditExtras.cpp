#include "uZtCodeEditOperate.h"
#include "uZtCodeEditPass.h"

#include "uZtCaret.h"
#include "uZtEditExtras.h"
#include "uZtEditedText.h"
#include "uZtHighlighter.h"
#include "uZtStructureParts.h"
#include "uZtSystemColors.h"

#include <QHelpEvent>
#include <QNativeGestureEvent>
#include <QTextDocument>
#include <QToolTip>
#include <QWheelEvent>

#include <cmath>

using enum TZtExtra;
using enum TZtViewColor;

namespace {

constexpr int WheelNotch = 120; // in eighths of a degree
constexpr int LeastZoom = 20;   // per cent
constexpr int MostZoom = 500;
constexpr double ZoomStep = 1.1;
constexpr int BracketPatience = 5000; // milliseconds that a jump to a far bracket may take

} // namespace

void TZtCodeEdit::SetExtras(TZtExtras Value)
{
    if (Value & ZtDrawnExtras())
        SetCorrections(FCorrections | TZtCorrection::zcPicture);
    FShownExtras = Value;
    WatchText();
    FExtras->Show(Value);
    ShowInput();
    PointAt(RealGuttorWidth());
    ExtrasChanged();
    StateChanged();
}

// Changes are known from now on.
void TZtCodeEdit::WatchText()
{
    if (FShownExtras & (zeMarks | zeChangeBars | zeDiagnostics))
        GetTextMarks();
}

void TZtCodeEdit::ExtrasChanged()
{
    TrackMouse();
    PositionScollBars();
    ResetCaret();
    Redraw();
}

void TZtCodeEdit::OverviewChanged() { FExtras->UpdateRuler(); }

TZtGuttor *TZtCodeEdit::GetGuttor() const { return &FExtras->Guttor(); }

TZtMarkColumn *TZtCodeEdit::GetMarkColumn() const { return &FExtras->MarkColumn(); }

bool TZtCodeEdit::HasTextMarks() const { return FText->Marks != nullptr; }

TZtTextMarks &TZtCodeEdit::GetTextMarks()
{
    if (FText->Marks)
        return *FText->Marks;
    FText->Marks = std::make_unique<TZtTextMarks>(FLines);
    const auto tell = [text = FText.get()] {
        ForEach(*text, [](TZtCodeEdit &edit) {
            edit.OverviewChanged();
            edit.Redraw();
        });
    };
    FText->Marks->Decorations.OnChange = tell;
    FText->Marks->Diagnostics.OnChange = tell;
    FText->Marks->Marks.OnChange = tell;
    FText->Marks->Changes.OnChange = tell;
    return *FText->Marks;
}

// --- layout --------------------------------------------------------------------------------------

TZtGuttorSight TZtCodeEdit::GuttorSight() const
{
    return {qMax(FLines->GetCount(), 1), FLinePos, FCharWidth, FLineWidth};
}

int TZtCodeEdit::RealGuttorWidth() const
{
    if (!GetShowGuttor())
        return 0;
    return HasColumns() ? FExtras->Guttor().GetWidth(GuttorSight()) : FGuttorWidth;
}

// Whether the gutter is more than the empty strip.
bool TZtCodeEdit::HasColumns() const
{
    return IsCorrected(TZtCorrection::zcPicture) && FExtras->Guttor().HasColumns();
}

// What stands right of the text.
int TZtCodeEdit::BarsWidth() const
{
    return FVScrollBar->width() + (FExtras->Ruler() ? TZtOverviewRuler::Width : 0);
}

// The height of a row in pixels.
qreal TZtCodeEdit::RowPitch() const
{
    return IsCorrected(TZtCorrection::zcPicture) ? ZtRowPitch(FLineWidth, devicePixelRatioF())
                                                 : FLineWidth;
}

void TZtCodeEdit::GoToLine(int ALine)
{
    Operate([&] { JumpTo({0, ALine}); });
}

// Puts the caret to a place, in the middle of the view unless it was in sight already.
void TZtCodeEdit::JumpTo(const QPoint &APlace)
{
    const int first = FVScrollBar->GetPosition();
    const int page = FVScrollBar->GetPageSize();
    MoveTo(APlace);
    if (FLinePos < first || FLinePos >= first + page)
        FVScrollBar->SetPosition(qMax(FLinePos - page / 2, 0));
    SetSelection(true);
}

// What depends on the caret's place.
void TZtCodeEdit::CaretSeen()
{
    FExtras->CaretMoved();
    if (FExtras->FollowsCaret())
        Redraw();
}

// --- colours -------------------------------------------------------------------------------------

const std::shared_ptr<const TZtColorScheme> &TZtCodeEdit::GetScheme() const
{
    static const auto classic = TZtColorScheme::Classic();
    return FScheme ? FScheme : classic;
}

void TZtCodeEdit::SetScheme(const std::shared_ptr<const TZtColorScheme> &Value)
{
    FScheme = Value && Value->HasStyles() ? Value : nullptr;
    GetParser()->SetScheme(FScheme);
    ColourParser();
    for (TScrollBar *bar : {FHScrollBar, FVScrollBar})
        bar->setPalette(FScheme ? QPalette(QColor(GetViewRgb(vcGuttor))) : QPalette());
    FCaret->SetColour(FScheme ? QColor(GetViewRgb(vcCaret)) : QColor());
    FExtras->TakeColours();
    Redraw();
    update(); // the corners too
    StateChanged();
}

void TZtCodeEdit::ColourParser()
{
    if (FScheme)
        GetParser()->SetScheme(FScheme);
    if (!FHighlighter)
        return;
    FHighlighter->SetParser(GetParser()); // who types before the next paint asks for colours too
    FHighlighter->SetPlain(FScheme ? GetViewColor(vcText) : clWindowText,
                           FScheme ? GetViewColor(vcBackground) : clWindow);
    FHighlighter->ForgetColours();
}

TColor TZtCodeEdit::GetViewColor(TZtViewColor APart) const { return GetScheme()->GetColor(APart); }

QRgb TZtCodeEdit::GetViewRgb(TZtViewColor APart) const
{
    return ZtToQColor(GetViewColor(APart), palette()).rgb();
}

// --- the gutter's mouse --------------------------------------------------------------------------

// Selects whole lines, the caret at the end of those that it was dragged to.
void TZtCodeEdit::SelectLines(int AFrom, int ATo)
{
    const int last = FLines->GetCount() - 1;
    if (last < 0)
        return;
    const auto behind = [&](int line) {
        return line < last ? QPoint(0, line + 1) : QPoint(FLines->GetLength(last), last);
    };
    const bool down = AFrom <= ATo;
    MoveTo(down ? behind(ATo) : QPoint(0, ATo));
    SetSelEnd(down ? QPoint(0, AFrom) : behind(AFrom));
    SetSelStart({FCharPos, FLinePos});
}

// For the pointer, where the host has not asked for it anyway.
void TZtCodeEdit::TrackMouse()
{
    if (HasColumns() && !hasMouseTracking())
        FTracksMouse = true;
    if (FTracksMouse)
        setMouseTracking(HasColumns());
    FTracksMouse &= HasColumns();
}

// The gutter has a pointer of its own.
void TZtCodeEdit::PointAt(int X)
{
    const bool over = HasColumns() && X < RealGuttorWidth();
    if (over == std::exchange(FOverGuttor, over))
        return;
    if (over)
        FTextCursor = cursor();
    setCursor(over ? QCursor(Qt::ArrowCursor) : FTextCursor);
}

// Answers whether the press was in a column of the gutter, and is done with.
bool TZtCodeEdit::PressGuttor(TMouseButton Button, int X, int Y)
{
    if (X >= RealGuttorWidth() || !HasColumns())
        return false;
    const TZtGuttor &guttor = FExtras->Guttor();
    const int line = FVScrollBar->GetPosition() + int(std::floor(Y / RowPitch()));
    if (line < 0 || line >= qMax(FLines->GetCount(), 1))
        return Button == TMouseButton::mbLeft;
    const int at = guttor.ColumnAt(X, GuttorSight());
    // The handler may take itself away, and columns, and lines.
    const TZtGuttorColumn *column = at < 0 ? nullptr : guttor.GetColumn(at);
    const bool marks = column == GetMarkColumn() && !FOnGuttorClick;
    const bool numbers = dynamic_cast<const TZtNumberColumn *>(column) != nullptr;
    Fire(FOnGuttorClick, line, at, Button);
    if (IsAbandoned())
        return true;
    if (Button != TMouseButton::mbLeft)
        return false;
    if (marks)
        GetTextMarks().Marks.Toggle(line, TZtLineMark::lmBookmark);
    if (!numbers || line >= FLines->GetCount())
        return true;
    FGuttorDrag = line;
    SelectLines(line, line);
    return true;
}

// Answers whether there is something to be told of what the mouse rests on.
bool TZtCodeEdit::ShowToolTip(const QHelpEvent &AEvent)
{
    if (!IsCorrected(TZtCorrection::zcPicture))
        return false;
    const QPoint at = AEvent.pos() - ClientArea().topLeft();
    const int g = RealGuttorWidth();
    const int line = FVScrollBar->GetPosition() + int(std::floor(at.y() / RowPitch()));
    if (line >= FLines->GetCount())
        return false;
    QString text;
    if (at.x() >= g) {
        const QPoint place = PlaceAt(at.x() - g - ZtTextLeft, at.y());
        text = FExtras->GetToolTip(place);
    } else if (const int column = FExtras->Guttor().ColumnAt(at.x(), GuttorSight()); column >= 0) {
        text = FExtras->Guttor().GetColumn(column)->GetToolTip(line);
    }
    if (text.isEmpty()) {
        QToolTip::hideText(); // what is told of another place
        return false;
    }
    QToolTip::showText(AEvent.globalPos(), Qt::convertFromPlainText(text), this);
    return true;
}

// --- zoom and wheel ------------------------------------------------------------------------------

void TZtCodeEdit::SetZoom(int Value)
{
    const int zoom = qBound(LeastZoom, Value, MostZoom);
    if (zoom == FZoom)
        return;
    if (FZoom == 100)
        FUnzoomed = font();
    QFont zoomed = FUnzoomed;
    if (zoomed.pixelSize() > 0)
        zoomed.setPixelSize(qMax(FUnzoomed.pixelSize() * zoom / 100, 1));
    else
        zoomed.setPointSizeF(FUnzoomed.pointSizeF() * zoom / 100);
    Watched([&] {
        FZoom = 100; // whatever this tells
        setFont(zoomed);
        FZoom = zoom;
        MeasureFont();
    });
}

// Before the next paint does: the caret and the bars stand right at once.
void TZtCodeEdit::MeasureFont()
{
    FMetrics.SetFont(font());
    SetCharWidth(FMetrics.CharWidth());
    SetLineWidth(FMetrics.LineHeight());
    ResetCaret();
    Redraw();
}

// The wheel with Ctrl, or two fingers.
bool TZtCodeEdit::ZoomWith(QEvent *AEvent)
{
    double factor = 1;
    if (AEvent->type() == QEvent::Wheel)
        factor = std::pow(ZoomStep, static_cast<QWheelEvent *>(AEvent)->angleDelta().y() /
                                        double(WheelNotch));
    else if (const auto *gesture = static_cast<QNativeGestureEvent *>(AEvent);
             gesture->gestureType() == Qt::ZoomNativeGesture)
        factor = 1 + gesture->value();
    else
        return false;
    // Small steps add up.
    const double exact = qBound<double>(LeastZoom, FZoom * FPinch * factor, MostZoom);
    const int zoom = qRound(exact);
    FPinch = exact / zoom;
    SetZoom(zoom);
    return true;
}

// What a touchpad reports is worth as many pixels; what is less than a line or a column is kept for
// the next one.
void TZtCodeEdit::ScrollFinely(const QWheelEvent &AEvent)
{
    const double line = qMax(RowPitch(), 1.0);
    const double column = qMax(FCharWidth, 1);
    QPointF pixels = AEvent.pixelDelta();
    if (pixels.isNull())
        pixels = QPointF(AEvent.angleDelta()) / WheelNotch * (FScollLines * line);
    const bool aside = AEvent.modifiers().testFlag(Qt::ShiftModifier) && pixels.x() == 0;
    if (aside)
        pixels = pixels.transposed();
    const auto take = [](double &rest, double delta, double step) {
        if ((rest > 0) != (delta > 0))
            rest = 0;
        rest += delta;
        const int steps = int(rest / step);
        rest -= steps * step;
        return steps;
    };
    const int lines = pixels.y() == 0 ? 0 : take(FWheelRests.ry(), pixels.y(), line);
    const int columns = pixels.x() == 0 ? 0 : take(FWheelRests.rx(), pixels.x(), column);
    Guarded([&] {
        if (lines != 0)
            FVScrollBar->SetPosition(FVScrollBar->GetPosition() - lines);
        if (columns != 0)
            FHScrollBar->SetPosition(FHScrollBar->GetPosition() - columns);
    });
}

// --- commands ------------------------------------------------------------------------------------

void TZtCodeEdit::MarkMatches(const QString &AText, TZtSearchFlags AFlags)
{
    const auto part = FExtras->Find<TZtMatchesPart>(zeMatchMarks);
    if (!part || !part->SetSearch(AText, AFlags))
        return;
    OverviewChanged();
    Redraw();
}

qint64 TZtCodeEdit::GetMatchCount() const
{
    const auto part = FExtras->Find<TZtMatchesPart>(zeMatchMarks);
    return part && part->GetMarks().IsComplete() ? part->GetMarks().GetCount() : -1;
}

void TZtCodeEdit::WMExtra(TZtMessage &Message)
{
    RunExtra(TZtExtraCommand(qMin<quint64>(Message.WParam, 0xFF)));
}

bool TZtCodeEdit::RunExtra(TZtExtraCommand ACommand)
{
    using enum TZtExtraCommand;
    switch (ACommand) {
    case ecToggleBookmark:
        GetTextMarks().Marks.Toggle(qMin(FLinePos, qMax(FLines->GetCount() - 1, 0)),
                                    TZtLineMark::lmBookmark);
        return true;
    case ecNextBookmark:
    case ecPreviousBookmark:
        return GoToBookmark(ACommand == ecNextBookmark);
    case ecNextDiagnostic:
    case ecPreviousDiagnostic:
        return GoToDiagnostic(ACommand == ecNextDiagnostic);
    case ecGoToBracket:
    case ecSelectToBracket:
        return GoToBracket(ACommand == ecSelectToBracket);
    case ecZoomIn:
        SetZoom(qMax(FZoom + 1, qRound(FZoom * ZoomStep)));
        return true;
    case ecZoomOut:
        SetZoom(qMin(FZoom - 1, qRound(FZoom / ZoomStep)));
        return true;
    case ecZoomReset:
        SetZoom(100);
        return true;
    case ecContextMenu:
        return PopupMenuAtCaret();
    }
    return false;
}

bool TZtCodeEdit::GoToBookmark(bool AForward)
{
    const int line = HasTextMarks()
                         ? GetTextMarks().Marks.Next(FLinePos, TZtLineMark::lmBookmark, AForward)
                         : -1;
    if (line >= 0)
        GoToLine(line);
    return line >= 0;
}

bool TZtCodeEdit::GoToDiagnostic(bool AForward)
{
    const auto diagnostic = HasTextMarks()
                                ? GetTextMarks().Diagnostics.Next({FCharPos, FLinePos}, AForward)
                                : std::nullopt;
    if (!diagnostic)
        return false;
    Operate([&] { JumpTo(diagnostic->From); });
    return true;
}

// On the same side of the pair as it stands of the bracket.
bool TZtCodeEdit::GoToBracket(bool ASelect)
{
    const auto part = FExtras->Find<TZtBracketsPart>(zeBrackets);
    const auto highlighter = FHighlighter; // a handler of the lexer may exchange it
    const auto brackets = part ? part->Find() : nullptr;
    if (!brackets || !highlighter)
        return false;
    QElapsedTimer time;
    time.start();
    while (brackets->GetState() == TZtBracketState::bsSearching &&
           time.elapsed() < BracketPatience) {
        highlighter->Advance(20);
        brackets->Advance(20);
    }
    if (brackets->GetState() != TZtBracketState::bsFound)
        return false;
    const QPoint from = brackets->GetBracket(), to = brackets->GetPair();
    Operate([&] {
        if (!ASelect)
            return JumpTo(to + QPoint(FCharPos - from.x(), 0));
        const bool down = ZtIsBefore(from, to);
        JumpTo(to + QPoint(down ? 1 : 0, 0));
        SetSelEnd(from + QPoint(down ? 0 : 1, 0));
        SetSelStart({FCharPos, FLinePos});
    });
    return true;
}

// --- pairs ---------------------------------------------------------------------------------------

// What stands around a place; code where nothing is known.
TZtElementKind TZtCodeEdit::KindAt(const QPoint &APlace) const
{
    const auto highlighter = FHighlighter; // a handler of the lexer may exchange it
    if (!highlighter || APlace.y() >= FLines->GetCount())
        return TZtElementKind::ekCode;
    bool exact = false;
    const auto runs = highlighter->Peek(APlace.y(), APlace.y(), APlace.x() + 2, exact);
    if (runs.empty() || APlace.y() >= FLines->GetCount())
        return TZtElementKind::ekCode;
    return ZtKindAround(runs.front(), FLines->View(APlace.y()), APlace.x());
}

// Answers whether a character was typed in the way of pairs.
bool TZtCodeEdit::TypePaired(const QString &S)
{
    const auto pairs = FExtras->Pairs();
    if (!pairs || GetReadOnly() || S.size() != 1 || !TZtTypedPairs::MayPair(S.front()))
        return false;
    const bool selected = SelectionGiven();
    const QPoint caret =
        selected ? (SelectionReversed() ? FSelEnd : FSelStart) : QPoint(FCharPos, FLinePos);
    const TZtElementKind kind = KindAt(caret);
    const TZtPairEdit edit =
        pairs->OnCharacter(S.front(), caret, selected, kind, GetParser()->GetLanguage());
    switch (edit.Action) {
    case TZtPairAction::paNone:
        return false;
    case TZtPairAction::paTypeOver:
        SetCharPos(FCharPos + 1);
        break;
    case TZtPairAction::paInsert:
        AddTxt(S + edit.Closing);
        SetCharPos(FCharPos - 1);
        if (pairs == FExtras->Pairs()) // no handler has brought another text
            pairs->Inserted({FCharPos, FLinePos});
        break;
    case TZtPairAction::paSurround:
        Surround(S, edit.Closing);
        return true;
    }
    SetSelection(true);
    return true;
}

// The selected text stays selected between the two.
void TZtCodeEdit::Surround(const QString &AOpening, QChar AClosing)
{
    const QPoint start = SelectionReversed() ? FSelEnd : FSelStart;
    QString text;
    GetSelected(text);
    Erase(TZtChangeType::ctDelete, nullptr);
    InsertText(TZtChangeType::ctInsert, AOpening + text + AClosing);
    SetCharPos(FCharPos - 1);
    SetSelStart({FCharPos, FLinePos});
    SetSelEnd(start + QPoint(1, 0));
}

// Answers whether the caret stood in an empty pair, which is gone. Two quotes are a string of their
// own.
bool TZtCodeEdit::EraseEmptyPair()
{
    const auto pairs = FExtras->Pairs();
    const QPoint caret(FCharPos, FLinePos);
    if (!pairs || GetReadOnly() || SelectionGiven() ||
        !pairs->OnBackspace(caret, GetParser()->GetLanguage()))
        return false;
    QString opening;
    FLines->AppendTo(FLinePos, FCharPos - 1, 1, opening);
    const bool bracket = QStringLiteral("([{").contains(opening);
    const TZtElementKind kind = KindAt(caret);
    if (kind == TZtElementKind::ekRemark || (kind == TZtElementKind::ekText && bracket))
        return false;
    FSelStart = caret - QPoint(1, 0);
    FSelEnd = caret + QPoint(1, 0);
    Erase(TZtChangeType::ctDelete, nullptr);
    return true;
}
