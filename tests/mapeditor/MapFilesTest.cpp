// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "mapeditor/MapFiles.h"

#include "mapeditor/MapPainting.h"
#include "platform/BitmapFile.h"
#include "platform/pictures/PictureFiles.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

namespace
{

class MapFilesTest : public testing::Test
{
protected:
    MapFilesTest()
    {
        folder.makeFolder("games/one");
        folder.makeFolder("games/two");
        painting.create(3);
    }

    ScratchFolder folder;
    Installation installation{folder.path()};
    PictureFiles pictures;
    MapFiles files{installation, pictures};
    MapPainting painting;
};

} // namespace

TEST_F(MapFilesTest, KnowTheMapThatWasReadOrWrittenLast)
{
    ASSERT_TRUE(files.save("one\\hall", painting));
    EXPECT_EQ(files.name(), "one\\hall");
    EXPECT_FALSE(files.save("three\\hall", painting));
    EXPECT_EQ(files.load("one\\gone", painting), MapLoad::Missing);
    EXPECT_EQ(files.name(), "one\\hall");
    ASSERT_TRUE(files.save("two\\hall", painting));
    EXPECT_EQ(files.load("one\\hall", painting), MapLoad::Done);
    EXPECT_EQ(files.name(), "one\\hall");
    folder.write("games/one/cut", "\r\n\r\n 3\r\n 3\r\nlava\r\n");
    EXPECT_EQ(files.load("one\\cut", painting), MapLoad::Damaged);
    EXPECT_EQ(files.name(), "");
    EXPECT_EQ(files.load("one\\hall", painting), MapLoad::Done);
    files.startNew();
    EXPECT_EQ(files.name(), "");
}

TEST_F(MapFilesTest, TellWhatSpeaksAgainstAName)
{
    folder.write("games/one/notes", "Do not forget!");
    folder.write("zorbino.exe", "the program");
    ASSERT_TRUE(files.save("one\\hall", painting));
    using enum MapNameFault;
    const std::pair<const char*, MapNameFault> cases[] = {{"one\\hall", None},
                                                          {"one\\new", None},
                                                          {"one\\notes", GameFile},
                                                          {"..\\zorbino.exe", LeadsOut},
                                                          {"one\\a b", Unwritable}};
    for (const auto& [name, fault] : cases)
        EXPECT_EQ(files.faultOf(name), fault) << name;
}

TEST_F(MapFilesTest, NoticeWhatSomebodyElseHasChanged)
{
    EXPECT_EQ(files.changedFile("one\\hall"), std::nullopt);
    ASSERT_TRUE(files.save("one\\hall", painting));
    ASSERT_TRUE(files.save("two\\hall", painting));
    ASSERT_EQ(files.load("one\\hall", painting), MapLoad::Done);
    EXPECT_EQ(files.changedFile("one\\hall"), std::nullopt);
    for (const char* theirs : {"games/one/hall", "games/two/hall"})
        folder.write(theirs, folder.read(theirs) + " ");
    EXPECT_EQ(files.changedFile("one\\hall"), "hall");
    EXPECT_EQ(files.changedFile("ONE/Hall"), "Hall");
    EXPECT_EQ(files.changedFile("two\\hall"), std::nullopt); // that is another map
    ASSERT_TRUE(files.save("one\\hall", painting));
    EXPECT_EQ(files.changedFile("one\\hall"), std::nullopt);
}

TEST_F(MapFilesTest, FindThePictureWhereTheMapSaysOrBesideIt)
{
    folder.write("games/one/sky.bmp", bitmapFile(Surface(1, 1)));
    folder.write("games/two/sky.bmp", bitmapFile(Surface(2, 1)));
    const auto widthOf = [this](const char* background) {
        ZBMap map;
        map.set_background(background);
        const auto picture = files.pictureOf(map, "two\\hall");
        return picture ? picture->width() : 0;
    };
    EXPECT_EQ(widthOf("one\\sky.bmp"), 1);
    EXPECT_EQ(widthOf("sky.bmp"), 2);
    EXPECT_EQ(widthOf("gone.bmp"), 0);
    EXPECT_EQ(widthOf(""), 0);
    EXPECT_EQ(files.picture("sky.bmp"), std::nullopt);
}
