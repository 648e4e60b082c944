// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/CaseTable.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cwctype>

TEST(CaseTable, AgreesWithTheCLibraryOnTheAlphabetsOfEurope)
{
    const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    ASSERT_TRUE(locale);
    for (char32_t code = 0; code < 0x530; ++code) {
        EXPECT_EQ(lowerCaseOf(code), static_cast<char32_t>(towlower_l(static_cast<wint_t>(code), locale)));
        EXPECT_EQ(upperCaseOf(code), static_cast<char32_t>(towupper_l(static_cast<wint_t>(code), locale)));
    }
    freelocale(locale);
}

TEST(CaseTable, HasBothWaysForEveryPair)
{
    int pairs = 0;
    for (char32_t code = 0; code < 0x110000; ++code) {
        const char32_t lower = lowerCaseOf(code);
        const char32_t upper = upperCaseOf(code);
        EXPECT_EQ(lowerCaseOf(lower), lower);
        EXPECT_EQ(upperCaseOf(upper), upper);
        pairs += lower != code && upperCaseOf(lower) == code ? 1 : 0;
    }
    EXPECT_GT(pairs, 1400);
}
