// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

/// The nearest whole number, halves to the even neighbour. Never changes the rounding mode.
inline double roundHalfEven(double value)
{
    // Round-to-nearest-even is the mode every program starts in: where only whole numbers are left between
    // doubles, an addition rounds by itself, and no call of the C library is needed.
    constexpr double wholeFromHere = 0x1.8p52;
    constexpr double inReach = 0x1p51;
    if (std::abs(value) < inReach)
        return (value + wholeFromHere) - wholeFromHere;
    return std::nearbyint(value);
}

/// As roundHalfEven, as a 32-bit integer; values out of range are cut to the nearest one that fits.
inline std::int32_t roundToInt(double value)
{
    const double rounded = roundHalfEven(value);
    if (!(rounded > -2147483648.0)) // also for no number at all
        return std::numeric_limits<std::int32_t>::min();
    if (rounded >= 2147483647.0)
        return std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(rounded);
}
