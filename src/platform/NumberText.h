// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Appends a number as C's "%.15g" writes it in the "C" locale, with an upper-case E; negative zero is "0".
void appendGeneralNumber(std::string& out, double value);

/// A number with exactly two decimals and at least one digit before them, no separators ("-0.50").
std::string fixedNumber(double value);

/// Appends `number` in decimal with at least `digits` digits, zero-padded.
void appendPadded(std::string& out, std::int32_t number, int digits);

/// The number formed by the longest leading part of `text` of the form sign? digits? (. digits?)? (e sign?
/// digits)?, 0 where there is none. Too large numbers give an infinity.
double leadingNumber(std::string_view text);
/// How many bytes of `text` that part takes.
std::size_t leadingNumberLength(std::string_view text);
/// As leadingNumber, but the decimal number is first rounded to nine decimal places, halves away from zero.
double leadingNumberToNinePlaces(std::string_view text);

/// A whole 32-bit number written as sign? digits and nothing else; blanks and tabs around it are dropped.
std::optional<std::int32_t> wholeNumber(std::string_view text);

constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// `text` without the characters at both ends that are blanks.
template<typename IsBlank> constexpr std::string_view trim(std::string_view text, IsBlank isBlank)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// `text` without spaces and tabs at both ends.
constexpr std::string_view trimBlanks(std::string_view text)
{
    return trim(text, [](char c) { return c == ' ' || c == '\t'; });
}

/// `text` without spaces at both ends; tabs stay.
constexpr std::string_view trimSpaces(std::string_view text)
{
    return trim(text, [](char c) { return c == ' '; });
}
