// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// Whole numbers one behind the other, small ones in few bytes: seven bits in each, the lowest first.
class VarintLog
{
public:
    void add(std::uint64_t number)
    {
        for (; number >= 0x80; number >>= 7U)
            m_bytes.push_back(static_cast<std::uint8_t>(number | 0x80U));
        m_bytes.push_back(static_cast<std::uint8_t>(number));
    }
    void add(std::int32_t number) { add(static_cast<std::uint64_t>(number)); }
    std::size_t bytes() const { return m_bytes.size(); }

    /// Reads them in their order.
    class Reader
    {
    public:
        explicit Reader(const VarintLog& log)
            : m_bytes(log.m_bytes)
        {
        }
        bool atEnd() const { return m_position == m_bytes.size(); }
        std::uint64_t next()
        {
            std::uint64_t number = 0;
            for (unsigned shift = 0;; shift += 7) {
                const std::uint8_t byte = m_bytes[m_position++];
                number |= std::uint64_t{byte & 0x7fU} << shift;
                if (byte < 0x80)
                    return number;
            }
        }
        std::int32_t nextInt() { return static_cast<std::int32_t>(next()); }

    private:
        const std::vector<std::uint8_t>& m_bytes;
        std::size_t m_position = 0;
    };

private:
    std::vector<std::uint8_t> m_bytes;
};
