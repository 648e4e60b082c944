// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "forms/NameOrder.h"

#include "forms/Texts.h"

#include <gtest/gtest.h>

#include <algorithm>

TEST(NameOrder, PutsNamesAsPeopleDo)
{
    const std::vector<std::string> names = {
        "",      "0",      "7up", "10",   "\u00e4pfel", "ball",    "ball 3x",
        "Ball2", "ball2b", "bat", "bat2", "BAT10",      "bat010x", "bat99999999999999999999",
    };
    std::vector<std::string> shuffled = names;
    for (std::size_t turn = 0; turn < names.size(); ++turn) {
        std::rotate(shuffled.begin(), shuffled.begin() + 5, shuffled.end());
        std::vector<std::string> sorted;
        for (const QString& name : forms::inNameOrder(shuffled))
            sorted.push_back(forms::toUtf8(name));
        EXPECT_EQ(sorted, names);
    }
    EXPECT_EQ(forms::inNameOrder({"D1", "d1"}), forms::inNameOrder({"d1", "D1"}));
}
