// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/NumberText.h"

#include "platform/Rounding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

TEST(NumberText, PrintsFifteenDigitsAndNoNegativeZero)
{
    struct Case {
        double value;
        const char* general;
        const char* fixed;
    };
    const Case cases[] = {
        {0, "0", "0.00"},
        {-0.0, "0", "0.00"},
        {2.5, "2.5", "2.50"},
        {0.1 + 0.2, "0.3", "0.30"},
        {-0.001, "-0.001", "-0.00"},
        {999999999999999, "999999999999999", "999999999999999.00"},
        {1e15, "1E+15", "1000000000000000.00"},
        {0.0001, "0.0001", "0.00"},
        {0.00001, "1E-05", "0.00"},
        {1.0 / 3, "0.333333333333333", "0.33"},
        {0.125, "0.125", "0.12"}, // exactly between two: to the even one
        {0.375, "0.375", "0.38"},
        {-12345.678, "-12345.678", "-12345.68"},
        {1e100, "1E+100", nullptr},
    };
    for (const Case& c : cases) {
        std::string general;
        appendGeneralNumber(general, c.value);
        EXPECT_EQ(general, c.general);
        if (c.fixed) {
            EXPECT_EQ(fixedNumber(c.value), c.fixed);
        }
    }
    EXPECT_EQ(fixedNumber(std::numeric_limits<double>::max()).size(), 309U + 3U);
}

TEST(NumberText, PadsNumbersOfAnySign)
{
    struct Case {
        std::int32_t number;
        int digits;
        const char* text;
    };
    for (const Case& c :
         {Case{7, 4, "0007"}, Case{12345, 4, "12345"}, Case{0, 5, "00000"}, Case{-7, 4, "-0007"},
          Case{std::numeric_limits<std::int32_t>::min(), 1, "-2147483648"}}) {
        std::string out = "x";
        appendPadded(out, c.number, c.digits);
        EXPECT_EQ(out, std::string("x") + c.text);
    }
}

TEST(NumberText, ReadsTheLongestLeadingNumber)
{
    const double infinity = std::numeric_limits<double>::infinity();
    struct Case {
        const char* text;
        double plain;
        double rounded; ///< to nine places
    };
    const Case cases[] = {
        {"", 0, 0},
        {"-", 0, 0},
        {".", 0, 0},
        {"+.e5", 0, 0},
        {"abc", 0, 0},
        {"3abc", 3, 3},
        {"+3", 3, 3},
        {"--3", 0, 0},
        {"1.2.3", 1.2, 1.2},
        {"1e3e4", 1000, 1000},
        {"1e", 1, 1},
        {"1e+", 1, 1},
        {"1E2", 100, 100},
        {"0x10", 0, 0},
        {"1,5", 1, 1},
        {"0.1234567894", 0.1234567894, 0.123456789},
        {"0.1234567895", 0.1234567895, 0.12345679},
        {"-0.0000000005", -5e-10, -1e-9},
        {"0.0000000004999", 4.999e-10, 0},
        {"0.9999999995", 0.9999999995, 1},
        {"9.9999999999", 9.9999999999, 10},
        {"5e-10", 5e-10, 1e-9},
        {"4e-10", 4e-10, 0},
        {"5e-11", 5e-11, 0},
        {"123456789012345678", 123456789012345678.0, 123456789012345678.0},
        {"1.7976931348623157e308", std::numeric_limits<double>::max(), std::numeric_limits<double>::max()},
        {"1.8e308", infinity, infinity},
        {"-9e999", -infinity, -infinity},
        {"1e99999999999999999999", infinity, infinity},
        {"0e99999999999999999999", 0, 0},
        {"1e-99999999999999999999", 0, 0},
        {"1e-320", 1e-320, 0},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(leadingNumber(c.text), c.plain) << c.text;
        EXPECT_EQ(leadingNumberToNinePlaces(c.text), c.rounded) << c.text;
    }
    // A thousand zeros more or less change nothing.
    const std::string zeros(1000, '0');
    EXPECT_EQ(leadingNumber("0." + zeros + "1e1001"), 1);
    EXPECT_EQ(leadingNumber("1" + zeros + "e-1000"), 1);
    EXPECT_EQ(leadingNumberToNinePlaces(zeros + "7." + zeros), 7);
}

TEST(NumberText, ShortNumbersAreTheNearestDoubles)
{
    for (std::int64_t digits = 1; digits < 1'000'000'000'000; digits = digits * 3 + 1)
        for (int places = 0; places <= 6; ++places) {
            std::string text = std::to_string(digits);
            if (places > 0 && places <= static_cast<int>(text.size()))
                text.insert(text.size() - static_cast<std::size_t>(places), ".");
            EXPECT_EQ(leadingNumberToNinePlaces(text), leadingNumber(text)) << text;
            EXPECT_EQ(leadingNumberToNinePlaces("-" + text), -leadingNumber(text)) << text;
        }
    EXPECT_TRUE(std::signbit(leadingNumberToNinePlaces("-0.0")));
}

TEST(NumberText, WholeNumbersAreWholeWords)
{
    struct Case {
        const char* text;
        std::optional<std::int32_t> number;
    };
    const Case cases[] = {{"12", 12},
                          {" \t+12 ", 12},
                          {"-12", -12},
                          {"2147483647", 2147483647},
                          {"-2147483648", std::numeric_limits<std::int32_t>::min()},
                          {"2147483648", std::nullopt},
                          {"+-1", std::nullopt},
                          {"- 1", std::nullopt},
                          {"1.0", std::nullopt},
                          {"1x", std::nullopt},
                          {"", std::nullopt},
                          {"+", std::nullopt},
                          {" ", std::nullopt}};
    for (const Case& c : cases)
        EXPECT_EQ(wholeNumber(c.text), c.number) << c.text;
}

TEST(Rounding, HalvesGoToTheEvenNeighbourAndTheRestFits)
{
    struct Case {
        double value;
        std::int32_t rounded;
    };
    const Case cases[] = {{0.5, 0},
                          {1.5, 2},
                          {2.5, 2},
                          {-0.5, 0},
                          {-1.5, -2},
                          {2.4999999, 2},
                          {1e300, 2147483647},
                          {-1e300, std::numeric_limits<std::int32_t>::min()},
                          {2147483646.5, 2147483646},
                          {std::nan(""), std::numeric_limits<std::int32_t>::min()}};
    for (const Case& c : cases)
        EXPECT_EQ(roundToInt(c.value), c.rounded) << c.value;
}
