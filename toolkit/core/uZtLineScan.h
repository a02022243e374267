#pragma once

#include <QStringView>

#include <bit>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

/// How many line breaks of each kind a text has.
struct TZtBreakCount {
    qsizetype Lf = 0; ///< without a CR before it
    qsizetype Cr = 0; ///< without a LF behind it
    qsizetype CrLf = 0;
};

/// Counts the line breaks of a text of 8- or 16-bit units.
template <typename T> TZtBreakCount ZtCountBreaks(const T *AText, qsizetype ASize)
{
    TZtBreakCount count;
    qsizetype i = 0;
#if defined(__SSE2__)
    if constexpr (sizeof(T) == 1) {
        // Sixteen characters at a time; a byte of a sum overflows after 255 of them.
        const __m128i lf = _mm_set1_epi8('\n');
        const __m128i cr = _mm_set1_epi8('\r');
        const auto total = [](__m128i sums) {
            const __m128i two = _mm_sad_epu8(sums, _mm_setzero_si128());
            return qsizetype(_mm_cvtsi128_si32(two)) +
                   _mm_cvtsi128_si32(_mm_unpackhi_epi64(two, two));
        };
        while (i + 17 <= ASize) {
            __m128i lfs = _mm_setzero_si128(), crs = lfs, both = lfs;
            for (int k = 0; k < 255 && i + 17 <= ASize; ++k, i += 16) {
                const auto *at = reinterpret_cast<const __m128i *>(AText + i);
                const auto *next = reinterpret_cast<const __m128i *>(AText + i + 1);
                const __m128i isCr = _mm_cmpeq_epi8(_mm_loadu_si128(at), cr);
                const __m128i lfNext = _mm_cmpeq_epi8(_mm_loadu_si128(next), lf);
                lfs = _mm_sub_epi8(lfs, _mm_cmpeq_epi8(_mm_loadu_si128(at), lf));
                crs = _mm_sub_epi8(crs, isCr);
                both = _mm_sub_epi8(both, _mm_and_si128(isCr, lfNext));
            }
            count.Lf += total(lfs);
            count.Cr += total(crs);
            count.CrLf += total(both);
        }
    }
#endif
    for (; i < ASize; ++i) {
        count.Lf += AText[i] == T('\n');
        count.Cr += AText[i] == T('\r');
        count.CrLf += AText[i] == T('\r') && i + 1 < ASize && AText[i + 1] == T('\n');
    }
    count.Lf -= count.CrLf;
    count.Cr -= count.CrLf;
    return count;
}

/// Calls `AEmit(start, length, ascii)` for each line of the bytes: CR LF, CR and LF each end a
/// line, and what follows the last one is a line too when it is not empty. `ascii` tells that no
/// byte of the line is above 127.
template <typename TEmit> void ZtForEachLine(const char *AText, qsizetype ASize, TEmit AEmit)
{
    qsizetype start = 0;
    bool ascii = true;
    auto endLineAt = [&](qsizetype at) {
        if (at < start)
            return; // the LF of a CR LF
        AEmit(AText + start, at - start, ascii);
        start = at + 1 + (AText[at] == '\r' && at + 1 < ASize && AText[at + 1] == '\n');
        ascii = true;
    };
    qsizetype i = 0;
#if defined(__SSE2__)
    const __m128i lf = _mm_set1_epi8('\n');
    const __m128i cr = _mm_set1_epi8('\r');
    for (; i + 16 <= ASize; i += 16) {
        const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i *>(AText + i));
        auto breaks =
            unsigned(_mm_movemask_epi8(_mm_or_si128(_mm_cmpeq_epi8(v, lf), _mm_cmpeq_epi8(v, cr))));
        auto high = unsigned(_mm_movemask_epi8(v));
        for (; breaks; breaks &= breaks - 1) {
            const int bit = std::countr_zero(breaks);
            if (high & ((1u << bit) - 1)) {
                ascii = false;
                high &= ~((1u << bit) - 1);
            }
            endLineAt(i + bit);
        }
        if (high)
            ascii = false;
    }
#endif
    for (; i < ASize; ++i) {
        if (AText[i] == '\n' || AText[i] == '\r')
            endLineAt(i);
        else if (AText[i] & 0x80)
            ascii = false;
    }
    if (start < ASize)
        AEmit(AText + start, ASize - start, ascii);
}

/// `AEmit(line)` for each line of a text of 16-bit units.
template <typename TEmit> void ZtForEachLine(QStringView S, TEmit AEmit)
{
    qsizetype start = 0;
    const qsizetype size = S.size();
    for (qsizetype i = 0; i < size; ++i) {
        const char16_t C = S[i].unicode();
        if (C > u'\r' || (C != u'\r' && C != u'\n'))
            continue;
        AEmit(S.sliced(start, i - start));
        if (C == u'\r' && i + 1 < size && S[i + 1] == u'\n')
            ++i;
        start = i + 1;
    }
    if (start < size)
        AEmit(S.sliced(start));
}
