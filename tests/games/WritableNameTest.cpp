// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "games/WritableName.h"

#include "platform/TextFile.h"

#include <gtest/gtest.h>

TEST(WritableName, IsOneThatProgramsCanWrite)
{
    const std::pair<std::string, std::string> cases[] = {
        {"My Rocket", "my_rocket"},
        {" ball-2 ", "ball-2"},
        {"tab\there", "tab_here"},
        {"AZaz09_-", "azaz09_-"},
        {"a\"b;c{d}\\e/f.spr", "abcdefspr"},
        {"`@[^:~,", ""}, // what stands beside letters and digits in the table of characters
        {"\u00c4pfel \u732b", "\u00e4pfel_\u732b"},
        {"\u0440", "\u0440"}, // holds the first byte that is no plain letter
        {"!?", ""},
        {"", ""},
        {"..", ""},
        {"half a letter \xc3", ""},
        {std::string(40, 'x'), std::string(40, 'x')},
        {std::string(41, 'x'), std::string(40, 'x')},
        {std::string(38, 'x') + "\u732b", std::string(38, 'x')}, // three bytes, of which two would fit
        {std::string(37, 'x') + "\u732b", std::string(37, 'x') + "\u732b"},
    };
    for (const auto& [wish, name] : cases) {
        EXPECT_EQ(writableName(wish), name);
        EXPECT_EQ(writableName(name), name);
    }
}

TEST(WritableName, TheIconKeepsItsOwn)
{
    for (const char* name : {"icon", "Icon", "ICON"})
        EXPECT_TRUE(isIconName(name)) << name;
    for (const char* name : {"icons", "ico", "", "my_icon", "icon.bmp"})
        EXPECT_FALSE(isIconName(name)) << name;
}
