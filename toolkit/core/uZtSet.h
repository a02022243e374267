#pragma once

#include <QtGlobal>

#include <array>
#include <initializer_list>

/// A run of consecutive ordinals, both ends included; a single value is a run of one.
template <typename T> struct TZtRange {
    constexpr TZtRange(T value) : First(value), Last(value) {}        ///< one value
    constexpr TZtRange(T first, T last) : First(first), Last(last) {} ///< both ends included
    T First;                                                          ///< the first value
    T Last;                                                           ///< the last, in the set too
};

/// A constant-size set over the ordinals 0 to 255 of an enumeration or of 16-bit characters. A
/// value above 255 is in no set.
template <typename T> class TZtSet {
public:
    constexpr TZtSet() = default;
    /// The values in any of the runs; those above 255 are in none.
    constexpr TZtSet(std::initializer_list<TZtRange<T>> ranges)
    {
        for (const TZtRange<T> &range : ranges)
            for (quint32 i = quint32(range.First); i <= quint32(range.Last) && i < 256; ++i)
                insert(T(i));
    }

    /// A value above 255 changes nothing.
    constexpr void insert(T value)
    {
        if (const auto i = quint32(value); i < 256)
            FBits[i / 64] |= quint64(1) << (i % 64);
    }

    /// False for a value above 255.
    constexpr bool contains(T value) const
    {
        const auto i = quint32(value);
        return i < 256 && ((FBits[i / 64] >> (i % 64)) & 1) != 0;
    }
    constexpr bool operator==(const TZtSet &) const = default;

private:
    std::array<quint64, 4> FBits{};
};

/// A set of characters up to U+00FF.
using TZtCharSet = TZtSet<char16_t>;
