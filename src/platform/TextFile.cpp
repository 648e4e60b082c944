// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/TextFile.h"

#include "platform/CaseTable.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace
{

/// Length of the well-formed UTF-8 sequence at `at`, or 0.
std::size_t sequenceLength(std::string_view bytes, std::size_t at)
{
    const auto byte = [&](std::size_t i) -> unsigned {
        return at + i < bytes.size() ? static_cast<unsigned char>(bytes[at + i]) : 0U;
    };
    const auto follows = [&](std::size_t i) { return (byte(i) & 0xc0U) == 0x80U; };
    const unsigned lead = byte(0);
    if (lead < 0x80)
        return 1;
    if (lead >= 0xc2 && lead <= 0xdf)
        return follows(1) ? 2 : 0;
    if (lead >= 0xe0 && lead <= 0xef) {
        if (!follows(1) || !follows(2) || (lead == 0xe0 && byte(1) < 0xa0) ||
            (lead == 0xed && byte(1) > 0x9f))
            return 0;
        return 3;
    }
    if (lead >= 0xf0 && lead <= 0xf4) {
        if (!follows(1) || !follows(2) || !follows(3) || (lead == 0xf0 && byte(1) < 0x90) ||
            (lead == 0xf4 && byte(1) > 0x8f))
            return 0;
        return 4;
    }
    return 0;
}

/// Whether the eight bytes from there on are all ASCII, as most of most texts are.
bool isAsciiWord(std::string_view bytes, std::size_t at)
{
    std::uint64_t word = 0;
    if (bytes.size() - at < sizeof word)
        return false;
    std::memcpy(&word, bytes.data() + at, sizeof word);
    return (word & 0x8080808080808080U) == 0;
}

bool hasProductLineEnds(std::string_view text)
{
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = text.find('\n', at);
        if (end == std::string_view::npos || text.find('\r', at) + 1 != end)
            return false;
        at = end + 1;
    }
    return true;
}

char32_t decodeSequence(std::string_view bytes, std::size_t at, std::size_t length)
{
    const auto byte = [&](std::size_t i) {
        return static_cast<char32_t>(static_cast<unsigned char>(bytes[at + i]));
    };
    switch (length) {
    case 2:
        return ((byte(0) & 0x1fU) << 6U) | (byte(1) & 0x3fU);
    case 3:
        return ((byte(0) & 0x0fU) << 12U) | ((byte(1) & 0x3fU) << 6U) | (byte(2) & 0x3fU);
    case 4:
        return ((byte(0) & 0x07U) << 18U) | ((byte(1) & 0x3fU) << 12U) | ((byte(2) & 0x3fU) << 6U) |
               (byte(3) & 0x3fU);
    default:
        return byte(0);
    }
}

void appendUtf8(std::string& out, char32_t code)
{
    const auto put = [&](char32_t value) { out += static_cast<char>(static_cast<unsigned char>(value)); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xc0U | (code >> 6U));
        put(0x80U | (code & 0x3fU));
    } else if (code < 0x10000) {
        put(0xe0U | (code >> 12U));
        put(0x80U | ((code >> 6U) & 0x3fU));
        put(0x80U | (code & 0x3fU));
    } else {
        put(0xf0U | (code >> 18U));
        put(0x80U | ((code >> 12U) & 0x3fU));
        put(0x80U | ((code >> 6U) & 0x3fU));
        put(0x80U | (code & 0x3fU));
    }
}

// Windows-1252, 0x80 to 0x9f; the five bytes without a character stand for the control codes of the same
// number.
constexpr std::array<char32_t, 32> windows1252 = {
    0x20ac, 0x81,   0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021, 0x02c6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8d,   0x017d, 0x8f,   0x90,   0x2018, 0x2019, 0x201c, 0x201d, 0x2022,
    0x2013, 0x2014, 0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0x9d,   0x017e, 0x0178};

std::string decodeWindows1252(std::string_view bytes)
{
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 8);
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        appendUtf8(out, byte >= 0x80 && byte < 0xa0 ? windows1252.at(byte - 0x80U) : byte);
    }
    return out;
}

/// `bytes` without their byte order mark; half a pair of surrogates and half a unit become U+FFFD.
std::string decodeUtf16(std::string_view bytes, std::endian order)
{
    constexpr char32_t replacement = 0xfffd;
    const auto unit = [&](std::size_t at) -> char32_t {
        if (at + 1 >= bytes.size())
            return replacement;
        const char32_t first = static_cast<unsigned char>(bytes[at]);
        const char32_t second = static_cast<unsigned char>(bytes[at + 1]);
        return order == std::endian::big ? (first << 8U) | second : (second << 8U) | first;
    };
    std::string out;
    out.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size(); at += 2) {
        const char32_t code = unit(at);
        const char32_t next = unit(at + 2);
        const bool isSurrogate = code >= 0xd800 && code <= 0xdfff;
        if (code <= 0xdbff && isSurrogate && next >= 0xdc00 && next <= 0xdfff) {
            appendUtf8(out, 0x10000U + ((code - 0xd800U) << 10U) + (next - 0xdc00U));
            at += 2;
        } else {
            appendUtf8(out, isSurrogate ? replacement : code);
        }
    }
    return out;
}

template<typename Convert> void convertCase(std::string& out, std::string_view utf8, Convert convert)
{
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t length = sequenceLength(utf8, at);
        if (length == 0) {
            out += utf8[at++];
            continue;
        }
        appendUtf8(out, convert(decodeSequence(utf8, at, length)));
        at += length;
    }
}

} // namespace

bool isValidUtf8(std::string_view bytes)
{
    for (std::size_t at = 0; at < bytes.size();) {
        if (isAsciiWord(bytes, at)) {
            at += sizeof(std::uint64_t);
            continue;
        }
        const std::size_t length = sequenceLength(bytes, at);
        if (length == 0)
            return false;
        at += length;
    }
    return true;
}

std::string decodeText(std::string bytes)
{
    if (isValidUtf8(bytes)) {
        constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
        if (bytes.starts_with(byteOrderMark))
            bytes.erase(0, byteOrderMark.size());
        return bytes;
    }
    const std::string_view behindMark =
        std::string_view(bytes).substr(std::min<std::size_t>(bytes.size(), 2));
    if (bytes.starts_with("\xff\xfe"))
        return decodeUtf16(behindMark, std::endian::little);
    if (bytes.starts_with("\xfe\xff"))
        return decodeUtf16(behindMark, std::endian::big);
    return decodeWindows1252(bytes);
}

std::vector<std::string_view> splitLines(std::string_view text)
{
    std::vector<std::string_view> lines;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = start;
        while (end < text.size() && text[end] != '\r' && text[end] != '\n')
            ++end;
        lines.push_back(text.substr(start, end - start));
        start = end + (text.substr(end, 2) == "\r\n" ? 2 : 1);
    }
    return lines;
}

std::string withProductLineEnds(std::string text)
{
    if (hasProductLineEnds(text))
        return text;
    std::string out;
    out.reserve(text.size() + text.size() / 16);
    for (const std::string_view line : splitLines(text))
        out.append(line).append("\r\n");
    return out;
}

std::string lowerCase(std::string_view utf8)
{
    std::string out;
    out.reserve(utf8.size());
    convertCase(out, utf8, lowerCaseOf);
    return out;
}

std::string upperCase(std::string_view utf8)
{
    std::string out;
    out.reserve(utf8.size());
    appendUpperCase(out, utf8);
    return out;
}

void appendUpperCase(std::string& out, std::string_view utf8)
{
    convertCase(out, utf8, upperCaseOf);
}
