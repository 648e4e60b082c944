// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/Trigonometry.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

// These bits are part of what a run is: with others, recorded runs would go differently.
TEST(Trigonometry, HasTheSameBitsEverywhere)
{
    struct Case {
        double degrees;
        std::uint64_t sine;
        std::uint64_t cosine;
    };
    for (const Case& c :
         {Case{0, 0, 0x3ff0000000000000}, Case{90, 0x3ff0000000000000, 0x3cdd1a62633145c0},
          Case{30, 0x3fdffffffffffff8, 0x3febb67ae8584cad}, Case{-45, 0xbfe6a09e667f3bc7, 0x3fe6a09e667f3bd2},
          Case{123.456, 0x3feab2a9b25a9ac3, 0xbfe1a43870d371ea},
          Case{1e5, 0xbfef838b8c812786, 0x3fc63a1a7e0a7030},
          Case{1e22, 0xbfd721f7a69ad445, 0xbfedd628253271c2},
          Case{-2.5e300, 0xbfef7620a1f2b28c, 0xbfc76282d5dcae1e}}) {
        const SineCosine found = sineCosine(c.degrees * 3.14159265358979 / 180);
        EXPECT_EQ(std::bit_cast<std::uint64_t>(found.sine), c.sine) << c.degrees;
        EXPECT_EQ(std::bit_cast<std::uint64_t>(found.cosine), c.cosine) << c.degrees;
    }
}

TEST(Trigonometry, StaysWithinOneUnitOfTheLastPlace)
{
    const auto isNear = [](double found, double wanted) {
        return found == wanted || std::nextafter(found, wanted) == wanted;
    };
    const auto check = [&](double angle) {
        const SineCosine found = sineCosine(angle);
        EXPECT_TRUE(isNear(found.sine, std::sin(angle))) << angle;
        EXPECT_TRUE(isNear(found.cosine, std::cos(angle))) << angle;
    };
    for (double angle = -20; angle < 20; angle += 0.00390625 * 1.1)
        check(angle);
    for (double angle = 1e-300; std::isfinite(angle); angle *= -7.3)
        check(angle);
}

TEST(Trigonometry, TakesEveryDouble)
{
    // Of all doubles the nearest to a multiple of pi/2; some C libraries miss its cosine by eight units.
    EXPECT_EQ(sineCosine(6381956970095103 * std::ldexp(1.0, 797)).cosine, -0x1.14ae72e6ba22fp-61);
    EXPECT_TRUE(std::signbit(sineCosine(-0.0).sine));
    for (const double none :
         {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_TRUE(std::isnan(sineCosine(none).sine));
        EXPECT_TRUE(std::isnan(sineCosine(none).cosine));
    }
}
