#include "uZtBufferSearch.h"

#include <bit>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

// Latin-1's simple case folding, so that a byte costs a look-up. U+00B5 folds out of Latin-1.
const std::array<char16_t, 256> &FoldedBytes()
{
    static const std::array<char16_t, 256> table = [] {
        std::array<char16_t, 256> folded;
        for (char16_t C = 0; C < 256; ++C)
            folded[C] = QChar::toCaseFolded(char32_t(C)) < 0x10000
                            ? char16_t(QChar::toCaseFolded(char32_t(C)))
                            : C;
        return folded;
    }();
    return table;
}

char16_t Unit(uchar C) { return C; }
char16_t Unit(char16_t C) { return C; }

bool IsDelimiter(char16_t C)
{
    const QChar character(C);
    return !character.isLetter() && !character.isDigit();
}

} // namespace

TZtBufferSearch::TZtBufferSearch(const QString &ASearchString, TZtSearchFlags AOptions)
    : FOptions(AOptions)
{
    FNeedle.reserve(ASearchString.size());
    for (const QChar C : ASearchString)
        FNeedle.append(QChar(Fold(C.unicode())));
    for (const QChar C : FNeedle)
        FNarrow = FNarrow && BytesOf(C.unicode()).Count > 0;
    if (FNeedle.isEmpty())
        return;
    FFirst = BytesOf(FNeedle.front().unicode());
    FLast = BytesOf(FNeedle.back().unicode());
}

char16_t TZtBufferSearch::Fold(char16_t C) const
{
    if (FOptions.testFlag(TZtSearchFlag::sfMatchCase))
        return C;
    if (C < 256)
        return FoldedBytes()[C];
    return QChar::isSurrogate(C) ? C : char16_t(QChar::toCaseFolded(char32_t(C)));
}

TZtBufferSearch::TBytes TZtBufferSearch::BytesOf(char16_t AFolded) const
{
    // The two cases of a Latin-1 letter are 32 apart; the micro sign folds to a letter elsewhere.
    TBytes bytes;
    for (const int C : {int(AFolded), AFolded - 32, 0xB5})
        if (0 <= C && C < 256 && Fold(char16_t(C)) == AFolded && bytes.Count < 2)
            bytes.Byte[size_t(bytes.Count++)] = uchar(C);
    if (bytes.Count == 1)
        bytes.Byte[1] = bytes.Byte[0];
    return bytes;
}

template <typename TUnit>
bool TZtBufferSearch::MatchesAt(const TUnit *ARun, qsizetype ASize, qsizetype At) const
{
    const qsizetype length = FNeedle.size();
    const auto *needle = reinterpret_cast<const char16_t *>(FNeedle.constData());
    for (qsizetype i = 0; i < length; ++i)
        if (Fold(Unit(ARun[At + i])) != needle[i])
            return false;
    if (!FOptions.testFlag(TZtSearchFlag::sfWholeWord))
        return true;
    return (At == 0 || IsDelimiter(Unit(ARun[At - 1]))) &&
           (At + length >= ASize || IsDelimiter(Unit(ARun[At + length])));
}

// The first position from `AFrom` up to `AEnd` (not included) where a match may begin.
template <typename TUnit>
qsizetype TZtBufferSearch::NextCandidate(const TUnit *ARun, qsizetype AFrom, qsizetype AEnd) const
{
    const char16_t first = FNeedle.front().unicode();
    for (qsizetype i = AFrom; i < AEnd; ++i)
        if (Fold(Unit(ARun[i])) == first)
            return i;
    return AEnd;
}

// In a run of bytes sixteen positions are ruled out at once, by the match's first and last byte.
template <>
qsizetype TZtBufferSearch::NextCandidate(const uchar *ARun, qsizetype AFrom, qsizetype AEnd) const
{
    qsizetype i = AFrom;
    const qsizetype span = FNeedle.size() - 1;
#if defined(__SSE2__)
    const __m128i first0 = _mm_set1_epi8(char(FFirst.Byte[0]));
    const __m128i first1 = _mm_set1_epi8(char(FFirst.Byte[1]));
    const __m128i last0 = _mm_set1_epi8(char(FLast.Byte[0]));
    const __m128i last1 = _mm_set1_epi8(char(FLast.Byte[1]));
    for (; i + 16 <= AEnd; i += 16) {
        const __m128i head = _mm_loadu_si128(reinterpret_cast<const __m128i *>(ARun + i));
        const __m128i tail = _mm_loadu_si128(reinterpret_cast<const __m128i *>(ARun + i + span));
        const __m128i both =
            _mm_and_si128(_mm_or_si128(_mm_cmpeq_epi8(head, first0), _mm_cmpeq_epi8(head, first1)),
                          _mm_or_si128(_mm_cmpeq_epi8(tail, last0), _mm_cmpeq_epi8(tail, last1)));
        if (const auto mask = unsigned(_mm_movemask_epi8(both)))
            return i + std::countr_zero(mask);
    }
#endif
    for (; i < AEnd; ++i) {
        const uchar head = ARun[i];
        const uchar tail = ARun[i + span];
        if ((head == FFirst.Byte[0] || head == FFirst.Byte[1]) &&
            (tail == FLast.Byte[0] || tail == FLast.Byte[1]))
            return i;
    }
    return AEnd;
}

template <typename TUnit>
qsizetype TZtBufferSearch::FindDown(const TUnit *ARun, qsizetype ASize, qsizetype AStart) const
{
    const qsizetype end = ASize - FNeedle.size() + 1; // behind the last place for a match
    for (qsizetype i = NextCandidate(ARun, AStart, end); i < end;
         i = NextCandidate(ARun, i + 1, end))
        if (MatchesAt(ARun, ASize, i))
            return i;
    return -1;
}

template <typename TUnit>
qsizetype TZtBufferSearch::FindUp(const TUnit *ARun, qsizetype ASize, qsizetype AStart) const
{
    for (qsizetype i = qMin(AStart, ASize) - FNeedle.size(); i >= 0; --i)
        if (MatchesAt(ARun, ASize, i))
            return i;
    return -1;
}

qsizetype TZtBufferSearch::Find(QAnyStringView ARun, qsizetype AStart) const
{
    if (FNeedle.isEmpty() || ARun.size() < FNeedle.size())
        return -1;
    const auto find = [&](const auto *run, qsizetype size) {
        return FOptions.testFlag(TZtSearchFlag::sfDown)
                   ? FindDown(run, size, qMax<qsizetype>(AStart, 0))
                   : FindUp(run, size, AStart);
    };
    return ARun.visit([&](auto view) -> qsizetype {
        using TView = decltype(view);
        if constexpr (std::is_same_v<TView, QLatin1StringView>)
            return FNarrow ? find(reinterpret_cast<const uchar *>(view.data()), view.size()) : -1;
        else if constexpr (std::is_same_v<TView, QStringView>)
            return find(reinterpret_cast<const char16_t *>(view.data()), view.size());
        else
            return Find(view.toString(), AStart);
    });
}

qsizetype ZtSearchBuf(QAnyStringView ABuf, qsizetype ASelStart, qsizetype ASelLength,
                      const QString &ASearchString, TZtSearchFlags AOptions)
{
    const bool down = AOptions.testFlag(TZtSearchFlag::sfDown);
    return TZtBufferSearch(ASearchString, AOptions)
        .Find(ABuf, down ? ASelStart + ASelLength : ASelStart);
}
