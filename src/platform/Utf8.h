// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string_view>

// Characters of UTF-8 texts, counted without decoding them. A stray byte belongs to the character before it.

/// Whether the byte continues a character.
constexpr bool isFollowByte(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xc0U) == 0x80U;
}

/// Number of bytes of the first character of a text; 0 of an empty one.
constexpr std::size_t firstCharacterLength(std::string_view text)
{
    std::size_t length = text.empty() ? 0 : 1;
    while (length < text.size() && isFollowByte(text[length]))
        ++length;
    return length;
}

constexpr std::size_t characterCount(std::string_view text)
{
    std::size_t count = 0;
    for (const char byte : text)
        count += isFollowByte(byte) ? 0U : 1U;
    return count;
}
