#include "uZtStructureParts.h"

#include "uZtStringList.h"
#include "uZtWordScan.h"

#include <algorithm>

using enum TZtViewColor;

// --- guides --------------------------------------------------------------------------------------

// A line that is indented by a tab has a guide at each tab stop.
int TZtGuidesPart::StepOf(int ALine) const
{
    const QAnyStringView line = Edit().GetLines()->View(ALine);
    const bool tab = !line.isEmpty() && line.front() == u'\t';
    return tab ? Edit().GetCellRules().TabWidth : Edit().GetIndentStep();
}

void TZtGuidesPart::BeginRows(int AFirst, int ALast)
{
    const TStringList &lines = *Edit().GetLines();
    const TZtCellRules &rules = Edit().GetCellRules();
    FFirst = AFirst;
    FCells = ZtGuideCells(lines, AFirst, ALast, rules);
    FSteps.clear();
    for (int line = AFirst; line <= ALast; ++line) {
        const bool blank = lines.GetLength(line) == 0 && !FSteps.empty();
        FSteps.push_back(blank ? FSteps.back() : StepOf(line));
    }
    const int caret = Edit().GetLinePos();
    FCurrent =
        caret < lines.GetCount() ? ZtCurrentGuide(lines, caret, StepOf(caret), rules) : TZtGuide();
}

void TZtGuidesPart::AddToLine(int ALine, int, int, TZtLineLook &ALook)
{
    const size_t at = size_t(ALine - FFirst);
    if (at >= FCells.size())
        return;
    // The gutter's edge is the one at cell 0.
    for (int i = 1; i < ZtGuideCount(FCells[at], FSteps[at]); ++i) {
        const int cell = i * FSteps[at];
        const bool current =
            cell == FCurrent.Cell && FCurrent.First <= ALine && ALine <= FCurrent.Last;
        ALook.Guides.push_back({cell, Edit().GetViewColor(current ? vcCurrentGuide : vcGuide)});
    }
}

// --- matches -------------------------------------------------------------------------------------

void TZtMatchesPart::TextAttached()
{
    FMarks = std::make_unique<TZtMatchMarks>(Edit().GetLines());
    FMarks->SetSearch(FSearch, FFlags);
}

bool TZtMatchesPart::SetSearch(const QString &AText, TZtSearchFlags AFlags)
{
    if (FSearch == AText && FFlags == AFlags)
        return false;
    FSearch = AText;
    FFlags = AFlags;
    FMarks->SetSearch(AText, AFlags);
    return true;
}

void TZtMatchesPart::AddToLine(int ALine, int AFrom, int ATo, TZtLineLook &ALook)
{
    if (FMarks->IsEmpty())
        return;
    TZtDecorationStyle style;
    style.Background = Edit().GetViewColor(Colour());
    for (const TZtMatchMarks::TMatch &match : FMarks->GetInLine(ALine, AFrom, ATo))
        ALook.Spans.push_back({match.Start, match.Start + match.Length, style});
}

void TZtMatchesPart::TextChanged() { FIsStale = true; }

// A text that is changed all the time is looked through for a tenth of the time.
int TZtMatchesPart::GetWorkDelay() const
{
    if (FMarks->IsEmpty() || (!FIsStale && FMarks->IsComplete()))
        return -1;
    if (!FIsStale || !FSinceLast.isValid())
        return 0;
    return int(qMax<qint64>(qint64(FTime) * 10 - FSinceLast.elapsed(), 0));
}

void TZtMatchesPart::Advance(int AMilliseconds)
{
    if (std::exchange(FIsStale, false)) {
        FMarks->Restart();
        FTime = 0;
    }
    FTime += AMilliseconds;
    if (FMarks->Advance(AMilliseconds))
        return;
    FSinceLast.start();
    Edit().OverviewChanged();
}

void TZtMatchesPart::Survey(std::vector<quint32> &ARows)
{
    if (!FMarks->IsEmpty())
        FMarks->Survey(ARows, Bit());
}

QString TZtWordPart::WordAtCaret() const
{
    const TStringList &lines = *Edit().GetLines();
    const int line = Edit().GetLinePos();
    if (line >= lines.GetCount())
        return {};
    const auto [start, end] = ZtWordAt(lines.View(line), Edit().GetCharPos());
    QString word;
    if (end - start > 1)
        lines.AppendTo(line, start, end - start, word);
    return word;
}

void TZtWordPart::BeginRows(int, int)
{
    const QString word = WordAtCaret();
    if (word != std::exchange(FWord, word))
        FSince.start();
    if (FWord != FMarked && Edit().GetWordMarkDelay() == 0 && Mark())
        Edit().OverviewChanged();
}

bool TZtWordPart::Mark()
{
    using enum TZtSearchFlag;
    FMarked = FWord;
    return SetSearch(FMarked, sfDown | sfMatchCase | sfWholeWord);
}

// Rows in sight are looked through when they are drawn, the whole text for the ruler alone.
int TZtWordPart::GetWorkDelay() const
{
    if (FWord != FMarked)
        return int(qMax<qint64>(Edit().GetWordMarkDelay() - FSince.elapsed(), 0));
    return Edit().HasExtra(TZtExtra::zeRuler) ? TZtMatchesPart::GetWorkDelay() : -1;
}

void TZtWordPart::Advance(int AMilliseconds)
{
    if (FWord == FMarked)
        return TZtMatchesPart::Advance(AMilliseconds);
    if (!Mark())
        return;
    Edit().OverviewChanged();
    Edit().ExtrasChanged();
}

// --- brackets ------------------------------------------------------------------------------------

void TZtBracketsPart::TextAttached()
{
    FBrackets.reset();
    if (TZtHighlighter *colours = Edit().GetHighlighter())
        FBrackets = std::make_shared<TZtBrackets>(Edit().GetLines(), *colours);
}

std::shared_ptr<TZtBrackets> TZtBracketsPart::Find()
{
    const auto brackets = FBrackets;
    if (brackets)
        brackets->Find({Edit().GetCharPos(), Edit().GetLinePos()});
    return brackets;
}

void TZtBracketsPart::BeginRows(int, int) { Find(); }

void TZtBracketsPart::AddToLine(int ALine, int, int, TZtLineLook &ALook)
{
    if (!FBrackets)
        return;
    const bool found = FBrackets->GetState() == TZtBracketState::bsFound;
    if (!found && FBrackets->GetState() != TZtBracketState::bsUnmatched)
        return;
    TZtDecorationStyle style;
    style.Box = Edit().GetViewColor(found ? vcBracket : vcUnmatched);
    if (found)
        style.Background = Edit().GetViewColor(vcBracketBack);
    for (const QPoint &place : {FBrackets->GetBracket(), FBrackets->GetPair()})
        if (place.y() == ALine && place.x() >= 0)
            ALook.Spans.push_back({place.x(), place.x() + 1, style});
}

int TZtBracketsPart::GetWorkDelay() const
{
    return FBrackets && FBrackets->GetState() == TZtBracketState::bsSearching ? 0 : -1;
}

void TZtBracketsPart::Advance(int AMilliseconds)
{
    const auto brackets = FBrackets;
    brackets->Advance(AMilliseconds);
    if (brackets->GetState() != TZtBracketState::bsSearching)
        Edit().ExtrasChanged();
}
