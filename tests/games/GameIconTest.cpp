// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "games/GameIcon.h"

#include "support/FullDisk.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

class GameIcon : public testing::Test
{
protected:
    /// A game folder with these files, each of which holds its name.
    void fill(const std::vector<std::string>& names) const
    {
        folder.remove("games/00000001");
        folder.makeFolder("games/00000001");
        for (const auto& name : names)
            folder.write("games/00000001/" + name, name);
    }
    std::vector<std::string> files() const
    {
        auto names = installation.list("games\\00000001");
        std::ranges::sort(names);
        return names;
    }
    std::string bytes(const std::string& name) const { return folder.read("games/00000001/" + name); }

    ScratchFolder folder;
    Installation installation{folder.path()};
    const GameRecord game{"", "", "00000001\\"};
};

using Names = std::vector<std::string>;

TEST_F(GameIcon, IsAPictureOfThatNameAndNothingElse)
{
    for (const char* name : {"icon.bmp", "icon.gif", "icon.jpg", "icon.jpeg", "ICON.Jpg"}) {
        fill({name, "icons.bmp"});
        EXPECT_EQ(findGameIcon(installation, game), "games\\00000001\\" + std::string(name));
    }
    for (const char* name :
         {"icon", "icon.spr", "icon.map", "icon.bmp.x3Yz5a", "icon.bmp~", "my icon.bmp", "icons.bmp"}) {
        fill({name});
        EXPECT_EQ(findGameIcon(installation, game), std::nullopt) << name;
    }
    EXPECT_EQ(findGameIcon(installation, {"", "", "00000009\\"}), std::nullopt);
}

TEST_F(GameIcon, ANewOneIsTheOnlyOneAndTakesNothingElseWithIt)
{
    const struct {
        Names old;
        std::string ending;
        Names now;
    } cases[] = {
        {{}, ".bmp", {"icon.bmp"}},
        {{"icon.bmp"}, ".bmp", {"icon.bmp"}},
        {{"icon.bmp"}, ".gif", {"icon.gif"}},
        {{"icon.bmp", "icon.gif", "icon.jpeg", "icon.jpg"}, ".gif", {"icon.gif"}},
        {{"ICON.GIF"}, ".gif", {"icon.gif"}},
        {{"ICON.GIF", "Icon.Jpg", "icon.gif"}, ".gif", {"icon.gif"}},
        {{"icon.gif"}, ".GIF", {"icon.GIF"}},
        {{"icon.map", "icon.spb", "icon.spr", "iconic.bmp"},
         ".bmp",
         {"icon.bmp", "icon.map", "icon.spb", "icon.spr", "iconic.bmp"}},
    };
    for (const auto& row : cases) {
        fill(row.old);
        EXPECT_TRUE(writeGameIcon(installation, game, row.ending, "new"));
        EXPECT_EQ(files(), row.now);
        for (const auto& name : row.now)
            EXPECT_EQ(bytes(name), isGameIcon(name) ? "new" : name);
    }
}

TEST_F(GameIcon, AFullDiskKeepsTheOldOne)
{
    for (const char* old : {"icon.bmp", "icon.gif", "ICON.GIF"}) {
        fill({old});
        const FullDisk disk;
        EXPECT_FALSE(writeGameIcon(installation, game, ".gif", "new"));
        EXPECT_EQ(files(), Names{old});
        EXPECT_EQ(bytes(old), old);
    }
}

TEST_F(GameIcon, IsNeverOfAnotherKind)
{
    fill({"icon.bmp", "icon.spr"});
    for (const char* ending : {".spr", ".png", "", ".bmp\\x"})
        EXPECT_FALSE(writeGameIcon(installation, game, ending, "new")) << ending;
    EXPECT_EQ(files(), (Names{"icon.bmp", "icon.spr"}));
    EXPECT_EQ(bytes("icon.spr"), "icon.spr");
}

TEST_F(GameIcon, TellsWhereAnOldOneStays)
{
    fill({"icon.gif"});
    folder.makeFolder("games/00000001/icon.bmp"); // stands in the way of the new one
    EXPECT_FALSE(writeGameIcon(installation, game, ".bmp", "new"));
    EXPECT_EQ(findGameIcon(installation, game), "games\\00000001\\icon.gif");
}

} // namespace
