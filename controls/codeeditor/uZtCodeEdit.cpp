#include "uZtCodeEdit.h"

#include "uZtCaret.h"
#include "uZtClassRegistry.h"
#include "uZtComposition.h"
#include "uZtEditExtras.h"
#include "uZtEditState.h"
#include "uZtEditedText.h"
#include "uZtFrame.h"
#include "uZtHighlighter.h"
#include "uZtLanguages.h"
#include "uZtPlatform.h"
#include "uZtSystemColors.h"
#include "uZtTripleClick.h"
#include "uZtUndoHistory.h"

#include <QFont>
#include <QScopeGuard>
#include <QScopedValueRollback>

namespace {

const bool Registered = ZtRegisterClass<TZtCodeEdit>();

constexpr int Columns = 500;      // the horizontal range, whatever the lines' lengths
constexpr int LinesPastEnd = 100; // how far the text can be scrolled past its end

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

TZtCodeEdit::TZtCodeEdit(QWidget *AOwner)
    : TCustomControl(AOwner), FFrame(std::make_unique<TZtFrame>()),
      FTripleClick(std::make_unique<TZtTripleClick>()), FUndoBytes(TZtUndoHistory::DefaultBytes)
{
    InstallAccessible();
    MakeState();
    MakeParts();
    resize(100, 100);
    FScollLines = ZtPlatform().WheelLines();
    if (FScollLines < 1)
        FScollLines = 3;
    FOptions.setFlag(TZtCodeOption::coShowRightMargin);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_InputMethodEnabled);
    setInputMethodHints(Qt::ImhMultiLine | Qt::ImhNoPredictiveText | Qt::ImhNoAutoUppercase);
    setCursor(Qt::IBeamCursor);
    FCaret = new TZtCaret(this);
    FComposition = std::make_unique<TZtComposition>();
    FExtras = std::make_unique<TZtEditExtras>(*this, this);
    AttachText(std::make_shared<TZtEditedText>());
    FExtras->Show({});
    FOptions.setFlag(TZtCodeOption::coShowGuttor);
    setFont(DefaultFont());
    for (TScrollBar **bar : {&FHScrollBar, &FVScrollBar}) {
        *bar = new TScrollBar(this);
        (*bar)->setCursor(Qt::ArrowCursor);
        (*bar)->OnChange = [this](QObject *sender) { ScrollChange(sender); };
    }
    FHScrollBar->SetKind(TScrollBarKind::sbHorizontal);
    FVScrollBar->SetKind(TScrollBarKind::sbVertical);
    FSelStart = FSelEnd = QPoint(-1, -1);
    FUndoList = std::make_unique<TZtUndoList>(this);
}

TZtCodeEdit::~TZtCodeEdit()
{
    FExtras.reset();
    DetachText();
    FHScrollBar->OnChange = nullptr;
    FVScrollBar->OnChange = nullptr;
    TZtLangParser *parser = std::exchange(FParser, nullptr);
    if (parser && parser->parent() == this)
        delete parser;
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
    CorrectParser(FCorrections); // a lexer that a host has corrected stays so
    ColourParser();
    FExtras->TextAttached();
    Redraw();
    TellLanguage();
}

QString TZtCodeEdit::GetLanguage() const
{
    return FParser && !FParser->IsAbandoned() ? ZtLanguageNameOf(FParser) : QString();
}

void TZtCodeEdit::SetLanguage(const QString &Value)
{
    if (Value.compare(GetLanguage(), Qt::CaseInsensitive) == 0)
        return;
    const TZtLanguage *language = ZtFindLanguage(Value);
    if (!language)
        throw EZtParser(tr("There is no language \"%1\".").arg(Value));
    TZtLangParser *parser = language->CreateParser ? language->CreateParser(this) : nullptr;
    ForgetLineStates();
    SetParser(parser);
}

// The property's setter: Qt's frames and the code that is made from a form must not be unwound.
void TZtCodeEdit::StoreLanguage(const QString &Value)
{
    try {
        SetLanguage(Value);
    } catch (const std::exception &fault) {
        qWarning("%s: %s", metaObject()->className(), fault.what());
    }
}

// What a paint has left in the lines are the states of another lexer.
void TZtCodeEdit::ForgetLineStates()
{
    const QScopedValueRollback inPaint(InPaint, true); // the text stays as it is
    for (int i = 0; i < FLines->GetCount(); ++i)
        if (FLines->GetObjects(i) != 0)
            FLines->SetObjects(i, 0);
}

void TZtCodeEdit::TellLanguage()
{
    QString language = GetLanguage();
    if (language == FLanguage)
        return;
    FLanguage = std::move(language);
    Tell([this] { Q_EMIT languageChanged(); });
}

void TZtCodeEdit::SetPopupMenu(QMenu *Value)
{
    FPopupMenu = Value;
    FreeNotification(Value);
}

void TZtCodeEdit::SetRightMargin(int Value)
{
    FRightMargin = Value;
    Redraw();
}

void TZtCodeEdit::SetRightMarginColor(TColor Value)
{
    FRightMarginColor = Value;
    Redraw();
}

void TZtCodeEdit::SetRightMarginColor(const QVariant &Value)
{
    if (const auto color = ZtToColor(Value))
        SetRightMarginColor(*color);
}

void TZtCodeEdit::SetOptions(TZtCodeOptions Value)
{
    FOptions = Value;
    PositionScollBars();
    KeepCaretInText();
    update();
    StateChanged();
}

void TZtCodeEdit::Show(TZtCodeOption AOption, bool AShow)
{
    TZtCodeOptions options = FOptions;
    options.setFlag(AOption, AShow || !IsCorrected(TZtCorrection::zcSwitches));
    SetOptions(options);
    PositionScollBars();
}

void TZtCodeEdit::SetShowGuttor(bool Value) { Show(TZtCodeOption::coShowGuttor, Value); }

void TZtCodeEdit::SetShowRightMargin(bool Value) { Show(TZtCodeOption::coShowRightMargin, Value); }

void TZtCodeEdit::SetReadOnly(bool Value)
{
    FReadOnly = Value;
    Redraw();
    StateChanged();
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
    const int w = FVScrollBar->width();

    // Below columns too, whose width changes with the count of lines.
    const int left = HasColumns() ? 0 : g;
    Place(FHScrollBar, QRect(origin.x() + left, origin.y() + height - h, width - w - left, h));
    const int columns = (width - g - BarsWidth() - FCharWidth) / FCharWidth;
    const int lines = int((height - FHScrollBar->height() - RowPitch()) / RowPitch());
    SetRanges(columns, lines);
    FHScrollBar->SetPageSize(columns);
    if (columns >= 0)
        FHScrollBar->SetLargeChange(columns);

    Place(FVScrollBar, QRect(origin.x() + width - w, origin.y(), w, height - h));
    FVScrollBar->SetPageSize(lines);
    if (lines >= 0)
        FVScrollBar->SetLargeChange(lines);
    if (TZtOverviewRuler *ruler = FExtras->Ruler())
        ruler->setGeometry(FVScrollBar->x() - TZtOverviewRuler::Width, FVScrollBar->y(),
                           TZtOverviewRuler::Width, FVScrollBar->height());
}

// How far the text can be scrolled, with so many columns and lines in sight.
void TZtCodeEdit::SetRanges(int AColumns, int ALines)
{
    const bool follows = IsCorrected(TZtCorrection::zcScroll);
    FHScrollBar->SetMax(follows ? qMax(FLongest - qMax(AColumns, 0), 0) : Columns);
    FVScrollBar->SetMax(follows ? qMax(FLines->GetCount() - qMax(ALines, 1), 0)
                                : FLines->GetCount() + LinesPastEnd);
}

bool TZtCodeEdit::IsLineCollapse(int, bool &) const { return false; }

// --- change notifications ------------------------------------------------------------------------

void TZtCodeEdit::LinesChanged(QObject *)
{
    if (InPaint)
        return;
    FModified = true;
    Redraw();
}

void TZtCodeEdit::CodeChange(QObject *)
{
    if (InPaint)
        return; // only the lexer's states are stored while painting
    PositionScollBars();
    if (HasColumns())
        ResetCaret(); // the gutter is as wide as the numbers of the lines
    FExtras->TextChanged();
    if (!IsCorrected(TZtCorrection::zcEvents))
        Tell([this] { Q_EMIT textChanged(); });
    if (FCorrections && FOperations == 0) {
        KeepCaretInText();
        TellChange();
    }
    StateChanged();
}

void TZtCodeEdit::Changed()
{
    if (!IsCorrected(TZtCorrection::zcEvents))
        Outside([this] { Fire(FOnChange, this); });
}

// Runs an operation of which nothing may be left half done because a handler raised. Within another
// one it is a part of that.
void TZtCodeEdit::RunToEnd(const std::function<void()> &AStep)
{
    if (FLines->GetRaised())
        return AStep();
    Watched([&] {
        const THold hold(*this);
        TZtFirstException raised;
        FLines->SetRaised(&raised);
        raised.Run(AStep);
        FLines->SetRaised(nullptr);
        raised.Raise();
    });
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
    Redraw();
}

// --- component -----------------------------------------------------------------------------------

void TZtCodeEdit::Loaded()
{
    TCustomControl::Loaded();
    FModified = false;
    StateChanged();
}

void TZtCodeEdit::Notification(QObject *AComponent, TOperation Operation)
{
    TCustomControl::Notification(AComponent, Operation);
    if (Operation != TOperation::opRemove)
        return;
    if (AComponent == FParser) {
        FParser = nullptr;
        // Later: whoever takes the lexer away may take all of a form away.
        QMetaObject::invokeMethod(
            this, [this] { TellLanguage(); }, Qt::QueuedConnection);
    } else if (AComponent == FPopupMenu)
        FPopupMenu = nullptr;
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
    FHScrollBar->FitThickness();
    FVScrollBar->FitThickness();
    PositionScollBars();
    FCaret->SetParent(this);
    ResetCaret();
}

QSize TZtCodeEdit::sizeHint() const { return {640, 400}; }

// What the bars need.
QSize TZtCodeEdit::minimumSizeHint() const
{
    const QSize bevels = size() - ClientArea().size();
    return QSize(FHScrollBar->minimumSizeHint().width() + FVScrollBar->width(),
                 FVScrollBar->minimumSizeHint().height() + FHScrollBar->height()) +
           bevels;
}
