#include "uZtCodeEditOperate.h"
#include "uZtCodeEditPass.h"

#include "uZtCaret.h"
#include "uZtEditExtras.h"
#include "uZtEditSearch.h"
#include "uZtEditedText.h"
#include "uZtGuttorMouse.h"
#include "uZtHighlighter.h"
#include "uZtStructureParts.h"
#include "uZtSystemColors.h"

#include <QElapsedTimer>
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

// What knows the editor that has it.
void TZtCodeEdit::MakeParts()
{
    FSearch = std::make_shared<TZtEditSearch>(*this);
    FGuttorMouse = std::make_shared<TZtGuttorMouse>(*this);
}

void TZtCodeEdit::SetExtras(TZtExtras Value)
{
    if (Value & ZtDrawnExtras())
        SetCorrections(FCorrections | TZtCorrection::zcPicture);
    FShownExtras = Value;
    WatchText();
    FExtras->Show(Value);
    ShowInput();
    FGuttorMouse->PointAt(RealGuttorWidth());
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
    FGuttorMouse->Track();
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

// Commands that lead somewhere; false where there is nothing.
struct TZtCodeEdit::TExtraAction {
    static bool GoToBookmark(TZtCodeEdit &AEdit, bool AForward);
    static bool GoToDiagnostic(TZtCodeEdit &AEdit, bool AForward);
    static bool GoToBracket(TZtCodeEdit &AEdit, bool ASelect);
};

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
        return TExtraAction::GoToBookmark(*this, ACommand == ecNextBookmark);
    case ecNextDiagnostic:
    case ecPreviousDiagnostic:
        return TExtraAction::GoToDiagnostic(*this, ACommand == ecNextDiagnostic);
    case ecGoToBracket:
    case ecSelectToBracket:
        return TExtraAction::GoToBracket(*this, ACommand == ecSelectToBracket);
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

bool TZtCodeEdit::TExtraAction::GoToBookmark(TZtCodeEdit &AEdit, bool AForward)
{
    const int line =
        AEdit.HasTextMarks()
            ? AEdit.GetTextMarks().Marks.Next(AEdit.FLinePos, TZtLineMark::lmBookmark, AForward)
            : -1;
    if (line >= 0)
        AEdit.GoToLine(line);
    return line >= 0;
}

bool TZtCodeEdit::TExtraAction::GoToDiagnostic(TZtCodeEdit &AEdit, bool AForward)
{
    const auto diagnostic =
        AEdit.HasTextMarks()
            ? AEdit.GetTextMarks().Diagnostics.Next({AEdit.FCharPos, AEdit.FLinePos}, AForward)
            : std::nullopt;
    if (!diagnostic)
        return false;
    AEdit.Operate([&] { AEdit.JumpTo(diagnostic->From); });
    return true;
}

// On the same side of the pair as it stands of the bracket.
bool TZtCodeEdit::TExtraAction::GoToBracket(TZtCodeEdit &AEdit, bool ASelect)
{
    const auto part = AEdit.FExtras->Find<TZtBracketsPart>(zeBrackets);
    const auto highlighter = AEdit.FHighlighter; // a handler of the lexer may exchange it
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
    AEdit.Operate([&] {
        if (!ASelect)
            return AEdit.JumpTo(to + QPoint(AEdit.FCharPos - from.x(), 0));
        const bool down = ZtIsBefore(from, to);
        AEdit.JumpTo(to + QPoint(down ? 1 : 0, 0));
        AEdit.SetSelEnd(from + QPoint(down ? 0 : 1, 0));
        AEdit.SetSelStart({AEdit.FCharPos, AEdit.FLinePos});
    });
    return true;
}
