#include "runtime/GameFolders.h"

#include "support/FullDisk.h"
#include "support/TemporaryInstallation.h"

#include <gtest/gtest.h>

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

    TemporaryInstallation folder;
    Installation installation{folder.root()};
    std::string missing;
};

TEST_F(GameFolders, TakesTheFirstFreeNumber)
{
    folder.makeFolder("games/00000001");
    folder.makeFolder("games/00000003");
    folder.write("games/00000004", "a file stands in the way");
    EXPECT_EQ(CreateGameFolder(installation, missing), "00000002");
    EXPECT_EQ(CreateGameFolder(installation, missing), "00000005");
    EXPECT_EQ(folder.read("games/00000002/icon.bmp"), "cross");
    EXPECT_EQ(folder.read("games/00000002/code.txt"), folder.read("zbo/code.txt"));
    EXPECT_EQ(folder.read("games/00000002/prop.zbo"), "me\r\nNew Game\r\n");
}

TEST_F(GameFolders, MakesTheFolderOfTheGamesWhereItIsMissing)
{
    folder.remove("games");
    EXPECT_EQ(CreateGameFolder(installation, missing), "00000001");
    EXPECT_TRUE(folder.has("games/00000001/code.txt"));
}

TEST_F(GameFolders, MakesNothingWhereATemplateIsMissing)
{
    for (const char* name : {"code.txt", "icon.bmp", "prop.zbo"}) {
        const std::string kept = folder.read(std::string("zbo/") + name);
        folder.remove(std::string("zbo/") + name);
        EXPECT_EQ(CreateGameFolder(installation, missing), std::nullopt);
        EXPECT_EQ(missing, std::string("zbo\\") + name);
        EXPECT_EQ(folder.entries("games"), 0U);
        folder.write(std::string("zbo/") + name, kept);
    }
}

TEST_F(GameFolders, LeavesNoHalfMadeFolderOnAFullDisk)
{
    folder.write("zbo/icon.bmp", std::string(10000, 'x'));
    const FullDisk disk(5000);
    EXPECT_EQ(CreateGameFolder(installation, missing), std::nullopt);
    EXPECT_EQ(missing, "games\\00000001\\icon.bmp");
    EXPECT_EQ(folder.entries("games"), 0U);
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

TEST_F(GameFolders, ChoosingAnIconLeavesExactlyOne)
{
    const struct {
        const char* old;
        const char* older;
        const char* chosen;
        const char* now;
    } cases[] = {
        {"icon.bmp", nullptr, "cat.gif", "icon.gif"},    {"icon.bmp", nullptr, "dog.bmp", "icon.bmp"},
        {"icon.bmp", "icon.gif", "cat.gif", "icon.gif"}, {"ICON.GIF", nullptr, "cat.gif", "icon.gif"},
        {nullptr, nullptr, "dog.bmp", "icon.bmp"},       {"Icon.Jpg", "icon.gif", "dog.bmp", "icon.bmp"},
    };
    folder.write("zbo/icons/cat.gif", "cat");
    folder.write("zbo/icons/dog.bmp", "dog");
    const GameRecord game{"", "", "00000001\\"};
    for (const auto& row : cases) {
        folder.remove("games/00000001");
        folder.write("games/00000001/iconic.txt", "no icon");
        for (const char* old : {row.old, row.older}) {
            if (old != nullptr)
                folder.write(std::string("games/00000001/") + old, "old");
        }
        EXPECT_TRUE(ChooseGameIcon(installation, game, row.chosen));
        EXPECT_EQ(folder.entries("games/00000001"), 2U) << row.now;
        EXPECT_EQ(folder.read(std::string("games/00000001/") + row.now),
                  std::string(row.chosen).substr(0, 3));
        EXPECT_EQ(findGameIcon(installation, game), std::string("games\\00000001\\") + row.now);
    }
}

TEST_F(GameFolders, AFullDiskKeepsTheOldIcon)
{
    folder.write("zbo/icons/cat.gif", "cat");
    const GameRecord game{"", "", "00000001\\"};
    for (const char* old : {"icon.bmp", "icon.gif"}) {
        folder.remove("games/00000001");
        folder.write(std::string("games/00000001/") + old, "old");
        const FullDisk disk;
        EXPECT_FALSE(ChooseGameIcon(installation, game, "cat.gif"));
        EXPECT_EQ(folder.read(std::string("games/00000001/") + old), "old");
    }
    folder.write("zbo/icons/README", "no picture");
    for (const char* name : {"gone.gif", "README"}) {
        EXPECT_FALSE(ChooseGameIcon(installation, game, name)) << name;
        EXPECT_EQ(folder.read("games/00000001/icon.gif"), "old") << name;
    }
}

TEST_F(GameFolders, FindsNoIconWhereThereIsNone)
{
    EXPECT_EQ(findGameIcon(installation, {"", "", "00000009\\"}), std::nullopt);
    folder.write("games/00000001/icons.bmp", "");
    EXPECT_EQ(findGameIcon(installation, {"", "", "00000001\\"}), std::nullopt);
}

} // namespace
