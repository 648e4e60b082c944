// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/SpriteStrokes.h"

#include "sprites/SpriteModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace
{

constexpr Pixel red = rgb(255, 0, 0);

/// Strokes on a blank frame.
class SpriteStrokesTest : public testing::Test
{
protected:
    SpriteStrokesTest() { model.clear({12, 8}); }

    void stroke(const std::vector<std::pair<int, int>>& points, Pixel color = red)
    {
        for (const auto& [x, y] : points)
            strokes.hold(x, y, color);
        strokes.end();
    }
    std::ptrdiff_t drawn() const { return std::ranges::count(model.currentFrame()->pixels(), red); }

    SpriteModel model;
    SpriteStrokes strokes{model};
};

} // namespace

TEST_F(SpriteStrokesTest, ThePencilJoinsThePointsOfAStrokeAndOfNoOther)
{
    strokes.hold(1, 1, red);
    EXPECT_EQ(drawn(), 1);
    strokes.hold(5, 1, red);
    strokes.hold(5, 4, red);
    EXPECT_EQ(drawn(), 8);
    strokes.end();
    stroke({{11, 7}});
    EXPECT_EQ(drawn(), 9);
    model.undo();
    EXPECT_EQ(drawn(), 8);
    model.undo(); // a stroke is one step
    EXPECT_EQ(drawn(), 0);
}

TEST_F(SpriteStrokesTest, LeadBeyondTheEdgesAndBack)
{
    for (const int far : {-1, -99, -100, -101, -300, 300}) {
        stroke({{0, 0}, {far, 0}, {far, 7}, {11, 7}});
        // The upper row where it goes right, the lower one where it comes back from the left.
        EXPECT_EQ(drawn(), 13) << far;
        EXPECT_EQ(model.pixel(5, far < 0 ? 7 : 0), red) << far;
        model.undo();
    }
}

TEST_F(SpriteStrokesTest, TheFillGoesUpToItsOwnColor)
{
    stroke({{4, 0}, {4, 7}});
    strokes.setTool(SpriteTool::Fill);
    stroke({{0, 0}, {8, 3}}); // dragged across to the other side
    EXPECT_EQ(drawn(), 12 * 8);
    model.undo();
    EXPECT_EQ(drawn(), 8);
    stroke({{-1, 3}, {3, 99}});
    EXPECT_EQ(drawn(), 8);
    stroke({{11, 7}});
    EXPECT_EQ(drawn(), 8 * 8);
}

TEST_F(SpriteStrokesTest, ThePointerMeasuresFromWhereItBegan)
{
    EXPECT_EQ(strokes.distanceTo(3, 3), std::nullopt);
    strokes.setTool(SpriteTool::Pointer);
    EXPECT_EQ(strokes.distanceTo(3, 3), std::nullopt);
    strokes.hold(2, 5, red);
    strokes.hold(9, 9, red);
    EXPECT_EQ(strokes.distanceTo(10, 1), (PixelDistance{8, -4}));
    strokes.end();
    EXPECT_EQ(strokes.distanceTo(10, 1), std::nullopt);
    EXPECT_FALSE(model.isModified());
    strokes.setTool(SpriteTool::Pencil);
    strokes.hold(2, 5, red);
    EXPECT_EQ(strokes.distanceTo(10, 1), std::nullopt);
}

TEST_F(SpriteStrokesTest, AnotherToolEndsTheStroke)
{
    strokes.hold(0, 0, red);
    strokes.setTool(SpriteTool::Pencil);
    strokes.hold(9, 0, red);
    EXPECT_EQ(drawn(), 2);
    model.undo();
    EXPECT_EQ(drawn(), 1);
}
