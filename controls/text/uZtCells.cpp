#include "uZtCells.h"

#include <QString>

#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <memory>
#include <type_traits>

namespace {

constexpr int LongestRun = 4096;
constexpr int Block = 1024;
// Below it nothing joins with a neighbour that is below it too, and nothing is wide.
constexpr char16_t FirstMark = 0x300;
constexpr char16_t FirstSurrogate = 0xD800;
constexpr UChar32 SoftHyphen = 0xAD;
constexpr UChar32 EmojiStyle = 0xFE0F;
constexpr UChar32 KeyCap = 0x20E3;

// What matters of a character: how many cells it takes when it stands alone, and whether there is
// a border between two of the kind, whatever stands around them.
struct TTraits {
    quint8 Width : 2;
    quint8 Sure : 1;
    quint8 Mark : 1; // drawn over what stands before it
};

TTraits AskTraits(UChar32 C)
{
    TTraits traits{1, 0, 0};
    switch (u_getIntPropertyValue(C, UCHAR_GRAPHEME_CLUSTER_BREAK)) {
    case U_GCB_OTHER:
    case U_GCB_CONTROL:
    case U_GCB_CR:
    case U_GCB_LF:
    case U_GCB_LV:
    case U_GCB_LVT:
        traits.Sure = 1;
        break;
    default:
        break;
    }
    const int width = u_getIntPropertyValue(C, UCHAR_EAST_ASIAN_WIDTH);
    const int type = u_charType(C);
    if (width == U_EA_WIDE || width == U_EA_FULLWIDTH ||
        u_hasBinaryProperty(C, UCHAR_EMOJI_PRESENTATION)) {
        traits.Width = 2;
    } else if (u_hasBinaryProperty(C, UCHAR_DEFAULT_IGNORABLE_CODE_POINT)) {
        traits.Width = C == SoftHyphen;
    } else if (type == U_NON_SPACING_MARK || type == U_ENCLOSING_MARK ||
               type == U_COMBINING_SPACING_MARK) {
        traits.Width = 0;
        traits.Mark = 1;
    }
    return traits;
}

TTraits Traits(UChar32 C)
{
    // Asked once for each, since the answers take longer than all the rest.
    static const auto known = [] {
        auto traits = std::make_unique<std::array<TTraits, 0x10000>>();
        for (UChar32 i = 0; i < 0x10000; ++i)
            (*traits)[size_t(i)] = AskTraits(i);
        return traits;
    }();
    return C < 0x10000 ? (*known)[size_t(C)] : AskTraits(C);
}

bool IsInsidePair(QStringView S, int AColumn)
{
    return AColumn > 0 && AColumn < S.size() && U16_IS_TRAIL(S[AColumn].unicode()) &&
           U16_IS_LEAD(S[AColumn - 1].unicode());
}

// Whether it can be told from the two characters at a column that there is a border.
bool IsSureBorder(QStringView S, int AColumn)
{
    if (AColumn <= 0 || AColumn >= S.size())
        return true;
    const char16_t *text = S.utf16();
    if (text[AColumn - 1] < FirstMark && text[AColumn] < FirstMark)
        return true;
    if (IsInsidePair(S, AColumn))
        return false;
    UChar32 before, behind;
    U16_GET(text, 0, AColumn - 1, S.size(), before);
    U16_GET(text, 0, AColumn, S.size(), behind);
    return Traits(before).Sure && Traits(behind).Sure;
}

// A stretch is what lies between two sure borders, and all that the rules of clusters are asked
// for. Of text without one, like a line of flags, whole blocks are a stretch each: what a column
// has to do with is never more than two blocks away.
int BlockBorder(QStringView S, int ABlock) { return ABlock - int(IsInsidePair(S, ABlock)); }

int StretchEnd(QStringView S, int AStart)
{
    int i = AStart + 1;
    while (!IsSureBorder(S, i)) {
        if (i % Block == 0 && i - Block >= AStart)
            return BlockBorder(S, i);
        ++i;
    }
    return i;
}

int StretchStart(QStringView S, int AColumn)
{
    // A border in front of a pair that lies across a block's end counts as the block's end.
    const int last = (AColumn + int(IsInsidePair(S, AColumn + 1))) / Block * Block;
    for (int i = AColumn; i != last - Block; --i)
        if (IsSureBorder(S, i))
            return i;
    return BlockBorder(S, last);
}

UBreakIterator *ClusterBreaks(QStringView S)
{
    const auto close = [](UBreakIterator *ABreaks) { ubrk_close(ABreaks); };
    using TBreaks = std::unique_ptr<UBreakIterator, decltype(close)>;
    UErrorCode error = U_ZERO_ERROR;
    thread_local const TBreaks breaks(ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &error), close);
    if (breaks)
        ubrk_setText(breaks.get(), S.utf16(), int(S.size()), &error);
    return U_SUCCESS(error) ? breaks.get() : nullptr;
}

// Where the cluster ends that covers a column of a stretch.
int ClusterEnd(QStringView AStretch, int AColumn)
{
    UBreakIterator *breaks = ClusterBreaks(AStretch);
    const int end = breaks ? ubrk_following(breaks, AColumn) : UBRK_DONE;
    return end == UBRK_DONE ? int(AStretch.size()) : end;
}

// Where the cluster begins that covers a column of a stretch.
int ClusterStart(QStringView AStretch, int AColumn)
{
    UBreakIterator *breaks = ClusterBreaks(AStretch);
    if (!breaks)
        return 0;
    const int column = AColumn - int(IsInsidePair(AStretch, AColumn));
    return ubrk_isBoundary(breaks, column) ? column : std::max(ubrk_preceding(breaks, column), 0);
}

int ClusterWidth(QStringView ACluster)
{
    int width = 0;
    bool marks = false;
    UChar32 before = 0;
    for (int i = 0; i < ACluster.size();) {
        UChar32 C;
        U16_NEXT(ACluster.utf16(), i, ACluster.size(), C);
        if ((C == EmojiStyle || C == KeyCap) && u_hasBinaryProperty(before, UCHAR_EMOJI))
            return 2;
        const TTraits traits = Traits(C);
        width = std::min(width + int(traits.Width), 2);
        marks = marks || traits.Mark;
        before = C;
    }
    return width == 0 && marks ? 1 : width;
}

// How many of the first characters satisfy what is asked, roughly: whole groups, which the compiler
// can look at at once, and single ones behind them.
template <typename TAccept> int CountFirst(const char16_t *AText, int ACount, TAccept AAccept)
{
    constexpr int group = 32;
    int i = 0;
    for (; i + group <= ACount; i += group) {
        bool all = true;
        for (int k = 0; k < group; ++k)
            all &= AAccept(AText[i + k]);
        if (!all)
            break;
    }
    while (i < ACount && AAccept(AText[i]))
        ++i;
    return i;
}

int ToInt(qint64 AValue) { return int(std::min<qint64>(AValue, std::numeric_limits<int>::max())); }

QStringView Utf16Of(QAnyStringView ALine)
{
    return ALine.visit([](auto S) {
        if constexpr (std::is_same_v<decltype(S), QStringView>)
            return S;
        else
            return QStringView();
    });
}

} // namespace

TZtCellReader::TZtCellReader(QAnyStringView ALine, const TZtCellRules &ARules)
    : FLine(ALine), FUtf16(Utf16Of(ALine)), FRules(ARules), FLength(int(ALine.size()))
{
}

bool TZtCellReader::IsTab(int AColumn) const
{
    if (!FRules.Tabs)
        return false;
    return FUtf16.isEmpty() ? static_cast<const char *>(FLine.data())[AColumn] == '\t'
                            : FUtf16[AColumn] == u'\t';
}

// How many characters from here on take one cell each and join with nothing.
int TZtCellReader::PlainRun() const
{
    const int most = std::min(FLength - FColumn, LongestRun);
    if (FUtf16.isEmpty()) {
        if (!FRules.Tabs)
            return FLength - FColumn;
        const char *text = static_cast<const char *>(FLine.data()) + FColumn;
        const void *tab = std::memchr(text, '\t', size_t(most));
        return tab ? int(static_cast<const char *>(tab) - text) : most;
    }
    const char16_t *text = FUtf16.utf16() + FColumn;
    const char16_t tab = FRules.Tabs ? u'\t' : u'\xFFFF';
    if (!FRules.Wide)
        return CountFirst(text, most,
                          [tab](char16_t C) { return (C & 0xF800) != FirstSurrogate && C != tab; });
    int count = CountFirst(text, most, [tab](char16_t C) { return C < FirstMark && C != tab; });
    if (count == most || text[count] == tab)
        return count;
    while (count < most && text[count] != tab) {
        const TTraits traits = Traits(text[count]);
        if (traits.Width != 1 || !traits.Sure || (text[count] & 0xF800) == FirstSurrogate)
            break;
        ++count;
    }
    return IsSureBorder(FUtf16, FColumn + count) ? count : count - 1;
}

int TZtCellReader::EndOfCluster()
{
    if (!FRules.Wide)
        return FColumn + 1 + int(IsInsidePair(FUtf16, FColumn + 1));
    if (FColumn >= FStretchEnd)
        FStretchEnd = StretchEnd(FUtf16, FColumn);
    const QStringView stretch = FUtf16.mid(FColumn, FStretchEnd - FColumn);
    return stretch.size() == 1 ? FStretchEnd : FColumn + ClusterEnd(stretch, 0);
}

bool TZtCellReader::Next(TZtCellSpan &ASpan)
{
    if (FColumn >= FLength)
        return false;
    ASpan = {FColumn, 1, ToInt(FCell), 1, true};
    if (IsTab(FColumn)) {
        const int stop = std::max(FRules.TabWidth, 1);
        ASpan.Width = int(stop - FCell % stop);
    } else if (const int run = FColumn < FStretchEnd ? 0 : PlainRun(); run > 0) {
        ASpan.Length = ASpan.Width = run;
        ASpan.IsCluster = false;
    } else {
        ASpan.Length = EndOfCluster() - FColumn;
        ASpan.Width = FRules.Wide ? ClusterWidth(FUtf16.mid(FColumn, ASpan.Length)) : 1;
    }
    FColumn += ASpan.Length;
    FCell += ASpan.Width;
    return true;
}

int ZtCellOf(QAnyStringView ALine, int AColumn, const TZtCellRules &ARules)
{
    TZtCellReader reader(ALine, ARules);
    for (TZtCellSpan span; reader.Next(span);)
        if (AColumn < span.Start + span.Length)
            return span.IsCluster ? span.Cell : ToInt(qint64(span.Cell) + AColumn - span.Start);
    return ToInt(reader.Cell() + AColumn - ALine.size());
}

int ZtColumnAt(QAnyStringView ALine, int ACell, const TZtCellRules &ARules)
{
    TZtCellReader reader(ALine, ARules);
    for (TZtCellSpan span; reader.Next(span);)
        if (ACell < qint64(span.Cell) + span.Width)
            return span.IsCluster ? span.Start : span.Start + ACell - span.Cell;
    return ToInt(ACell - reader.Cell() + ALine.size());
}

int ZtNextCluster(QAnyStringView ALine, int AColumn, const TZtCellRules &ARules)
{
    const QStringView line = Utf16Of(ALine);
    if (AColumn >= line.size())
        return AColumn + 1;
    if (!ARules.Wide || IsSureBorder(line, AColumn + 1))
        return AColumn + 1 + int(IsInsidePair(line, AColumn + 1));
    const int start = StretchStart(line, AColumn);
    const int end = StretchEnd(line, start);
    return start + ClusterEnd(line.sliced(start, end - start), AColumn - start);
}

int ZtPreviousCluster(QAnyStringView ALine, int AColumn, const TZtCellRules &ARules)
{
    const QStringView line = Utf16Of(ALine);
    if (AColumn > line.size() || AColumn <= 0)
        return std::max(AColumn - 1, 0);
    const int before = AColumn - 1;
    if (!ARules.Wide || IsSureBorder(line, before))
        return before - int(IsInsidePair(line, before));
    const int start = StretchStart(line, before);
    const int end = StretchEnd(line, start);
    return start + ClusterStart(line.sliced(start, end - start), before - start);
}
