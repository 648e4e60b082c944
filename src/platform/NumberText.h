#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// A number as C's "%.15g" writes it in the "C" locale, with an upper-case E; negative zero is "0".
std::string generalNumber(double value);
void appendGeneralNumber(std::string& out, double value);

/// A number with exactly two decimals and at least one digit before them, no separators ("-0.50").
std::string fixedNumber(double value);

/// Appends `number` in decimal with at least `digits` digits, zero-padded.
void appendPadded(std::string& out, std::int32_t number, int digits);

/// The number formed by the longest leading part of `text` of the form sign? digits? (. digits?)? (e sign?
/// digits)?, 0 where there is none. Too large numbers give an infinity.
double leadingNumber(std::string_view text);
/// As leadingNumber, but the decimal number is first rounded to nine decimal places, halves away from zero.
double leadingNumberToNinePlaces(std::string_view text);

/// A whole 32-bit number written as sign? digits and nothing else; blanks and tabs around it are dropped.
std::optional<std::int32_t> wholeNumber(std::string_view text);

/// `text` without spaces and tabs at both ends.
std::string_view trimBlanks(std::string_view text);
