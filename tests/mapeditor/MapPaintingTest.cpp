// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "mapeditor/MapPainting.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

constexpr Brush red{0, false, false};

/// The painted squares as "column,row=packed value".
std::string painted(const ZBMap& map)
{
    std::string squares;
    for (int index = 0; index < map.columns * map.rows; ++index)
        if (const int packed = map.square(index).ToLong(); packed != 0)
            squares += (squares.empty() ? "" : " ") + std::to_string(index % map.columns) + ',' +
                       std::to_string(index / map.columns) + '=' + std::to_string(packed);
    return squares;
}

/// A blank map with one stroke on it.
MapPainting stroked(int size, const std::vector<GridPlace>& places)
{
    MapPainting painting;
    painting.create(size);
    painting.beginStroke();
    for (const GridPlace& place : places)
        painting.strokeTo(place, red);
    painting.endStroke();
    return painting;
}

} // namespace

TEST(MapPainting, StrokesLeaveNoGaps)
{
    struct Case {
        const char* what;
        int size;
        std::vector<GridPlace> places;
        std::string expected;
    };
    const Case cases[] = {
        {"one square", 16, {{3, 7}}, "3,7=1"},
        {"right", 16, {{1, 2}, {4, 2}}, "1,2=1 2,2=1 3,2=1 4,2=1"},
        {"left", 16, {{4, 2}, {1, 2}}, "1,2=1 2,2=1 3,2=1 4,2=1"},
        {"down", 16, {{2, 1}, {2, 4}}, "2,1=1 2,2=1 2,3=1 2,4=1"},
        {"up", 16, {{2, 4}, {2, 1}}, "2,1=1 2,2=1 2,3=1 2,4=1"},
        // 5 squares away: five steps and the first one, of 0.6 and 0.8 of a square
        {"slanting", 16, {{0, 0}, {3, 4}}, "0,0=1 1,1=1 1,2=1 2,2=1 2,3=1 3,4=1"},
        {"slanting back", 16, {{3, 4}, {0, 0}}, "0,0=1 1,1=1 1,2=1 2,2=1 2,3=1 3,4=1"},
        {"slanting the other way", 16, {{0, 4}, {3, 0}}, "3,0=1 2,1=1 1,2=1 2,2=1 1,3=1 0,4=1"},
        {"a half goes to the even square", 16, {{0, 0}, {2, 4}}, "0,0=1 0,1=1 1,2=1 1,3=1 2,4=1"},
        {"standing still", 16, {{2, 2}, {2, 2}, {2, 2}}, "2,2=1"},
        {"over every edge", 3, {{-2, 1}, {5, 1}, {1, 5}, {1, -2}}, "1,0=1 0,1=1 1,1=1 2,1=1 1,2=1"},
        {"beside the left edge it begins anew", 3, {{0, 0}, {-1, 0}, {2, 2}}, "0,0=1 2,2=1"},
        {"above the top edge it goes on", 3, {{0, 0}, {0, -1}, {0, 2}}, "0,0=1 0,1=1 0,2=1"},
        {"the last square", 3, {{2, 2}, {3, 2}, {2, 3}}, "2,2=1"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(painted(stroked(c.size, c.places).map()), c.expected) << c.what;
}

TEST(MapPainting, EachStrokeBeginsAnew)
{
    MapPainting painting = stroked(8, {{0, 0}, {1, 0}});
    EXPECT_FALSE(painting.isPainting());
    painting.beginStroke();
    EXPECT_TRUE(painting.isPainting());
    EXPECT_TRUE(painting.strokeTo({7, 7}, red));
    EXPECT_EQ(painted(painting.map()), "0,0=1 1,0=1 7,7=1");
    EXPECT_FALSE(painting.strokeTo({7, 7}, red)) << "it is red already";
    EXPECT_FALSE(painting.strokeTo({7, 7}, Brush{3, false, false})) << "the mouse has not moved on";
    EXPECT_FALSE(painting.strokeTo({8, 7}, red)) << "the square that it comes from is red, the other is none";
    EXPECT_FALSE(painting.strokeTo({9, 7}, red));
    painting.beginStroke();
    EXPECT_TRUE(painting.strokeTo({4, 4}, red));
    EXPECT_TRUE(painting.strokeTo({5, 4}, red)) << "one of the two is new";
}

TEST(MapPainting, TheBrushChangesOneColorOrTakesAll)
{
    struct Case {
        Brush brush;
        const char* expected;
        bool changed;
    };
    const Case cases[] = {
        {{5, false, false}, "0,0=33", true}, {{5, false, true}, "0,0=33", true},
        {{0, false, true}, "0,0=1", false},  {{6, false, false}, "0,0=65", true},
        {{0, true, true}, "", true},         {{0, true, false}, "", true},
        {{5, true, true}, "0,0=1", false},   {{5, true, false}, "", true},
    };
    for (const Case& c : cases) {
        MapPainting painting = stroked(2, {{0, 0}});
        painting.beginStroke();
        EXPECT_EQ(painting.strokeTo({0, 0}, c.brush), c.changed);
        EXPECT_EQ(painted(painting.map()), c.expected)
            << c.brush.color << c.brush.deletes << c.brush.onlyColor;
    }
}

TEST(MapPainting, FindsThePlaceUnderAPixel)
{
    struct Case {
        int size, x, y, width, height;
        GridPlace place;
    };
    const Case cases[] = {
        {16, 29, 50, 480, 480, {0, 1}},   {16, 30, 479, 480, 480, {1, 15}}, {16, -1, 480, 480, 480, {-1, 16}},
        {3, 33, 34, 100, 100, {0, 1}},    {3, 66, 67, 100, 100, {1, 2}},    {5, -300, 0, 480, 480, {-4, 0}},
        {10, 150, 150, 200, 300, {7, 5}},
    };
    for (const Case& c : cases) {
        MapPainting painting;
        painting.create(c.size);
        EXPECT_EQ(painting.placeAt(c.x, c.y, c.width, c.height), c.place) << c.x << ',' << c.y;
    }
}

TEST(MapPainting, KnowsWhetherThereIsSomethingToLose)
{
    MapPainting painting;
    painting.create(3);
    EXPECT_FALSE(painting.isModified());
    painting.beginStroke();
    painting.strokeTo({1, 1}, red);
    EXPECT_TRUE(painting.isModified());
    painting.beginStroke();
    painting.strokeTo({1, 1}, Brush{0, true, false});
    EXPECT_FALSE(painting.isModified()) << "it is as it was";
    painting.strokeTo({2, 2}, red);
    painting.noteSaved();
    EXPECT_FALSE(painting.isModified());

    painting.setLegend(6, "door");
    EXPECT_TRUE(painting.isModified());
    painting.create(5);
    EXPECT_TRUE(painting.isModified()) << "the legend outlives a new map";
    painting.setLegend(6, "");
    EXPECT_FALSE(painting.isModified());
    painting.setBackground("sky.bmp");
    EXPECT_TRUE(painting.isModified());
    EXPECT_TRUE(painting.load(painting.map().toText()));
    EXPECT_FALSE(painting.isModified());
    EXPECT_EQ(painting.map().get_background(), "sky.bmp");
    EXPECT_FALSE(painting.load("\r\nsea.bmp\r\n"));
    EXPECT_EQ(painting.map().get_background(), "sea.bmp");
    EXPECT_FALSE(painting.isModified());
}
