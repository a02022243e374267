#include "uZtCodeEdit.h"

#include "fZtCodeEditSearchReplaceDlg.h"
#include "uZtClassRegistry.h"
#include "uZtPlatform.h"

#include <QFont>
#include <QScopeGuard>

namespace {

const bool Registered = ZtRegisterClass<TZtCodeEdit>();

constexpr int Columns = 500;            // the horizontal range, whatever the lines' lengths
constexpr int ReplacingPaintPause = 30; // milliseconds between two pictures of a replace-all
constexpr int LinesPastEnd = 100;       // how far the text can be scrolled past its end

// A bar is placed again at every change of the text; Qt looks long at a place that stays the same.
void Place(TScrollBar *ABar, const QRect &APlace)
{
    if (ABar->geometry() != APlace)
        ABar->setGeometry(APlace);
}

QFont DefaultFont()
{
    QFont font(QStringLiteral("Courier new"), 10);
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    return font;
}

} // namespace

TZtCodeEdit::TZtCodeEdit(QWidget *AOwner) : TCustomControl(AOwner)
{
    resize(100, 100);
    FScollLines = ZtPlatform().WheelLines();
    if (FScollLines < 1)
        FScollLines = 3;
    FOptions.setFlag(TZtCodeOption::coShowRightMargin);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    setCursor(Qt::IBeamCursor);
    FCaret = new TZtCaret(this);
    FLines = new TStringList(this);
    FLines->OnChanging = [this](QObject *sender) {
        const THold hold(*this);
        LinesChanged(sender);
    };
    FOptions.setFlag(TZtCodeOption::coShowGuttor);
    setFont(DefaultFont());
    for (TScrollBar **bar : {&FHScrollBar, &FVScrollBar}) {
        *bar = new TScrollBar(this);
        (*bar)->setCursor(Qt::ArrowCursor);
        (*bar)->OnChange = [this](QObject *sender) { ScrollChange(sender); };
    }
    FLines->OnChange = [this](QObject *sender) {
        const THold hold(*this);
        CodeChange(sender);
    };
    FSelStart = FSelEnd = QPoint(-1, -1);
    FUndoList = std::make_unique<TZtUndoList>(this);
}

TZtCodeEdit::~TZtCodeEdit()
{
    FLines->OnChanging = nullptr;
    FLines->OnChange = nullptr;
    FHScrollBar->OnChange = nullptr;
    FVScrollBar->OnChange = nullptr;
    if (FParser && FParser->parent() == this)
        delete FParser;
    FParser = nullptr;
    delete FCaret;
    FCaret = nullptr;
}

// --- properties ----------------------------------------------------------------------------------

TZtLangParser *TZtCodeEdit::GetParser()
{
    if (!FParser || FParser->IsAbandoned()) {
        FParser = new TZtLangParser(this);
        FreeNotification(FParser);
    }
    return FParser;
}

void TZtCodeEdit::SetParser(TZtLangParser *Value)
{
    if (Value == FParser)
        return;
    if (FParser && FParser->parent() == this)
        delete std::exchange(FParser, nullptr);
    FParser = Value;
    FreeNotification(Value);
    GetParser();
    Invalidate();
}

void TZtCodeEdit::SetPopupMenu(QMenu *Value)
{
    FPopupMenu = Value;
    FreeNotification(Value);
}

void TZtCodeEdit::SetRightMargin(int Value)
{
    FRightMargin = Value;
    Invalidate();
}

void TZtCodeEdit::SetRightMarginColor(TColor Value)
{
    FRightMarginColor = Value;
    Invalidate();
}

void TZtCodeEdit::SetOptions(TZtCodeOptions Value)
{
    FOptions = Value;
    PositionScollBars();
    update();
}

void TZtCodeEdit::SetShowGuttor(bool)
{
    SetOptions(FOptions | TZtCodeOption::coShowGuttor);
    PositionScollBars();
}

void TZtCodeEdit::SetShowRightMargin(bool)
{
    SetOptions(FOptions | TZtCodeOption::coShowRightMargin);
    PositionScollBars();
}

void TZtCodeEdit::SetReadOnly(bool Value)
{
    FReadOnly = Value;
    Invalidate();
}

void TZtCodeEdit::SetOnParserLineChange(const TZtParserLineChangeEvent &Value)
{
    FOnParserLineChange = Value;
}

// --- metrics -------------------------------------------------------------------------------------

int TZtCodeEdit::GetCharWidth()
{
    if (FCharWidth < 1) {
        FMetrics.SetFont(font());
        FCharWidth = FMetrics.CharWidth();
    }
    return FCharWidth;
}

void TZtCodeEdit::SetCharWidth(int Value)
{
    if (FCharWidth == Value)
        return;
    FCharWidth = Value;
    PositionScollBars();
}

int TZtCodeEdit::GetLineWidth()
{
    if (FLineWidth < 1) {
        FMetrics.SetFont(font());
        SetLineWidth(FMetrics.LineHeight());
    }
    return FLineWidth;
}

void TZtCodeEdit::SetLineWidth(int Value)
{
    if (FLineWidth == Value)
        return;
    FLineWidth = Value;
    PositionScollBars();
}

void TZtCodeEdit::PositionScollBars()
{
    if (!WindowAvailable() || InPaint || GetCharWidth() == 0 || GetLineWidth() == 0)
        return;
    const QPoint origin = ClientArea().topLeft();
    const int width = ClientArea().width();
    const int height = ClientArea().height();
    const int g = RealGuttorWidth();
    const int h = FHScrollBar->height();

    FHScrollBar->SetKind(TScrollBarKind::sbHorizontal);
    Place(FHScrollBar, QRect(origin.x() + g, origin.y() + height - h, width - h - g, h));
    FHScrollBar->SetMax(Columns);
    const int columns = (width - g - FVScrollBar->width() - FCharWidth) / FCharWidth;
    FHScrollBar->SetPageSize(columns);
    if (columns >= 0)
        FHScrollBar->SetLargeChange(columns);

    FVScrollBar->SetKind(TScrollBarKind::sbVertical);
    Place(FVScrollBar, QRect(origin.x() + width - h, origin.y(), h, height - h));
    FVScrollBar->SetMax(FLines->GetCount() + LinesPastEnd);
    const int lines = (height - FHScrollBar->height() - FLineWidth) / FLineWidth;
    FVScrollBar->SetPageSize(lines);
    if (lines >= 0)
        FVScrollBar->SetLargeChange(lines);
}

bool TZtCodeEdit::IsLineCollapse(int, bool &) const { return false; }

// --- change notifications ------------------------------------------------------------------------

void TZtCodeEdit::LinesChanged(QObject *)
{
    if (InPaint)
        return;
    FModified = true;
    Invalidate();
}

void TZtCodeEdit::CodeChange(QObject *)
{
    if (InPaint)
        return; // only the lexer's states are stored while painting
    PositionScollBars();
    Tell([this] { Q_EMIT textChanged(); });
}

void TZtCodeEdit::Changed()
{
    Outside([this] { Fire(FOnChange, this); });
}

// Runs an operation of which nothing may be left half done because a handler raised. Within another
// one it is a part of that.
void TZtCodeEdit::RunToEnd(const std::function<void()> &AStep)
{
    if (FLines->GetRaised())
        return AStep();
    const THold hold(*this);
    TZtFirstException raised;
    FLines->SetRaised(&raised);
    raised.Run(AStep);
    FLines->SetRaised(nullptr);
    raised.Raise();
}

// Runs what leads to a host's code. What that begins is an operation of its own.
void TZtCodeEdit::Outside(const std::function<void()> &AStep)
{
    const THold hold(*this);
    const auto restore =
        qScopeGuard([this, outer = FLines->GetRaised()] { FLines->SetRaised(outer); });
    FLines->SetRaised(nullptr);
    AStep();
}

// `Outside`; what it raises does not end the operation that runs.
void TZtCodeEdit::Tell(const std::function<void()> &AStep)
{
    TZtFirstException raised;
    raised.Run([&] { Outside(AStep); });
    raised.RaiseInto(FLines->GetRaised());
}

void TZtCodeEdit::ScrollChange(QObject *)
{
    ResetCaret();
    Invalidate();
}

// --- component -----------------------------------------------------------------------------------

void TZtCodeEdit::Loaded()
{
    TCustomControl::Loaded();
    FModified = false;
}

void TZtCodeEdit::Notification(QObject *AComponent, TOperation Operation)
{
    TCustomControl::Notification(AComponent, Operation);
    if (Operation != TOperation::opRemove)
        return;
    if (AComponent == FParser)
        FParser = nullptr;
    else if (AComponent == FPopupMenu)
        FPopupMenu = nullptr;
}

void TZtCodeEdit::Abandoned()
{
    if (FSearchDlg)
        FSearchDlg->reject();
    TCustomControl::Abandoned();
}

void TZtCodeEdit::SetParent(QWidget *AParent)
{
    TCustomControl::SetParent(AParent);
    LayoutChanged();
}

void TZtCodeEdit::SetBounds(int ALeft, int ATop, int AWidth, int AHeight)
{
    TCustomControl::SetBounds(ALeft, ATop, AWidth, AHeight);
    PositionScollBars();
}

void TZtCodeEdit::LayoutChanged()
{
    if (!WindowAvailable() || IsLoading())
        return;
    PositionScollBars();
    FCaret->SetParent(this);
    ResetCaret();
}

void TZtCodeEdit::Invalidate()
{
    if (!FHScrollBar || !FVScrollBar)
        return; // under construction
    if (FReplacingAll) {
        const bool hold = FLastPaint.isValid() && FLastPaint.elapsed() < ReplacingPaintPause;
        HoldScrollBars(hold);
        if (hold)
            return;
    }
    update(ClientArea().adjusted(0, 0, -FVScrollBar->width(), -FHScrollBar->height()));
}

void TZtCodeEdit::HoldScrollBars(bool AHold)
{
    for (TScrollBar *bar : {FHScrollBar, FVScrollBar})
        if (bar->updatesEnabled() == AHold)
            bar->setUpdatesEnabled(!AHold);
}

QSize TZtCodeEdit::sizeHint() const { return {640, 400}; }
