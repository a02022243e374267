#include "uZtTextColours.h"

#include "uZtStringList.h"

#include <QScopeGuard>

#include <algorithm>

namespace {

constexpr int MostLines = 64; // that are coloured at once
constexpr int MostUnits = 1 << 18;
constexpr int MostColumns = 1 << 20; // as many as a highlighter colours
constexpr int Slice = 10;            // milliseconds of lexing ahead

std::shared_ptr<const TZtColorScheme> WithStyles(std::shared_ptr<const TZtColorScheme> AScheme)
{
    return AScheme && AScheme->HasStyles() ? std::move(AScheme) : nullptr;
}

} // namespace

int TZtColouredText::GetLastLine() const
{
    const int last = Lines->GetCount() - 1;
    if (!To)
        return last;
    return std::min(last, To->x() == 0 && To->y() > From.y() ? To->y() - 1 : To->y());
}

int TZtColouredText::GetEnd(int ALine) const
{
    const int length = Lines->GetLength(ALine);
    return To && ALine == To->y() ? std::clamp(To->x(), 0, length) : length;
}

quint32 TZtColouredText::GetColour(TZtViewColor APart) const
{
    return ZtPaperColour((Scheme ? Scheme : TZtColorScheme::Classic())->GetColor(APart));
}

quint32 ZtPaperColour(TColor AColor)
{
    switch (AColor) {
    case clWindow:
    case clBtnFace:
    case clBtnHighlight:
    case clHighlightText:
        return 0xFFFFFF;
    case clBtnShadow:
        return 0x808080;
    default:
        break;
    }
    if (AColor >> 24 == 0xFF)
        return 0;
    return (AColor & 0xFF) << 16 | (AColor & 0xFF00) | (AColor >> 16 & 0xFF);
}

TZtTextColours::TZtTextColours(const TZtColouredText &AText)
    : FText(AText.Lines), FParser(AText.Parser), FScheme(WithStyles(AText.Scheme)),
      FTextRevision(AText.Lines->GetRevision())
{
    FColours.SetText(AText.Lines);
    FColours.SetParser(AText.Parser);
    if (FScheme)
        FColours.SetPlain(FScheme->GetColor(TZtViewColor::vcText),
                          FScheme->GetColor(TZtViewColor::vcBackground));
}

const TZtColourRuns &TZtTextColours::GetRuns(int ALine)
{
    static const TZtColourRuns none;
    if (ALine < FFirst || size_t(ALine - FFirst) >= FRuns.size())
        Fetch(ALine);
    return FRuns.empty() ? none : FRuns[size_t(ALine - FFirst)];
}

bool TZtTextColours::IsIntact() const { return FText && FText->GetRevision() == FTextRevision; }

void TZtTextColours::Fetch(int ALine)
{
    FRuns.clear();
    FFirst = ALine;
    if (!IsIntact() || ALine >= FText->GetCount())
        return;
    int last = ALine;
    int units = FText->GetLength(ALine);
    while (last + 1 < FText->GetCount() && last + 1 < ALine + MostLines && units < MostUnits)
        units += FText->GetLength(++last);
    const auto restore =
        qScopeGuard([this, scheme = FParser ? FParser->GetScheme() : nullptr]() mutable {
            if (FParser)
                FParser->SetScheme(std::move(scheme));
        });
    if (FParser)
        FParser->SetScheme(FScheme);
    while (FColours.GetKnownLines() <= last && FColours.Advance(Slice)) {
    }
    bool exact = false;
    FRuns = FColours.Peek(ALine, last, MostColumns, exact);
}
