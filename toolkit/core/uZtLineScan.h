#pragma once

#include <QtGlobal>

#include <bit>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

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
