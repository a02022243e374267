#include "uZtTypedPairs.h"

#include <algorithm>

using enum TZtPairAction;

namespace {

using TCharacters = QLatin1StringView;

struct TLanguage {
    TCharacters Name;
    TCharacters Brackets; // each opening one with its closing one behind it
    TCharacters Quotes;
    TCharacters Followers; // a pair can be opened before these
};

// The apostrophe begins a comment in Visual Basic, and stands in words of plain text.
constexpr TCharacters AllBrackets("()[]{}");
constexpr TCharacters Usual(")]},;:.");
constexpr TLanguage PlainText{TCharacters(""), AllBrackets, TCharacters("\""), Usual};
constexpr TLanguage Languages[] = {
    {TCharacters("Pascal"), AllBrackets, TCharacters("'"), Usual},
    {TCharacters("Visual Basic"), AllBrackets, TCharacters("\""), Usual},
    {TCharacters("JavaScript"), AllBrackets, TCharacters("'\"`"), Usual},
    {TCharacters("Sql"), AllBrackets, TCharacters("'\""), Usual},
    {TCharacters("XML"), TCharacters(""), TCharacters("\"'"), TCharacters(">/?")},
};

const TLanguage &LanguageOf(QStringView AName)
{
    const auto *row = std::ranges::find_if(
        Languages, [&](const TLanguage &language) { return AName == language.Name; });
    return row == std::end(Languages) ? PlainText : *row;
}

bool IsIn(QChar C, TCharacters ASet) { return !C.isNull() && ASet.contains(C); }

// What closes a pair that a character opens, or #0.
QChar ClosingOf(QChar AOpening, const TLanguage &ALanguage)
{
    if (IsIn(AOpening, ALanguage.Quotes))
        return AOpening;
    const qsizetype at =
        IsIn(AOpening, ALanguage.Brackets) ? ALanguage.Brackets.indexOf(AOpening) : -1;
    return at >= 0 && at % 2 == 0 ? QChar(ALanguage.Brackets[at + 1]) : QChar();
}

bool IsWord(QChar C) { return C.isLetterOrNumber() || C == u'_'; }

} // namespace

TZtTypedPairs::TZtTypedPairs(TStringList *AText) : FText(AText), FAnchors(AText) {}

// A character of the text, or #0 where there is none.
QChar TZtTypedPairs::At(int ALine, int AColumn) const
{
    if (!FText || ALine < 0 || ALine >= FText->GetCount() || AColumn < 0 ||
        AColumn >= FText->GetLength(ALine))
        return {};
    QString character;
    FText->AppendTo(ALine, AColumn, 1, character);
    return character.front();
}

bool TZtTypedPairs::MayPair(QChar C)
{
    return IsIn(C, AllBrackets) || IsIn(C, TCharacters("'\"`"));
}

TZtPairEdit TZtTypedPairs::OnCharacter(QChar C, const QPoint &ACaret, bool ASelected,
                                       TZtElementKind AKind, QStringView ALanguage)
{
    CaretMoved(ACaret);
    if (!ASelected && TypeOver(C, ACaret))
        return {paTypeOver, C};
    const TLanguage &language = LanguageOf(ALanguage);
    const QChar closing = ClosingOf(C, language);
    if (closing.isNull() || AKind != TZtElementKind::ekCode)
        return {};
    if (ASelected)
        return {paSurround, closing};
    const QChar behind = At(ACaret.y(), ACaret.x());
    if (!behind.isNull() && !behind.isSpace() && !IsIn(behind, language.Followers))
        return {};
    const QChar before = At(ACaret.y(), ACaret.x() - 1);
    if (closing == C && (IsWord(before) || before == C))
        return {};
    return {paInsert, closing};
}

bool TZtTypedPairs::OnBackspace(const QPoint &ACaret, QStringView ALanguage) const
{
    const QChar opening = At(ACaret.y(), ACaret.x() - 1);
    const QChar closing = ClosingOf(opening, LanguageOf(ALanguage));
    if (closing.isNull() || At(ACaret.y(), ACaret.x()) != closing)
        return false;
    // One of two quotes in a string stands for a quote.
    return closing != opening || At(ACaret.y(), ACaret.x() - 2) != opening;
}

void TZtTypedPairs::Inserted(const QPoint &AClosing)
{
    const int before = FAnchors.Add(AClosing, TZtAnchorSide::asBehind);
    const int behind = FAnchors.Add(AClosing + QPoint(1, 0), TZtAnchorSide::asBefore);
    FClosing.push_back({before, behind, At(AClosing.y(), AClosing.x())});
}

// Whether it is there yet, itself and not another of its kind: its anchors fall together when it
// is removed.
bool TZtTypedPairs::Stands(const TClosing &AClosing) const
{
    const QPoint place = FAnchors.GetPlace(AClosing.Before);
    return FAnchors.GetPlace(AClosing.Behind) == place + QPoint(1, 0) &&
           At(place.y(), place.x()) == AClosing.Character;
}

void TZtTypedPairs::Drop(const TClosing &AClosing)
{
    FAnchors.Remove(AClosing.Before);
    FAnchors.Remove(AClosing.Behind);
}

void TZtTypedPairs::CaretMoved(const QPoint &ACaret)
{
    std::erase_if(FClosing, [&](const TClosing &closing) {
        if (FAnchors.GetPlace(closing.Before).y() == ACaret.y() && Stands(closing))
            return false;
        Drop(closing);
        return true;
    });
}

bool TZtTypedPairs::TypeOver(QChar C, const QPoint &ACaret)
{
    const auto closing = std::ranges::find_if(FClosing, [&](const TClosing &item) {
        return item.Character == C && FAnchors.GetPlace(item.Before) == ACaret;
    });
    if (closing == FClosing.end())
        return false;
    Drop(*closing);
    FClosing.erase(closing);
    return true;
}

TZtElementKind ZtKindAround(const TZtColourRuns &ARuns, QAnyStringView ALine, int AColumn)
{
    using enum TZtElementKind;
    const auto next = std::ranges::upper_bound(ARuns, AColumn, {}, &TZtColourRun::Start);
    const auto before = std::ranges::lower_bound(ARuns, AColumn, {}, &TZtColourRun::Start);
    if (before == ARuns.begin())
        return ARuns.empty() ? ekCode : before->Kind;
    const TZtColourRun &left = *(before - 1);
    if (AColumn < left.Start + left.Length)
        return left.Kind;
    if (next != before)
        return left.Kind == before->Kind ? left.Kind : ekCode;
    const bool isClosed = left.Kind == ekText && left.Length > 1 && ALine.visit([](auto view) {
        const auto C = view.isEmpty() ? QChar() : QChar(view.back());
        return C == u'\'' || C == u'"' || C == u'`';
    });
    return isClosed ? ekCode : left.Kind;
}
