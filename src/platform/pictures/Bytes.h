// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string_view>

/// Reads numbers, the least significant byte first, from the bytes of a file. Behind their end everything is
/// 0.
class Bytes
{
public:
    explicit Bytes(std::string_view bytes)
        : m_bytes(bytes)
    {
    }

    std::size_t size() const { return m_bytes.size(); }
    bool has(std::size_t at) const { return at < m_bytes.size(); }
    unsigned byte(std::size_t at) const { return has(at) ? static_cast<unsigned char>(m_bytes[at]) : 0U; }
    unsigned two(std::size_t at) const { return byte(at) | (byte(at + 1) << 8U); }
    std::uint32_t four(std::size_t at) const { return two(at) | (std::uint32_t{two(at + 2)} << 16U); }

private:
    std::string_view m_bytes;
};
