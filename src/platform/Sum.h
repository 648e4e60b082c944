// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>

/// A running sum (FNV-1a, 64 bits; http://www.isthe.com/chongo/tech/comp/fnv/) in which every bit of what was
/// added counts. It tells changes, not attacks.
class Sum
{
public:
    void addByte(unsigned char byte) { m_value = (m_value ^ byte) * 0x100000001b3U; }
    void add(std::uint64_t number)
    {
        for (unsigned shift = 0; shift < 64; shift += 8)
            addByte(static_cast<unsigned char>(number >> shift));
    }
    /// What is no number has many bits that mean the same.
    void add(double number)
    {
        add(number == number ? std::bit_cast<std::uint64_t>(number) : ~std::uint64_t{0});
    }
    void add(std::string_view text)
    {
        for (const char c : text)
            addByte(static_cast<unsigned char>(c));
        addByte(0);
    }

    std::uint64_t value() const { return m_value; }
    /// As 16 hexadecimal digits.
    std::string text() const
    {
        std::string digits;
        for (unsigned shift = 64; shift > 0; shift -= 4)
            digits += "0123456789abcdef"[(m_value >> (shift - 4)) & 15U];
        return digits;
    }

private:
    std::uint64_t m_value = 0xcbf29ce484222325U;
};
