// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

/// Random numbers that are the same on every machine and with every compiler: the PCG-XSH-RR 64/32 generator
/// of Melissa O'Neill (https://www.pcg-random.org), two of its 32-bit outputs to a 64-bit number, the first
/// on top.
class Random
{
public:
    /// `seed` picks the sequence; the stream constant is 0xda3e39cb94b95bdb.
    explicit Random(std::uint64_t seed = 0);

    /// 64 random bits.
    std::uint64_t next64();
    /// A real number in [0, 1): the upper 53 of 64 random bits divided by 2^53.
    double nextReal();
    /// A whole number from 0 to `limit` - 1, each equally likely (the surplus at the top is drawn again).
    std::uint64_t below(std::uint64_t limit);

    /// What the numbers to come depend on.
    std::uint64_t state() const { return m_state; }

    bool operator==(const Random&) const = default;

private:
    std::uint32_t next32();

    std::uint64_t m_state = 0;
};
