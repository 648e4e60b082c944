// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "support/Art.h"
#include "support/TestGame.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

/// Plays a program and keeps its last picture.
class DrawFrame : public testing::Test
{
protected:
    const Surface& play(const Blocks& blocks, bool showMap = false, int frames = 1)
    {
        HeadlessOptions options;
        options.frames = frames;
        options.wantsPicture = true;
        options.showMap = showMap;
        EXPECT_EQ(game.play(programOf(blocks), options), HeadlessPlayer::Result::AllFrames);
        EXPECT_EQ(game.output, std::vector<std::string>());
        return game.player.display();
    }

    /// The pixels around a point, as letters.
    std::string around(int x, int y, int width, int height)
    {
        Surface part(width, height);
        for (int row = 0; row < height; ++row)
            for (int column = 0; column < width; ++column)
                part.set(column, row, game.player.display().at(x + column, y + row));
        return art(part);
    }

    TestGame game;
};

} // namespace

TEST_F(DrawFrame, LaterSpritesCoverEarlierOnes)
{
    play({.initialize = "create ball 1 \"dot\" 0 0 0 0 9\ncreate ball 1 \"dial\" 90 0 0 0 -9"});
    EXPECT_EQ(around(237, 237, 5, 5), "#####\n"
                                      "#rrr#\n"
                                      "#rrr#\n"
                                      "#rry#\n"
                                      "#####\n");
}

TEST_F(DrawFrame, AHiddenSpriteStillMovesAndIsHit)
{
    const Blocks blocks{.normal = "if me.x = 0 {\nhide me\nmoveright me 3\n}if",
                        .collision = "if me.x = 3 {\nmoveright me 0\nhide it\nsetposition it -90 0 0\n}if",
                        .initialize = "create ball 1 \"dot\" 0 0 0 0 0\ncreate ball 2 \"dot\" 0 0 5 0 0"};
    const Surface& picture = play(blocks);
    EXPECT_EQ(picture, Surface(480, 480, white));
    play({.normal = "hide me\nshow me", .initialize = "create ball 1 \"dot\" 0 0 0 0 0"});
    EXPECT_EQ(around(239, 239, 1, 1), "r\n");
}

TEST_F(DrawFrame, SpritesOnTheEdgeAreCutAndThoseFarOffAreLeftOut)
{
    // Two hundred pixels wide, so that some of it would be seen from afar.
    game.folder.write("wide.spr", "\nSimple,200,1,1\n");
    Surface picture(400, 1, white);
    for (int x = 0; x < 200; ++x)
        picture.set(x, 0, ColorTable[0]);
    for (int x = 200; x < 400; ++x)
        picture.set(x, 0, black);
    game.folder.write("wide.spb", bitmapFile(picture));
    struct Case {
        const char* place;
        int x, y; ///< a pixel at the edge
        bool isDrawn;
    };
    const Case cases[] = {
        {"120 0 0", 479, 240, true},        // 50 pixels beyond the edge is too far
        {"120.62 0 0", 479, 240, true},     // 529.49
        {"120.63 0 0", 479, 240, false},    // 529.51
        {"125 0 0", 479, 240, false},       //
        {"-120.62 0 0", 0, 240, true},      // -49.49
        {"-120.63 0 0", 0, 240, false},     // -49.51
        {"-100 100 0", 0, 0, true},         // the corners of the field
        {"100 -99.7 0", 479, 478, true},    //
        {"100 -100 0", 479, 479, false},    // a line below the last one
        {"1e300 -1e300 0", 479, 479, false} //
    };
    for (const Case& c : cases) {
        const Surface& drawn = play({.initialize = std::string("create ball 1 \"wide\" 0 0 ") + c.place});
        EXPECT_EQ(drawn.at(c.x, c.y) == ColorTable[0], c.isDrawn) << c.place;
        EXPECT_TRUE(c.isDrawn || drawn == Surface(480, 480, white)) << c.place;
    }
}

TEST_F(DrawFrame, TheBackgroundFillsTheFieldUnderTheMapAndTheSprites)
{
    game.folder.write("four.bmp", bitmapFile(art({"gb", "yp"})));
    const std::string both =
        "setbackground game \"four.bmp\"\nsetmap game \"colors.map\"\ncreate ball 1 \"dot\" 0 0 0 0 0";
    const Surface& plain = play({.initialize = both});
    EXPECT_EQ(art(plain, 240), "gb\nyr\n");
    EXPECT_EQ(around(239, 241, 3, 1), "ypp\n");
    // Red stripes on the left, blue ones on the right, green ones below; the fourth square has none. The
    // stripes of the upper squares reach into the first line of the lower ones.
    const Surface& mapped = play({.initialize = both}, true);
    EXPECT_EQ(art(mapped, 120), "rgbb\nrgbb\nryrp\nyypp\n");
    EXPECT_EQ(around(0, 0, 9, 1), "rggggggrg\n");
    EXPECT_EQ(around(239, 300, 10, 1), "yppppppppp\n");
    EXPECT_EQ(around(0, 300, 9, 1), "yyygyyyyy\n");
    // The next game begins on white.
    EXPECT_EQ(play({.loop = "set counter$a 1"}), Surface(480, 480, white));
}

TEST_F(DrawFrame, AnimatedSpritesChangeEveryThirdFrameThoughNothingMoves)
{
    std::string seen;
    for (int frames = 1; frames <= 9; ++frames) {
        play({.initialize = "create ball 1 \"flip\" 0 0 0 0 0"}, false, frames);
        seen += around(239, 239, 1, 1).front();
    }
    EXPECT_EQ(seen, "gbbbgggbb"); // the frame that enters a state counts twice
}

TEST_F(DrawFrame, WhatAPictureFileLacksIsSeeThrough)
{
    const std::string whole = bitmapFile(art({"rr..", "rr..", "rr.."}));
    game.folder.write("cut.spr", "x\r\nSimple,2,3,1\r\n");
    bool isPlayed = false;
    for (std::size_t length = 1; length <= whole.size(); ++length) {
        game.folder.write("cut.spb", whole.substr(0, length));
        game.output.clear();
        HeadlessOptions options;
        options.frames = 1;
        options.wantsPicture = true;
        game.play(programOf({.initialize = "create ball 1 \"cut\" 0 0 0 0 0"}), options);
        const bool isRefused = !game.output.empty();
        EXPECT_FALSE(isRefused && isPlayed) << length; // more of the file shows no less
        isPlayed = !isRefused;
        if (isRefused)
            continue;
        int red = 0;
        for (const char letter : around(235, 235, 10, 10)) {
            EXPECT_TRUE(letter == 'r' || letter == '#' || letter == '\n') << length;
            red += letter == 'r' ? 1 : 0;
        }
        // A pixel is there with its mask only: rows are told from the bottom up, image before mask.
        const int bytes = static_cast<int>(length) - 54;
        const int masks = std::clamp(bytes % 12 / 3 - 2, 0, 2);
        EXPECT_EQ(red, bytes / 12 * 2 + masks) << length;
    }
    EXPECT_TRUE(isPlayed);
}
