// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/world/ZBMap.h"

#include "runtime/ZB.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace
{

/// The head of a map file: name, background, size and the 21 legend texts.
std::string head(std::string_view columns, std::string_view rows)
{
    std::string text = "a name\r\nsky.bmp\r\n" + std::string(columns) + "\r\n" + std::string(rows) + "\r\n";
    for (int index = 0; index < ZBMap::legendCount; ++index)
        text += index < 7 ? "legend " + std::to_string(index) + "\r\n" : "\r\n";
    return text;
}

/// Square by square, flag by flag, column line by column line: slow, and simple enough to trust.
void drawPlainly(const ZBMap& map, Surface& picture, int layer)
{
    const auto edge = [](int extent, int index, int count) {
        return static_cast<int>(std::nearbyint(static_cast<double>(extent) * index / count));
    };
    const auto line = [&picture](int x, int y1, int y2, int color) {
        for (int y = y1; y <= y2; ++y)
            if (x < picture.width() && y < picture.height())
                picture.set(x, y, ColorTable[static_cast<std::size_t>(color)]);
    };
    for (int row = 0; row < map.rows; ++row)
        for (int column = 0; column < map.columns; ++column) {
            const MapSquare square = map.square(map.columns * row + column);
            const int x1 = edge(picture.width(), column, map.columns);
            const int x2 = edge(picture.width(), column + 1, map.columns);
            const int y1 = edge(picture.height(), row, map.rows);
            const int y2 = edge(picture.height(), row + 1, map.rows);
            for (int color = 0; color < 7; ++color) {
                if (!square.getField(color) || (layer >= 0 && color != layer))
                    continue;
                for (int x = layer >= 0 ? x1 : x1 + color; x <= x2; x += layer >= 0 ? 1 : 7)
                    line(x, y1, y2, color);
            }
        }
}

ZBMap motley(int columns, int rows)
{
    ZBMap map;
    map.Create(columns, rows);
    std::uint32_t state = 12345;
    for (int index = 0; index < columns * rows; ++index)
        for (int color = 0; color < 7; ++color) {
            state = state * 1664525U + 1013904223U;
            if ((state >> 29U) < 3)
                map.set_offset(index, color, true);
        }
    return map;
}

} // namespace

TEST(MapSquare, PacksItsFlagsAndIgnoresHigherBits)
{
    MapSquare square;
    square.setField(0, true);
    square.setField(5, true);
    EXPECT_EQ(square.ToLong(), 33);
    MapSquare other;
    other.setFromLong(161);
    EXPECT_TRUE(other.Same(square));
    other.setField(5, false);
    EXPECT_EQ(other.ToLong(), 1);
    other.setFromLong(-1);
    EXPECT_EQ(other.ToLong(), 127);
}

TEST(ZBMap, FindsTheSquareUnderAPoint)
{
    struct Case {
        int columns, rows, x, y;
        int index; ///< -1: off the map
    };
    const int far = 2147483647;
    const Case cases[] = {
        {10, 10, 0, 0, 55},        {10, 10, -100, 100, 0}, {10, 10, 99, -99, 99}, {10, 10, 100, 0, -1},
        {10, 10, 0, -100, -1},     {10, 10, -101, 0, 50},  {10, 10, -119, 0, 50}, {10, 10, -120, 0, -1},
        {10, 10, -121, 0, -1},     {10, 10, 0, 119, 5},    {10, 10, 0, 120, -1},  {3, 5, 99, -99, 14},
        {10, 10, far, 0, -1},      {10, 10, -far, 0, -1},  {10, 10, 0, far, -1},  {1, 1, 0, -far - 1, -1},
        {75, 75, 57266230, 0, -1}, // a 32-bit product would have come round to a square again
        {0, 0, 0, 0, -1},          {-3, -3, 0, 0, -1},     {-3, 3, 0, 0, -1},
    };
    for (const Case& c : cases) {
        ZBMap map;
        map.Create(c.columns, c.rows);
        map.set_offset(c.index, 3, true); // only the expected square is green
        const auto found = map.GetSquare(c.x, c.y);
        EXPECT_EQ(found.has_value(), c.index >= 0) << c.columns << ' ' << c.x << ' ' << c.y;
        EXPECT_EQ(found && found->getField(3), c.index >= 0) << c.columns << ' ' << c.x << ' ' << c.y;
    }
}

TEST(ZBMap, SavesWhatItLoadsAgain)
{
    ZBMap map = motley(4, 3);
    map.name = "gone after loading";
    map.set_background("00000001\\sky.bmp");
    map.set_legend(0, "hot lava");
    map.set_legend(20, "two\r\nlines"); // must not shift the lines behind it
    const std::string text = map.toText();
    EXPECT_TRUE(
        text.starts_with("gone after loading\r\n00000001\\sky.bmp\r\n 4\r\n 3\r\nhot lava\r\n\r\n\r\n\r\n"));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4 + 21 + 12);

    ZBMap loaded;
    ASSERT_TRUE(loaded.fromText(text));
    EXPECT_EQ(loaded.name, "");
    EXPECT_EQ(loaded.get_background(), "00000001\\sky.bmp");
    EXPECT_EQ(loaded.get_legend(0), "hot lava");
    EXPECT_EQ(loaded.columns, 4);
    EXPECT_EQ(loaded.rows, 3);
    for (int index = 0; index < 12; ++index)
        EXPECT_TRUE(loaded.square(index).Same(map.square(index))) << index;
}

TEST(ZBMap, ReadsTheNumbersOfAFile)
{
    struct Case {
        std::string_view columns, rows, squares;
        bool ok;
        int last; ///< packed value of the last square that was read
        int readColumns;
    };
    const Case cases[] = {
        {" 2", " 1", "1\r\n2\r\n", true, 2, 2},
        {"2", "1", "1,2", true, 2, 2},
        {"\t2 columns", "1.4", "1\n2", true, 2, 2}, // a conversion stops where the number ends
        {"2.5", "1", " 1 , 2 ", true, 2, 2},        // halves go to the even neighbour
        {"2", "1", "1\r+33", true, 33, 2},
        {"2", "1", "1,2.4e0,ignored", true, 2, 2},
        {"2", "1", "-1,161", true, 33, 2},
        {"2", "1", "1", false, 1, 2},
        {"2", "1", "1\r\n\r\n2", false, 1, 2},
        {"2", "1", "1,,2", false, 1, 2},
        {"2", "1", "1,blue", false, 1, 2},
        {"2", "1", "1,2x", false, 1, 2},
        {"2", "1", "1,inf", false, 1, 2},
        {"2", "1", "1,9999999999", false, 1, 2},
        {"2", "1", "1,2147483647.0", true, 127, 2},
        {"2", "1", "1,-2147483647.6", true, 0, 2}, // rounded, the lowest that fits
        {"2", "1", "1,2147483647.6", false, 1, 2},
        {"2", "1", "1,+-5", false, 1, 2},
        {"2", "1", "1,+2.", true, 2, 2},
        {"2", "1", "1,+", false, 1, 2},
        {"2", "1", "1,1e999", false, 1, 2},
        {"2", "0", "1", false, 0, 2},
        {"0", "1", "1", false, 0, 0},
        {"2", "-1", "1", false, 0, 2},
        {"two", "1", "1", false, 0, 0},
        {"1e10", "1", "1", false, 0, 5}, // no 32-bit number: the old size stays
    };
    for (const Case& c : cases) {
        ZBMap map;
        map.Create(5, 5);
        EXPECT_EQ(map.fromText(head(c.columns, c.rows) + std::string(c.squares)), c.ok) << c.squares;
        EXPECT_EQ(map.columns, c.readColumns) << c.columns;
        EXPECT_EQ(map.square(c.ok ? 1 : 0).ToLong(), c.last) << c.columns << ' ' << c.squares;
    }
}

TEST(ZBMap, KeepsWhatWasReadBeforeAFault)
{
    ZBMap map = motley(5, 5);
    map.set_legend(3, "old");
    EXPECT_FALSE(map.fromText("name\r\nsea.bmp\r\n 7\r\n"));
    EXPECT_EQ(map.get_background(), "sea.bmp");
    EXPECT_EQ(map.columns, 7);
    EXPECT_EQ(map.rows, 5);
    EXPECT_EQ(map.get_legend(3), "old");
    EXPECT_FALSE(map.fromText(""));
    EXPECT_EQ(map.name, "name");
}

TEST(ZBMap, IsTheSameWhereNothingDiffers)
{
    ZBMap map;
    map.Create(3, 2);
    map.set_offset(1, 4, true);
    const ZBMap same = map;
    map.set_offset(5, 0, true);
    EXPECT_NE(map, same);
    EXPECT_NE(same, map);
    map.set_offset(5, 0, false);
    EXPECT_EQ(map, same) << "blank squares at the end may be stored or not";
    EXPECT_EQ(same, map);
    map.set_offset(1, 4, false);
    EXPECT_NE(map, same);
    void (*const changes[])(ZBMap&) = {
        [](ZBMap& other) { other.set_offset(1, 3, true); },
        [](ZBMap& other) { other.columns = 2; },
        [](ZBMap& other) { other.rows = 3; },
        [](ZBMap& other) { other.name = "a"; },
        [](ZBMap& other) { other.set_background("a"); },
        [](ZBMap& other) { other.set_legend(20, "a"); },
    };
    for (const auto change : changes) {
        ZBMap other = same;
        change(other);
        EXPECT_NE(other, same);
    }
}

TEST(ZBMap, HasAGridOfNoMoreSquaresThanAFileCanHold)
{
    struct Case {
        int columns, rows;
        bool hasGrid;
    };
    for (const Case& c : {Case{1, 1, true},
                          {0, 1, false},
                          {1, 0, false},
                          {-1, -1, false},
                          {33554432, 1, true},
                          {33554433, 1, false},
                          {5793, 5793, false},
                          {5792, 5792, true}}) {
        ZBMap map;
        map.Create(c.columns, c.rows);
        EXPECT_EQ(map.hasGrid(), c.hasGrid) << c.columns << " x " << c.rows;
    }
}

TEST(ZBMap, IgnoresWhatIsNotOnIt)
{
    ZBMap map;
    EXPECT_TRUE(map.toText().starts_with("\r\n\r\n 0\r\n 0\r\n"));
    map.Create(2, 2);
    map.set_offset(4, 0, true);
    map.set_offset(-1, 0, true);
    map.set_offset_all(4, false);
    EXPECT_EQ(map.square(4), MapSquare());
    EXPECT_EQ(map.square(-1), MapSquare());

    Surface none;
    motley(2, 2).Draw(none, -1);
    for (const auto& [columns, rows] : {std::pair{0, 2}, {2, 0}, {-1, 2}, {2, -1}}) {
        ZBMap odd = motley(2, 2);
        odd.columns = columns;
        odd.rows = rows;
        Surface picture(9, 9);
        odd.Draw(picture, -1);
        EXPECT_EQ(picture, Surface(9, 9)) << columns << ' ' << rows;
    }
    map.Create(-3, 2);
    EXPECT_TRUE(map.toText().starts_with("\r\n\r\n-3\r\n 2\r\n"));
}

TEST(ZBMap, DrawsNothingOfTheMapBefore)
{
    ZBMap map;
    std::string full;
    for (int index = 0; index < 9; ++index)
        full += "127\n";
    ASSERT_TRUE(map.fromText(head("3", "3") + full));
    EXPECT_FALSE(map.fromText(head("3", "3") + "0\n0\n0\n0\n1\n")); // cut short in the middle of a row
    Surface expected(30, 30, rgb(1, 2, 3));
    Surface drawn = expected;
    drawPlainly(map, expected, -1);
    map.Draw(drawn, -1);
    EXPECT_EQ(drawn, expected);
    EXPECT_NE(drawn, Surface(30, 30, rgb(1, 2, 3)));
}

TEST(ZBMap, DrawsLikeThePlainLoops)
{
    struct Case {
        int columns, rows, width, height;
    };
    const Case cases[] = {{5, 5, 480, 480}, {16, 16, 480, 480}, {75, 75, 480, 480},
                          {7, 11, 101, 53}, {75, 75, 40, 31},   {300, 2, 50, 50},
                          {2, 300, 50, 50}, {400, 300, 9, 7},   {1, 1, 1, 1}};
    for (const Case& c : cases)
        for (const int layer : {-1, 0, 4, 6}) {
            const ZBMap map = motley(c.columns, c.rows);
            Surface expected(c.width, c.height, rgb(1, 2, 3));
            Surface drawn = expected;
            drawPlainly(map, expected, layer);
            map.Draw(drawn, layer);
            EXPECT_EQ(drawn, expected)
                << c.columns << " x " << c.rows << " on " << c.width << ", layer " << layer;
        }
}

TEST(ZBMap, HostileSizesCostNoTimeAndNoMemory)
{
    ZBMap map;
    for (const auto& [columns, rows] :
         {std::pair{"2000000000", "1"}, {"1", "2000000000"}, {"2147483647", "2147483647"}}) {
        EXPECT_FALSE(map.fromText(head(columns, rows) + "127,1,2"));
        Surface picture(480, 480);
        map.Draw(picture, -1);
        map.set_offset(1999999999, 0, true);
        map.GetSquare(2147483647, -2147483647);
        EXPECT_LT(map.toText().size(), 1000U);
    }
    std::string many = head("1", "4000000");
    for (int row = 0; row < 4000000; ++row)
        many += row % 2 == 0 ? "1\n" : "2\n";
    EXPECT_TRUE(map.fromText(many));
    Surface picture(480, 480);
    map.Draw(picture, -1);
    EXPECT_EQ(picture.at(0, 479), ColorTable[0]);
    EXPECT_EQ(picture.at(1, 479), ColorTable[1]);
}
