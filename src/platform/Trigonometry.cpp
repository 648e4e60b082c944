// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/Trigonometry.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace
{

__extension__ using Wide = unsigned __int128;

/// The bits of 2/pi behind the binary point, behind 64 zeros.
constexpr std::array<std::uint64_t, 20> twoOverPi = {
    0x0000000000000000, 0xa2f9836e4e441529, 0xfc2757d1f534ddc0, 0xdb6295993c439041, 0xfe5163abdebbc561,
    0xb7246e3a424dd2e0, 0x06492eea09d1921c, 0xfe1deb1cb129a73e, 0xe88235f52ebb4484, 0xe99c7026b45f7e41,
    0x3991d639835339f4, 0x9c845f8bbdf9283b, 0x1ff897ffde05980f, 0xef2f118b5a0a6d1f, 0x6d367ecf27cb09b7,
    0x4f463f669e5fea2d, 0x7527bac7ebe5f17b, 0x3d0739f78a5292ea, 0x6bfb5fb11f8d5d08, 0x56033046fc7b6bab};

/// pi/2 times 2^127.
constexpr std::uint64_t halfPiHigh = 0xc90fdaa22168c234;
constexpr std::uint64_t halfPiLow = 0xc4c6628b80dc1cd1;

/// An angle as quadrant * pi/2 + (high + low), the sum in [-pi/4, pi/4].
struct Reduced {
    unsigned quadrant = 0;
    double high = 0;
    double low = 0; ///< what `high` has no bits for
};

std::uint64_t upperHalf(Wide number)
{
    return static_cast<std::uint64_t>(number >> 64U);
}

double powerOfTwo(int exponent)
{
    return std::bit_cast<double>(static_cast<std::uint64_t>(1023 + exponent) << 52U);
}

/// 64 bits of twoOverPi from `bit` on.
std::uint64_t bitsFrom(unsigned bit)
{
    const std::size_t word = bit / 64;
    const unsigned shift = bit % 64;
    return shift == 0 ? twoOverPi.at(word)
                      : (twoOverPi.at(word) << shift) | (twoOverPi.at(word + 1) >> (64U - shift));
}

/// Payne and Hanek: an angle is a whole number of 53 bits times a power of two, so of its product with 2/pi
/// only those bits of 2/pi count that do not turn the angle by whole circles, and behind them as many as the
/// result shall have. No double lies closer to a multiple of pi/2 than 2^-61 of a quarter turn; 192 bits, two
/// of them before the point, leave more than 70 correct ones even there.
Reduced reduce(double positive)
{
    const auto bits = std::bit_cast<std::uint64_t>(positive);
    const std::uint64_t mantissa = (bits & 0xfffffffffffffU) | 0x10000000000000U;
    // The angle is mantissa * 2^exponent. The window begins at the bit that is worth 2 after that.
    const int exponent = static_cast<int>(bits >> 52U) - 1075;
    const auto window = static_cast<unsigned>(exponent + 62);

    const Wide last = Wide{mantissa} * bitsFrom(window + 128);
    const Wide middle = Wide{mantissa} * bitsFrom(window + 64) + upperHalf(last);
    std::uint64_t first = mantissa * bitsFrom(window) + upperHalf(middle);
    Wide rest = (Wide{static_cast<std::uint64_t>(middle)} << 64U) | static_cast<std::uint64_t>(last);

    // Quarter turns in the two bits at the top, rounded to the nearest; what is left has a sign.
    Reduced result;
    result.quadrant = static_cast<unsigned>((first + (std::uint64_t{1} << 61U)) >> 62U);
    const bool isNegative = (first & (std::uint64_t{1} << 61U)) != 0;
    first <<= 2U;
    first |= static_cast<std::uint64_t>(rest >> 126U);
    rest <<= 2U;
    if (isNegative) {
        first = ~first + (rest == 0 ? 1 : 0);
        rest = ~rest + 1;
    }

    // The 128 bits from the highest one on, which is worth 2^(-1 - zeros) quarter turns, times pi/2.
    int zeros = 0;
    if (first == 0) {
        first = upperHalf(rest);
        rest <<= 64U;
        zeros = 64;
    }
    const auto more = static_cast<unsigned>(std::countl_zero(first));
    zeros += static_cast<int>(more);
    if (more != 0) {
        first = (first << more) | static_cast<std::uint64_t>(rest >> (128U - more));
        rest <<= more;
    }
    const Wide product = Wide{first} * halfPiHigh + upperHalf(Wide{first} * halfPiLow) +
                         upperHalf(Wide{upperHalf(rest)} * halfPiHigh);

    const std::uint64_t top = upperHalf(product);
    const double high = static_cast<double>(top & ~std::uint64_t{0x7ff}) * powerOfTwo(-63 - zeros);
    const auto lowBits = ((top & 0x7ffU) << 53U) | (static_cast<std::uint64_t>(product) >> 11U);
    const double low = static_cast<double>(lowBits) * powerOfTwo(-63 - 53 - zeros);
    result.high = high + low;
    result.low = low - (result.high - high);
    if (isNegative) {
        result.high = -result.high;
        result.low = -result.low;
    }
    return result;
}

/// The sine of x + y in [-pi/4, pi/4], y what x has no bits for.
double sineNearZero(double x, double y)
{
    const double z = x * x;
    const double w = z * z;
    const double r = 8.33333333332248946124e-03 +
                     z * (-1.98412698298579493134e-04 + z * 2.75573137070700676789e-06) +
                     z * w * (-2.50507602534068634195e-08 + z * 1.58969099521155010221e-10);
    const double v = z * x;
    return x - ((z * (0.5 * y - v * r) - y) - v * -1.66666666666666324348e-01);
}

/// The cosine of x + y in [-pi/4, pi/4].
double cosineNearZero(double x, double y)
{
    const double z = x * x;
    const double w = z * z;
    const double r = z * (4.16666666666666019037e-02 +
                          z * (-1.38888888888741095749e-03 + z * 2.48015872894767294178e-05)) +
                     w * w *
                         (-2.75573143513906633035e-07 +
                          z * (2.08757232129817482790e-09 + z * -1.13596475577881948265e-11));
    const double half = 0.5 * z;
    const double near = 1.0 - half;
    return near + (((1.0 - near) - half) + (z * r - x * y));
}

} // namespace

SineCosine sineCosine(double radians)
{
    constexpr double quarterPi = 7.85398163397448278999e-01;
    if (!std::isfinite(radians))
        return {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN()};
    const double positive = std::fabs(radians);
    const Reduced angle = positive <= quarterPi ? Reduced{0, positive, 0} : reduce(positive);
    const double sine = sineNearZero(angle.high, angle.low);
    const double cosine = cosineNearZero(angle.high, angle.low);
    SineCosine result;
    switch (angle.quadrant % 4) {
    case 0:
        result = {sine, cosine};
        break;
    case 1:
        result = {cosine, -sine};
        break;
    case 2:
        result = {-sine, -cosine};
        break;
    default:
        result = {-cosine, sine};
        break;
    }
    if (std::signbit(radians))
        result.sine = -result.sine;
    return result;
}
