// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/Installation.h"

#include "platform/DiskFile.h"
#include "platform/FileBundle.h"
#include "support/OrdinaryUser.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{

/// An installation inside a folder that holds other things, too.
class InstallationTest : public testing::Test
{
protected:
    InstallationTest()
    {
        fs::create_directories(root / "Games" / "00000001");
        fs::create_directories(root / "zbo");
        around.write("secret.txt", "secret");
        around.write("kit/Games/00000001/Code.TXT", "code");
        around.write("kit/Games/00000001/Größe.MAP", "map");
        fs::create_symlink(around.path() / "secret.txt", root / "zbo" / "leak.txt");
        fs::create_symlink(around.path(), root / "zbo" / "out");
        fs::create_symlink("../Games/00000001/Code.TXT", root / "zbo" / "inside.txt");
        fs::create_symlink("nowhere", root / "zbo" / "dangling");
        if (::geteuid() == 0) {
            EXPECT_EQ(::chown(around.path().c_str(), nobody, nobody), 0);
            for (const auto& entry : fs::recursive_directory_iterator(around.path()))
                EXPECT_EQ(::lchown(entry.path().c_str(), nobody, nobody), 0);
        }
    }

    const ScratchFolder around;
    const fs::path root = around.path() / "kit";
    const Installation installation{(fs::create_directories(root), root)};
};

} // namespace

TEST_F(InstallationTest, FindsNamesInAnyCaseAndOnlyBelowItsFolder)
{
    struct Case {
        std::string_view path;
        const char* text; ///< null: names nothing
    };
    const Case cases[] = {
        {"games\\00000001\\code.txt", "code"},
        {"GAMES/00000001/CODE.txt", "code"},
        {"games\\00000001\\gRÖSSE.map", nullptr}, // one character for one character
        {"games\\00000001\\GRÖßE.map", "map"},
        {"zbo\\..\\games\\00000001\\code.txt", "code"},
        {"zbo\\inside.txt", "code"},
        {"zbo\\leak.txt", nullptr},
        {"zbo\\out\\secret.txt", nullptr},
        {"zbo\\dangling", nullptr},
        {"..\\secret.txt", nullptr},
        {"zbo\\..\\..\\secret.txt", nullptr},
        {"nothing\\..\\games\\00000001\\code.txt", nullptr},
        {"\\games\\00000001\\code.txt", nullptr},
        {"games\\\\00000001\\code.txt", nullptr},
        {"games\\.\\00000001\\code.txt", nullptr},
        {"games\\00000001\\code.txt\\", nullptr},
        {"games\\00000001\\code.txt\\x", nullptr},
        {"games\\00000001", nullptr},
        {"", nullptr},
        {".", nullptr},
        {"..", nullptr},
        {std::string_view("zbo\0x", 5), nullptr},
    };
    FileBundle bundle;
    EXPECT_TRUE(bundle.add("Games\\00000001\\Code.TXT", "code"));
    EXPECT_TRUE(bundle.add("Games/00000001/Größe.MAP", "map"));
    EXPECT_TRUE(bundle.add("zbo\\inside.txt", "code"));
    for (const FileSource* files :
         {static_cast<const FileSource*>(&installation), static_cast<const FileSource*>(&bundle)})
        for (const Case& c : cases) {
            const auto text = files->readText(c.path);
            EXPECT_EQ(text.has_value(), c.text != nullptr) << c.path;
            EXPECT_EQ(text.value_or(""), c.text ? c.text : "") << c.path;
            EXPECT_EQ(files->isFile(c.path), c.text != nullptr) << c.path;
        }
    EXPECT_TRUE(installation.isFolder("games\\00000001"));
    EXPECT_FALSE(installation.isFolder("zbo\\out"));
    EXPECT_EQ(installation.list("zbo\\out").size(), 0U);
}

TEST_F(InstallationTest, WritesOnlyBelowItsFolderAndUnderTheNameThatIsThere)
{
    EXPECT_TRUE(installation.write("games\\00000001\\CODE.txt", "new code"));
    EXPECT_EQ(installation.readText("games\\00000001\\code.txt"), "new code");
    EXPECT_TRUE(fs::exists(root / "Games" / "00000001" / "Code.TXT"));
    EXPECT_TRUE(installation.write("zbo\\New.txt", "x"));
    EXPECT_TRUE(fs::exists(root / "zbo" / "New.txt"));
    for (const char* path : {"..\\new.txt", "zbo\\leak.txt", "zbo\\out\\new.txt", "zbo\\dangling",
                             "no\\new.txt", "games\\00000001", "zbo\\", "", "."})
        EXPECT_FALSE(installation.write(path, "new")) << path;
    EXPECT_FALSE(fs::exists(around.path() / "new.txt"));
    EXPECT_EQ(readFileBytes(around.path() / "secret.txt", 99), "secret");
    EXPECT_EQ(installation.readText("zbo\\new.txt"), "x");
    EXPECT_TRUE(installation.makeFolder("games\\00000002"));
    EXPECT_FALSE(installation.makeFolder("GAMES\\00000001"));
    EXPECT_TRUE(installation.remove("games\\00000002"));
    EXPECT_FALSE(installation.remove("games\\00000001")); // not empty
}

TEST_F(InstallationTest, AReadOnlyFileStaysAsItIs)
{
    ASSERT_EQ(::chmod((root / "Games/00000001/Code.TXT").c_str(), 0400), 0);
    EXPECT_TRUE(asOrdinaryUser([&] { return !installation.write("games\\00000001\\code.txt", "new"); }));
    EXPECT_EQ(installation.readText("games\\00000001\\code.txt"), "code");
    ASSERT_EQ(::chmod((root / "zbo").c_str(), 0500), 0);
    EXPECT_TRUE(asOrdinaryUser(
        [&] { return !installation.write("zbo\\new.txt", "new") && !installation.makeFolder("zbo\\new"); }));
    ASSERT_EQ(::chmod((root / "zbo").c_str(), 0700), 0);
    EXPECT_TRUE(asOrdinaryUser([&] { return installation.write("zbo\\new.txt", "new"); }));
}

TEST_F(InstallationTest, ListsPlainFilesByPattern)
{
    around.write("kit/zbo/icon.BMP", "");
    around.write("kit/zbo/icon", "");
    around.write("kit/zbo/icons.gif", "");
    const auto files = [&](std::string_view pattern) {
        auto names = installation.listFiles("zbo", pattern);
        std::ranges::sort(names);
        return names;
    };
    using Names = std::vector<std::string>;
    EXPECT_EQ(files("icon.*"), Names{"icon.BMP"});
    EXPECT_EQ(files("*.bmp"), Names{"icon.BMP"});
    EXPECT_EQ(files("ICON*"), (Names{"icon", "icon.BMP", "icons.gif"}));
    EXPECT_EQ(files("Icon"), Names{"icon"});
    EXPECT_EQ(files("icon*con"), Names{}); // no letter counts twice
    EXPECT_EQ(files("*.*"), (Names{"icon", "icon.BMP", "icons.gif", "inside.txt", "leak.txt"}));
    EXPECT_EQ(files(""), Names{});
}

TEST_F(InstallationTest, OfTwoSpellingsTheExactOneIsMeant)
{
    around.write("kit/zbo/A.txt", "upper");
    around.write("kit/zbo/a.TXT", "lower");
    EXPECT_EQ(installation.readText("zbo\\a.TXT"), "lower");
    EXPECT_EQ(installation.readText("zbo\\A.txt"), "upper");
    EXPECT_EQ(installation.readText("zbo\\a.txt"), "upper"); // always the same one
}

TEST(FileBundle, ListsAndKeepsWhatItCanName)
{
    FileBundle bundle;
    for (const char* path : {"", "\\a", "a\\..\\b", "..\\b", "a\\"})
        EXPECT_FALSE(bundle.add(path, "x")) << path;
    for (const char* path : {"top.txt", "zbo\\Icon.BMP", "zbo\\icons\\one.bmp", "zbo2\\other.bmp"})
        EXPECT_TRUE(bundle.add(path, path));
    EXPECT_TRUE(bundle.add("ZBO\\icon.bmp", "later"));
    EXPECT_EQ(bundle.readBytes("zbo\\icon.bmp"), "later");
    EXPECT_EQ(bundle.readBytes("zbo\\icon.bmp", 4), std::nullopt);
    using Names = std::vector<std::string>;
    EXPECT_EQ(bundle.listFiles("zbo", "*.bmp"), Names{"icon.bmp"});
    EXPECT_EQ(bundle.listFiles("", "*.*"), Names{"top.txt"});
    EXPECT_EQ(bundle.listFiles("zbo\\..", "*.*"), Names{"top.txt"});
    EXPECT_EQ(bundle.listFiles("nowhere", "*.*"), Names{});
}
