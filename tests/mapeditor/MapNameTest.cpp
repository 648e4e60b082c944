// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "mapeditor/MapName.h"

#include "platform/Installation.h"
#include "runtime/world/ZBMap.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

TEST(MapName, IsRefusedWhereItWouldDoHarm)
{
    using enum MapNameFault;
    struct Case {
        const char* name;
        MapNameFault fault;
    };
    const Case cases[] = {
        {"00000001\\castle", None},
        {"00000001/castle.map", None},
        {"castle", None},
        {"00000001\\maps\\castle", None},
        {"00000001\\gr\xc3\xbcn...", None},
        {"My game\\castle", None}, // no program writes the name of its own folder
        {"00000001\\icons", None},
        {"00000001\\my.icon", None},
        {"00000001\\code.txt.map", None},
        {"", Blank},
        {"  ", Blank},
        {"00000001\\", Blank},
        {"00000001/ \t", Blank},
        {"..\\zorbino.exe", LeadsOut},
        {"00000001\\..\\castle", LeadsOut},
        {"00000001/ ../castle", LeadsOut},
        {"..", LeadsOut},
        {"00000001\\icon", Icon},
        {"00000001\\ICON.map", Icon},
        {"00000001/icon.bmp", Icon},
        {"icon", Icon},
        {"00000001\\Code.txt", GameFile},
        {"00000001/prop.zbo", GameFile},
        {"00000001\\a b", Unwritable},
        {"00000001\\a\tb", Unwritable},
        {"00000001\\\"a\"", Unwritable},
        {"00000001\\a;b", Unwritable},
        {"00000001\\;", Unwritable},
        {"00000001\\a{", Unwritable},
        {"00000001\\a}", Unwritable},
        {"00000001\\my maps\\a", Unwritable},
        {"a b", Unwritable},
    };
    for (const Case& c : cases)
        EXPECT_EQ(faultOf(c.name), c.fault) << c.name;
}

TEST(MapName, StandsForAPath)
{
    EXPECT_EQ(belowGames("00000001\\castle"), "games\\00000001\\castle");
    EXPECT_EQ(besideMap("00000001\\castle", "sky.bmp"), "games\\00000001\\sky.bmp");
    EXPECT_EQ(besideMap("00000001/maps/castle", "sky.bmp"), "games\\00000001/maps/sky.bmp");
    EXPECT_EQ(besideMap("castle", "sky.bmp"), "games\\sky.bmp");
}

TEST(MapName, OfAFileThatIsNoMapIsNoticed)
{
    const ScratchFolder folder;
    const Installation installation(folder.path());
    ZBMap map;
    map.Create(2, 2);
    struct Case {
        const char* what;
        std::string bytes;
        bool isNoMap;
    };
    const Case cases[] = {
        {"a map", map.toText(), false},
        {"a map and more", map.toText() + "more", false},
        {"a map cut short", map.toText().substr(0, map.toText().size() - 3), true},
        {"a list", "My list\r\n\r\n1. cats\r\n2. dogs\r\n", true},
        {"music", std::string("MThd\0\0\0\6", 8), true},
        {"nothing", "", true},
    };
    EXPECT_FALSE(holdsNoMap(installation, "games\\a"));
    for (const Case& c : cases) {
        folder.write("games/a", c.bytes);
        EXPECT_EQ(holdsNoMap(installation, "games\\a"), c.isNoMap) << c.what;
    }
    std::filesystem::resize_file(folder.path() / "games/a", Installation::maximumFileSize + 1);
    EXPECT_TRUE(holdsNoMap(installation, "games\\a")) << "too large to be one";
    folder.makeFolder("games/b");
    EXPECT_FALSE(holdsNoMap(installation, "games\\b"));
}
