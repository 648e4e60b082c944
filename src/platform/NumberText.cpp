// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

void appendGeneralNumber(std::string& out, double value)
{
    if (value == 0) {
        out += '0'; // negative zero as well
        return;
    }
    std::array<char, 40> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, 15);
    for (const char* c = buffer.data(); c != end.ptr; ++c)
        out += *c >= 'a' && *c <= 'z' ? static_cast<char>(*c - 'a' + 'A') : *c;
}

std::string fixedNumber(double value)
{
    if (value == 0)
        return "0.00";
    std::array<char, 400> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, 2);
    return {buffer.data(), end.ptr};
}

void appendPadded(std::string& out, std::int32_t number, int digits)
{
    std::array<char, 16> buffer{};
    const std::int64_t wide = number;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), wide < 0 ? -wide : wide);
    if (wide < 0)
        out += '-';
    for (auto length = end.ptr - buffer.data(); length < digits; ++length)
        out += '0';
    out.append(buffer.data(), end.ptr);
}

namespace
{

/// The leading decimal number of a text, taken apart: 0.d1d2d3... times ten to the power `point`.
struct Decimal {
    bool negative = false;
    std::string digits;
    std::int64_t point = 0;
    std::size_t length = 0; ///< of the text that it takes
};

Decimal leadingDecimal(std::string_view text)
{
    Decimal number;
    std::size_t at = 0;
    if (at < text.size() && (text[at] == '+' || text[at] == '-'))
        number.negative = text[at++] == '-';
    for (; at < text.size() && isDigit(text[at]); ++at) {
        number.digits += text[at];
        ++number.point;
    }
    if (at < text.size() && text[at] == '.')
        for (++at; at < text.size() && isDigit(text[at]); ++at)
            number.digits += text[at];
    number.length = at;
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        std::size_t digit = at + 1;
        bool negativeExponent = false;
        if (digit < text.size() && (text[digit] == '+' || text[digit] == '-'))
            negativeExponent = text[digit++] == '-';
        std::int64_t exponent = 0;
        for (; digit < text.size() && isDigit(text[digit]); ++digit)
            if (exponent < 1'000'000'000'000)
                exponent = exponent * 10 + (text[digit] - '0');
        number.point += negativeExponent ? -exponent : exponent;
        if (isDigit(text[digit - 1]))
            number.length = digit;
    }
    return number;
}

/// Rounds half away from zero to `places` digits after the decimal point.
void roundPlaces(Decimal& number, std::int64_t places)
{
    const std::int64_t kept = number.point + places;
    if (kept >= static_cast<std::int64_t>(number.digits.size()))
        return;
    if (kept < 0) {
        number.digits.clear();
        return;
    }
    auto keep = static_cast<std::size_t>(kept);
    bool carry = number.digits[keep] >= '5';
    number.digits.resize(keep);
    while (carry && keep > 0) {
        --keep;
        carry = number.digits[keep] == '9';
        number.digits[keep] = carry ? '0' : static_cast<char>(number.digits[keep] + 1);
    }
    if (carry) {
        number.digits.insert(number.digits.begin(), '1');
        ++number.point;
    }
}

double toDouble(const Decimal& number)
{
    const auto first = number.digits.find_first_not_of('0');
    if (first == std::string::npos)
        return number.negative ? -0.0 : 0.0;
    // 0.digits * 10^point: bound the power, so that it can be written as a plain exponent.
    const std::int64_t power = number.point - static_cast<std::int64_t>(first);
    double value = 0;
    if (power > 400) {
        value = std::numeric_limits<double>::infinity();
    } else if (power > -400) {
        std::string text = "0." + number.digits.substr(first) + "e" + std::to_string(power);
        const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
        if (result.ec == std::errc::result_out_of_range)
            value = power > 0 ? std::numeric_limits<double>::infinity() : 0;
    }
    return number.negative ? -value : value;
}

/// A number as programs are full of: a sign or none, up to nine digits, up to six more behind a point. Its
/// digits and the power of ten are whole numbers that a double holds exactly, so one division rounds as it
/// should (W. D. Clinger, PLDI 1990). Nothing for what is longer, or is no such number.
std::optional<double> shortNumber(std::string_view text)
{
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    std::int64_t digits = 0;
    const auto readDigits = [&](std::size_t most) {
        std::size_t count = 0;
        for (; count < std::min(text.size(), most) && isDigit(text[count]); ++count)
            digits = digits * 10 + (text[count] - '0');
        text.remove_prefix(count);
        return count;
    };
    constexpr std::array<double, 7> powers = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
    const std::size_t whole = readDigits(9);
    std::size_t places = 0;
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        places = readDigits(powers.size() - 1);
    }
    if (!text.empty() || whole + places == 0)
        return std::nullopt;
    const double value = static_cast<double>(digits) / powers[places];
    return negative ? -value : value;
}

} // namespace

double leadingNumber(std::string_view text)
{
    return toDouble(leadingDecimal(text));
}

std::size_t leadingNumberLength(std::string_view text)
{
    return leadingDecimal(text).length;
}

double leadingNumberToNinePlaces(std::string_view text)
{
    if (const auto number = shortNumber(text))
        return *number;
    Decimal number = leadingDecimal(text);
    roundPlaces(number, 9);
    return toDouble(number);
}

std::optional<std::int32_t> wholeNumber(std::string_view text)
{
    text = trimBlanks(text);
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
        if (!text.empty() && text.front() == '-')
            return std::nullopt;
    }
    std::int32_t value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || result.ec != std::errc() || result.ptr != text.data() + text.size())
        return std::nullopt;
    return value;
}
