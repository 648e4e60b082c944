// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "games/GameFolders.h"

#include "platform/DiskFile.h"
#include "support/FullDisk.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <thread>

namespace
{

class GameFolders : public testing::Test
{
protected:
    GameFolders()
    {
        folder.write("zbo/code.txt", "program{\r\n}program\r\n");
        folder.write("zbo/icon.bmp", "cross");
        folder.write("zbo/prop.zbo", "me\r\nNew Game\r\n");
        folder.makeFolder("games");
    }

    GameRecord only() const
    {
        const auto games = ListGames(installation);
        EXPECT_EQ(games.size(), 1U);
        return games.empty() ? GameRecord() : games.front();
    }

    /// The name of a new game folder; empty where none could be made.
    std::string createdName() const
    {
        const NewGameFolder made = CreateGameFolder(installation);
        return made.outcome == NewGameFolder::Outcome::Created ? made.name : std::string();
    }

    ScratchFolder folder;
    Installation installation{folder.path()};
};

TEST_F(GameFolders, TakesTheFirstFreeNumber)
{
    folder.makeFolder("games/00000001");
    folder.makeFolder("games/00000003");
    folder.write("games/00000004", "a file stands in the way");
    EXPECT_EQ(createdName(), "00000002");
    EXPECT_EQ(createdName(), "00000005");
    EXPECT_EQ(folder.read("games/00000002/icon.bmp"), "cross");
    EXPECT_EQ(folder.read("games/00000002/code.txt"), folder.read("zbo/code.txt"));
    EXPECT_EQ(folder.read("games/00000002/prop.zbo"), "me\r\nNew Game\r\n");
}

TEST_F(GameFolders, MakesTheFolderOfTheGamesWhereItIsMissing)
{
    folder.remove("games");
    EXPECT_EQ(createdName(), "00000001");
    EXPECT_TRUE(folder.has("games/00000001/code.txt"));
}

TEST_F(GameFolders, MakesNothingWhereATemplateIsMissing)
{
    for (const char* name : {"code.txt", "icon.bmp", "prop.zbo"}) {
        const std::string kept = folder.read(std::string("zbo/") + name);
        folder.remove(std::string("zbo/") + name);
        const NewGameFolder made = CreateGameFolder(installation);
        EXPECT_EQ(made.outcome, NewGameFolder::Outcome::TemplateMissing);
        EXPECT_EQ(made.name, std::string("zbo\\") + name);
        EXPECT_EQ(folder.entries("games"), 0U);
        folder.write(std::string("zbo/") + name, kept);
    }
}

TEST_F(GameFolders, LeavesNoHalfMadeFolderOnAFullDisk)
{
    folder.write("zbo/icon.bmp", std::string(10000, 'x'));
    const FullDisk disk(5000);
    const NewGameFolder made = CreateGameFolder(installation);
    EXPECT_EQ(made.outcome, NewGameFolder::Outcome::NotWritten);
    EXPECT_EQ(made.name, "games\\00000001\\icon.bmp");
    EXPECT_EQ(folder.entries("games"), 0U);
}

TEST_F(GameFolders, NamesTheFolderThatCannotBeMade)
{
    folder.remove("games");
    folder.write("games", "a file");
    const NewGameFolder made = CreateGameFolder(installation);
    EXPECT_EQ(made.outcome, NewGameFolder::Outcome::NotWritten);
    EXPECT_EQ(made.name, "games");
}

TEST_F(GameFolders, ReadsWhateverAPropertiesFileHolds)
{
    const struct {
        std::string bytes;
        std::string author;
        std::string title;
    } files[] = {
        {"Ann\r\nMy Game\r\n", "Ann", "My Game"},
        {"Ann\nMy Game", "Ann", "My Game"},
        {"Ann\r\n", "Ann", ""},
        {"", "", ""},
        {"\r\nMy Game\r\nmore\r\n", "", "My Game"},
        {"J\xfcrgen\r\n\x80\r\n", "J\xc3\xbcrgen", "\xe2\x82\xac"},
        {"\xef\xbb\xbfZo\xc3\xab\r\nx\r\n", "Zo\xc3\xab", "x"},
    };
    for (const auto& file : files) {
        folder.write("games/00000007/prop.zbo", file.bytes);
        EXPECT_EQ(only(), (GameRecord{file.author, file.title, "00000007\\"})) << file.bytes;
    }
}

TEST_F(GameFolders, SkipsWhatIsNoGame)
{
    folder.write("games/readme.txt", "hello");
    folder.makeFolder("games/empty");
    folder.makeFolder("games/odd/prop.zbo");
    folder.write("games/a\\b/prop.zbo", "no path names it\r\n");
    folder.write("games/my own\xc3\xa4/PROP.ZBO", "a\r\nb\r\n");
    EXPECT_EQ(only(), (GameRecord{"a", "b", "my own\xc3\xa4\\"}));
}

TEST_F(GameFolders, SavesTwoLinesWhateverIsTyped)
{
    folder.makeFolder("games/00000001");
    ASSERT_TRUE(SaveGameProperties(installation, {"Zo\xc3\xab\n", "a\r\nb", "00000001\\"}));
    EXPECT_EQ(folder.read("games/00000001/prop.zbo"), "Zo\xc3\xab\r\nab\r\n");
    {
        const FullDisk disk;
        EXPECT_FALSE(SaveGameProperties(installation, {"x", "y", "00000001\\"}));
    }
    EXPECT_EQ(only(), (GameRecord{"Zo\xc3\xab", "ab", "00000001\\"}));
    EXPECT_FALSE(SaveGameProperties(installation, {"x", "y", "00000002\\"}));
}

TEST_F(GameFolders, NamesSpritesWithoutTheirEnding)
{
    for (const char* name : {"ball.spr", "Bat.SPR", "ball.spb", "spr", "notes.txt"})
        folder.write(std::string("games/00000001/") + name, "");
    for (const char* path : {"games\\00000001", "games\\00000001\\"}) {
        auto names = spriteNames(installation, path);
        std::ranges::sort(names);
        EXPECT_EQ(names, (std::vector<std::string>{"Bat", "ball"})) << path;
    }
}

TEST_F(GameFolders, GiveThePathsOfAGame)
{
    for (const char* name : {"00000001\\", "00000001"})
        EXPECT_EQ((GameRecord{"", "", name}.path()), "games\\00000001");
    EXPECT_EQ((GameRecord{"", "", "00000001\\"}.pathOf("code.txt")), "games\\00000001\\code.txt");
}

TEST_F(GameFolders, LoseWhatKilledProgramsHaveLeftAndNothingElse)
{
    const std::vector<std::string> left = {"games/00000001/.code.txt.aB3dE9.zbsave",
                                           "games/00000002/.icon.bmp.000000.zbsave"};
    const std::vector<std::string> kept = {
        "games/00000001/code.txt",           "games/00000001/code.txt.aB3dE9",
        "games/00000001/.diary.zbsave",      "games/00000001/.code.txt.b.zbsave",
        "games/00000001/x.aB3dE9.zbsave",    "games/00000001/..aB3dE9.zbsave",
        "games/.code.txt.aB3dE9.zbsave",     "zbo/.code.txt.aB3dE9.zbsave",
        "games/00000003/.a.folder.zbsave/x", "games/00000001/.a.aB3dE9.zbsave~",
        "games/00000001/a/.b.aB3dE9.zbsave"};
    for (const auto& file : left)
        folder.write(file, "half");
    for (const auto& file : kept)
        folder.write(file, "whole");
    ClearLeavings(installation);
    for (const auto& file : left)
        EXPECT_FALSE(folder.has(file)) << file;
    for (const auto& file : kept)
        EXPECT_EQ(folder.read(file), "whole") << file;
}

TEST_F(GameFolders, AreClearedWhileOthersSaveWithoutHarm)
{
    folder.makeFolder("games/00000001");
    FileReplacement written(folder.path() / "games/00000001/icon.bmp", "cross");
    std::atomic<bool> isOver = false;
    std::thread clearing([&] {
        while (!isOver)
            ClearLeavings(installation);
    });
    int failures = 0;
    for (int save = 0; save < 100; ++save)
        failures += installation.write("games\\00000001\\code.txt", std::to_string(save)) ? 0 : 1;
    isOver = true;
    clearing.join();
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(folder.read("games/00000001/code.txt"), "99");
    EXPECT_TRUE(written.takePlace());
}

} // namespace
