#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

/// The nearest whole number, halves to the even neighbour. Never changes the rounding mode.
inline double roundHalfEven(double value)
{
    return std::nearbyint(value); // round-to-nearest-even is the mode every program starts in
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
