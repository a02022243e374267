#include "uZtEditExtras.h"

#include "uZtGuarded.h"
#include "uZtStringList.h"
#include "uZtStructureParts.h"
#include "uZtTextMarks.h"
#include "uZtViewParts.h"

#include <algorithm>
#include <array>

using enum TZtExtra;
using enum TZtViewColor;

namespace {

template <typename TPart> std::shared_ptr<TZtViewPart> Make(TZtViewHost &AEdit)
{
    return std::make_shared<TPart>(AEdit);
}

struct TPartKind {
    TZtExtras For; // shown for any of these; for all, always
    std::shared_ptr<TZtViewPart> (*Make)(TZtViewHost &AEdit);
};

// The lowest first.
constexpr std::array PartKinds = {
    TPartKind{zeCurrentLine, Make<TZtCurrentLinePart>},
    TPartKind{zeGuides, Make<TZtGuidesPart>},
    TPartKind{zeBlanks | zeSelectedBlanks, Make<TZtBlanksPart>},
    TPartKind{zeWordMarks, Make<TZtWordPart>},
    TPartKind{zeMatchMarks, Make<TZtMatchesPart>},
    TPartKind{{}, Make<TZtDecorationsPart>},
    TPartKind{zeBrackets, Make<TZtBracketsPart>},
};

struct TRulerKind {
    quint32 Bit;
    TZtViewColor Colour;
    TZtOverviewRuler::TLane Lane;
};

// Later ones lie over earlier ones.
constexpr std::array RulerKinds = {
    TRulerKind{TZtOverviewBit::Saved, vcSaved, TZtOverviewRuler::TLane::laLeft},
    TRulerKind{TZtOverviewBit::Changed, vcChanged, TZtOverviewRuler::TLane::laLeft},
    TRulerKind{TZtOverviewBit::Word, vcWord, TZtOverviewRuler::TLane::laMiddle},
    TRulerKind{TZtOverviewBit::Match, vcMatch, TZtOverviewRuler::TLane::laMiddle},
    TRulerKind{ZtMarkBit(TZtLineMark::lmBookmark), vcBookmark, TZtOverviewRuler::TLane::laMiddle},
    TRulerKind{ZtMarkBit(TZtLineMark::lmBreakpoint), vcBreakpoint,
               TZtOverviewRuler::TLane::laMiddle},
    TRulerKind{ZtMarkBit(TZtLineMark::lmStatement), vcStatement, TZtOverviewRuler::TLane::laMiddle},
    TRulerKind{ZtMarkBit(TZtLineMark::lmInformation) | TZtOverviewBit::Information, vcInformation,
               TZtOverviewRuler::TLane::laRight},
    TRulerKind{ZtMarkBit(TZtLineMark::lmWarning) | TZtOverviewBit::Warning, vcWarning,
               TZtOverviewRuler::TLane::laRight},
    TRulerKind{ZtMarkBit(TZtLineMark::lmError) | TZtOverviewBit::Error, vcError,
               TZtOverviewRuler::TLane::laRight},
};

// A line's own, and one for the worst that is said of it.
TZtLineMarkSet MarksOf(TZtViewHost &AEdit, int ALine)
{
    static constexpr std::array kinds = {TZtLineMark::lmError, TZtLineMark::lmWarning,
                                         TZtLineMark::lmInformation}; // by severity
    TZtTextMarks &marks = AEdit.GetTextMarks();
    TZtLineMarkSet set = marks.Marks.GetMarks(ALine);
    if (AEdit.HasExtra(zeDiagnostics))
        if (const auto severity = marks.Diagnostics.OfLine(ALine))
            set |= ZtMarkBit(kinds[size_t(*severity)]);
    return set;
}

template <typename TColumn> TColumn *Add(TZtGuttor &AGuttor, std::unique_ptr<TColumn> AColumn)
{
    TColumn *column = AColumn.get();
    column->SetVisible(false);
    AGuttor.Insert(AGuttor.GetCount(), std::move(AColumn));
    return column;
}

} // namespace

TZtEditExtras::TZtEditExtras(TZtViewHost &AEdit, QWidget *AWidget)
    : FEdit(AEdit), FWidget(AWidget), FParts(PartKinds.size())
{
    const auto marks = [&AEdit](int line) { return MarksOf(AEdit, line); };
    const auto state = [&AEdit](int line) { return AEdit.GetTextMarks().Changes.GetState(line); };
    FMarks = Add(FGuttor, std::make_unique<TZtMarkColumn>(marks));
    FNumbers = Add(FGuttor, std::make_unique<TZtNumberColumn>());
    FChanges = Add(FGuttor, std::make_unique<TZtChangeColumn>(state));
    FMarks->OnToolTip = [&AEdit](int line) {
        QStringList texts;
        if (AEdit.HasExtra(zeDiagnostics))
            for (const TZtDiagnostic &said : AEdit.GetTextMarks().Diagnostics.InLine(line))
                texts += said.Message;
        return texts.join(u'\n');
    };
    FGuttor.OnChange = [&AEdit] { AEdit.ExtrasChanged(); };
}

TZtEditExtras::~TZtEditExtras() = default;

void TZtEditExtras::Show(TZtExtras AWhich)
{
    for (size_t i = 0; i < PartKinds.size(); ++i) {
        const bool shown = !PartKinds[i].For || (PartKinds[i].For & AWhich);
        if (!shown)
            FParts[i].reset();
        else if (!FParts[i])
            FParts[i] = PartKinds[i].Make(FEdit);
    }
    FMarks->SetVisible(AWhich.testFlag(zeMarks));
    FNumbers->SetVisible(AWhich.testFlag(zeLineNumbers));
    FChanges->SetVisible(AWhich.testFlag(zeChangeBars));
    FFollowsCaret = bool(AWhich & (zeLineNumbers | zeWordMarks | zeBrackets | zeGuides |
                                   zeCurrentLine | zeSelectedBlanks));
    TextAttached();
}

void TZtEditExtras::ShowRuler(bool AShow)
{
    if (!AShow) {
        FRuler.reset();
        return;
    }
    if (FRuler)
        return;
    FRuler = std::make_unique<TZtOverviewRuler>(FWidget);
    FRuler->OnSurvey = [this](std::vector<quint32> &rows) { Survey(rows); };
    // Behind the event of the ruler, which a handler of the editor may take away.
    FRuler->OnGoTo = [this](double place) {
        QMetaObject::invokeMethod(FWidget, TZtGuarded([this, place] { GoTo(place); }),
                                  Qt::QueuedConnection);
    };
    FRuler->show();
    TakeColours();
}

void TZtEditExtras::GoTo(double APlace) const
{
    FEdit.GoToLine(int(APlace * qMax(FEdit.GetLines()->GetCount(), 1)));
}

void TZtEditExtras::Survey(std::vector<quint32> &ARows) const
{
    for (const auto &part : FParts)
        if (part)
            part->Survey(ARows);
    const TZtTextMarks &marks = FEdit.GetTextMarks();
    if (FMarks->GetVisible())
        marks.Marks.Survey(ARows);
    if (!FChanges->GetVisible())
        return;
    std::vector<quint32> rows(ARows.size());
    marks.Changes.Survey(rows);
    for (size_t i = 0; i < rows.size(); ++i) {
        if (rows[i] & (1u << quint32(TZtLineState::csChanged)))
            ARows[i] |= TZtOverviewBit::Changed;
        if (rows[i] & (1u << quint32(TZtLineState::csSaved)))
            ARows[i] |= TZtOverviewBit::Saved;
    }
}

void TZtEditExtras::TakeColours()
{
    if (!FRuler)
        return;
    const auto rgb = [this](TZtViewColor colour) { return FEdit.GetViewRgb(colour); };
    std::vector<TZtOverviewRuler::TKind> kinds;
    for (const TRulerKind &kind : RulerKinds)
        kinds.push_back({kind.Bit, rgb(kind.Colour), kind.Lane});
    FRuler->SetLook(rgb(vcRuler), rgb(vcText), kinds);
}

TZtGuttorLook TZtEditExtras::GetGuttorLook() const
{
    const auto rgb = [this](TZtViewColor colour) { return FEdit.GetViewRgb(colour); };
    return {rgb(vcGuttor),     rgb(vcGuttorText),  rgb(vcCurrentNumber),
            rgb(vcChanged),    rgb(vcSaved),       rgb(vcBookmark),
            rgb(vcBreakpoint), rgb(vcStatement),   rgb(vcError),
            rgb(vcWarning),    rgb(vcInformation), FMarks->GetRevision() + FGuttor.GetRevision()};
}

// A lexer's handlers may show other parts meanwhile.
void TZtEditExtras::BeginRows(int AFirst, int ALast)
{
    const auto parts = FParts;
    for (const auto &part : parts)
        if (part)
            part->BeginRows(AFirst, ALast);
}

const TZtLineLook &TZtEditExtras::LookOf(int ALine, int AFrom, int ATo)
{
    FLook.Clear();
    for (const auto &part : FParts)
        if (part)
            part->AddToLine(ALine, AFrom, ATo, FLook);
    return FLook;
}

std::shared_ptr<TZtViewPart> TZtEditExtras::FindPart(TZtExtra AFor) const
{
    for (size_t i = 0; i < PartKinds.size(); ++i)
        if (PartKinds[i].For.testFlag(AFor))
            return FParts[i];
    return nullptr;
}

void TZtEditExtras::TextAttached()
{
    const bool drawn = FEdit.GetHighlighter() != nullptr; // with zcPicture
    ShowRuler(drawn && FEdit.HasExtra(zeRuler));
    FPairs.reset();
    if (drawn && FEdit.HasExtra(zeTypedPairs))
        FPairs = std::make_shared<TZtTypedPairs>(FEdit.GetLines());
    for (const auto &part : FParts)
        if (part)
            part->TextAttached();
    UpdateRuler();
}

void TZtEditExtras::TextChanged()
{
    for (const auto &part : FParts)
        if (part)
            part->TextChanged();
    UpdateRuler();
}

void TZtEditExtras::UpdateRuler()
{
    if (!FRuler)
        return;
    FRuler->Invalidate();
    CaretMoved();
}

void TZtEditExtras::CaretMoved()
{
    if (FPairs)
        FPairs->CaretMoved({FEdit.GetCharPos(), FEdit.GetLinePos()});
    if (FRuler)
        FRuler->SetCaret(double(FEdit.GetLinePos()) / qMax(FEdit.GetLines()->GetCount(), 1));
}

int TZtEditExtras::GetWorkDelay() const
{
    int least = -1;
    for (const auto &part : FParts)
        if (const int delay = part ? part->GetWorkDelay() : -1; delay >= 0)
            least = least < 0 ? delay : qMin(least, delay);
    return least;
}

void TZtEditExtras::Advance(int AMilliseconds)
{
    const auto parts = FParts;
    for (const auto &part : parts)
        if (part && part->GetWorkDelay() == 0)
            part->Advance(AMilliseconds);
}

QString TZtEditExtras::GetToolTip(const QPoint &APlace) const
{
    QStringList texts;
    for (const auto &part : FParts)
        if (const QString text = part ? part->GetToolTip(APlace) : QString(); !text.isEmpty())
            texts += text;
    return texts.join(u'\n');
}
