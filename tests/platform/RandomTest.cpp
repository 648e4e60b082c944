// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/Random.h"

#include <gtest/gtest.h>

#include <array>

TEST(Random, HasItsKnownFirstNumbers)
{
    // Computed by a second program from the definition of the generator.
    struct Case {
        std::uint64_t seed;
        std::array<std::uint64_t, 3> numbers;
    };
    const Case cases[] = {{0, {0x0a65ce7d97a1773eULL, 0xc03f123af1654d25ULL, 0x85a078925a7eb74fULL}},
                          {1, {0xf063dc4bb1241f91ULL, 0xf842f2c2a65b6d95ULL, 0x4e014d81c31bf73fULL}},
                          {42, {0x713066ea3c7a0d56ULL, 0xf424216a25c89145ULL, 0x43e7ef3e90cff60cULL}},
                          {~0ULL, {0x39e777af16f43572ULL, 0x1ff11270bd64e37eULL, 0x172c9b9200e59c34ULL}}};
    for (const Case& c : cases) {
        Random random(c.seed);
        for (const std::uint64_t number : c.numbers)
            EXPECT_EQ(random.next64(), number) << c.seed;
    }
    EXPECT_EQ(Random(0).nextReal(), static_cast<double>(0x0a65ce7d97a1773eULL >> 11U) / 9007199254740992.0);
}

TEST(Random, GivesEveryNumberOfARangeItsShare)
{
    Random random(7);
    std::array<int, 6> counts{};
    constexpr int throws = 60000;
    for (int i = 0; i < throws; ++i)
        ++counts.at(random.below(6));
    for (const int count : counts)
        EXPECT_NEAR(count, throws / 6, 400); // four standard deviations
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(random.below(1), 0U);
    // Two thirds of all numbers can be had: without drawing again the lower half would come twice as often.
    constexpr std::uint64_t limit = 0xc000000000000000ULL;
    int low = 0;
    for (int i = 0; i < 9000; ++i)
        low += random.below(limit) < limit / 3 ? 1 : 0;
    EXPECT_NEAR(low, 3000, 200);
}
