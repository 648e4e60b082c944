// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/Random.h"

namespace
{
constexpr std::uint64_t multiplier = 6364136223846793005ULL;
constexpr std::uint64_t increment = (0xda3e39cb94b95bdbULL << 1U) | 1U;
} // namespace

Random::Random(std::uint64_t seed)
{
    next32();
    m_state += seed;
    next32();
}

std::uint32_t Random::next32()
{
    const std::uint64_t old = m_state;
    m_state = old * multiplier + increment;
    const auto shifted = static_cast<std::uint32_t>(((old >> 18U) ^ old) >> 27U);
    const auto turn = static_cast<std::uint32_t>(old >> 59U);
    return (shifted >> turn) | (shifted << ((32U - turn) & 31U));
}

std::uint64_t Random::next64()
{
    const std::uint64_t high = next32();
    return (high << 32U) | next32();
}

double Random::nextReal()
{
    return static_cast<double>(next64() >> 11U) * 0x1.0p-53;
}

std::uint64_t Random::below(std::uint64_t limit)
{
    // The first 2^64 mod limit numbers are drawn again, so that every result has the same share of the rest.
    const std::uint64_t surplus = (0 - limit) % limit;
    std::uint64_t drawn = next64();
    while (drawn < surplus)
        drawn = next64();
    return drawn % limit;
}
