// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/SpriteFiles.h"

#include "platform/BitmapFile.h"
#include "platform/pictures/PictureFiles.h"
#include "sprites/SpriteModel.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

namespace
{

constexpr Pixel red = rgb(255, 0, 0);

class SpriteFilesTest : public testing::Test
{
protected:
    SpriteFilesTest()
    {
        folder.makeFolder("game");
        model.clear({2, 1});
        model.setPixel(0, 0, red);
    }

    ScratchFolder folder;
    Installation installation{folder.path()};
    PictureFiles pictures;
    SpriteFiles files{installation, pictures, "game\\"};
    SpriteModel model;
};

} // namespace

TEST_F(SpriteFilesTest, KnowTheSpriteThatWasReadOrWrittenLast)
{
    EXPECT_EQ(files.name(), "");
    ASSERT_TRUE(files.save("ball", model));
    EXPECT_EQ(files.name(), "ball");
    ASSERT_TRUE(files.save("cup", model));
    SpriteModel other;
    EXPECT_EQ(files.load("ball", other), SpriteLoad::Done);
    EXPECT_EQ(files.name(), "ball");
    EXPECT_EQ(other.pixel(0, 0), red);
    EXPECT_EQ(files.load("nowhere", other), SpriteLoad::Missing);
    EXPECT_EQ(files.name(), "ball");
    folder.makeFolder("game/full.spr");
    EXPECT_FALSE(files.save("full", model));
    EXPECT_EQ(files.name(), "ball");
    files.startNew();
    EXPECT_EQ(files.name(), "");
}

TEST_F(SpriteFilesTest, TellWhatSpeaksAgainstAName)
{
    ASSERT_TRUE(files.save("ball", model));
    ASSERT_TRUE(files.save("mine", model));
    folder.write("game/loose.spb", "");
    const std::pair<const char*, SpriteNameFault> cases[] = {
        {"", SpriteNameFault::Empty},     {"icon", SpriteNameFault::Icon}, {"icons", SpriteNameFault::None},
        {"ball", SpriteNameFault::Taken}, {"mine", SpriteNameFault::None}, {"loose", SpriteNameFault::None}};
    for (const auto& [name, fault] : cases)
        EXPECT_EQ(files.faultOf(name), fault) << name;
}

TEST_F(SpriteFilesTest, NoticeWhatSomebodyElseHasChanged)
{
    for (const bool isLoaded : {false, true}) {
        for (const char* file : {"ball.spr", "ball.spb"}) {
            ASSERT_TRUE(files.save("ball", model));
            if (isLoaded) {
                ASSERT_EQ(files.load("ball", model), SpriteLoad::Done);
            }
            EXPECT_EQ(files.changedFile("ball"), std::nullopt);
            const std::string path = std::string("game/") + file;
            folder.write(path, folder.read(path) + " ");
            EXPECT_EQ(files.changedFile("ball"), file);
            EXPECT_EQ(files.changedFile("cup"), std::nullopt); // that is no change, but another sprite
            ASSERT_TRUE(files.save("ball", model));
            EXPECT_EQ(files.changedFile("ball"), std::nullopt);
        }
    }
}

TEST_F(SpriteFilesTest, SayWhyASpriteCannotBeDrawnOn)
{
    const std::string picture = bitmapFile(Surface(4, 4));
    const struct {
        const char *description, *picture;
        SpriteLoad load;
    } cases[] = {
        {"x\r\nSimple,2,1,1\r\n", picture.c_str(), SpriteLoad::Done},
        {"x\r\nSimple,1,1,1\r\n", picture.c_str(), SpriteLoad::Done},
        {"x\r\nSimple,2,5,1\r\n", picture.c_str(), SpriteLoad::Incomplete},
        {"x\r\nSimple,2,1,5\r\n", picture.c_str(), SpriteLoad::Incomplete},
        {"x\r\nSimple,3,1,1\r\n", picture.c_str(), SpriteLoad::Incomplete},
        {"x\r\nSimple,0,1,1\r\n", picture.c_str(), SpriteLoad::Damaged},
        {"x\r\nSimple,1,0,1\r\n", picture.c_str(), SpriteLoad::Damaged},
        {"x\r\nsimple,2,1,1\r\n", picture.c_str(), SpriteLoad::Damaged},
        {"x\r\nSimple,2,1,1\r\n", "BM", SpriteLoad::Damaged},
        {"x\r\nSimple,1025,1,1\r\n", picture.c_str(), SpriteLoad::TooLarge},
    };
    for (const auto& c : cases) {
        folder.write("game/it.spr", c.description);
        folder.write("game/it.spb", c.picture == picture.c_str() ? picture : c.picture);
        const auto load = files.load("it", model);
        EXPECT_EQ(load, c.load) << c.description;
    }
}
