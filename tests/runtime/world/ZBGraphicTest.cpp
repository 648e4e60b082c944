// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/world/ZBGraphic.h"

#include "platform/Random.h"
#include "runtime/world/Blit.h"
#include "support/Art.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <tuple>
#include <vector>

namespace
{

/// A field of yellow with one frame of `description` drawn around a point.
std::string drawn(const GraphicDescription& description, const Surface& picture, int x, int y, int frame = 0)
{
    Surface field(6, 4);
    field.fill(art({"y"}).at(0, 0));
    ZBGraphic("g", SpriteSheet(description, picture)).Draw(field, x, y, frame);
    return art(field);
}

// A frame of 2 x 2 pixels, its mask beside it: red and blue, see-through at two corners.
const Surface corners = art({"r.#.", // mask: only where it is white does the field stay
                             ".b.#"});
const GraphicDescription twoByTwo{"", GraphicKind::Simple, 2, 2, 1};

} // namespace

TEST(ZBGraphic, ShowsTheFieldWhereTheMaskIsWhite)
{
    // White mask and colored image mix: red or yellow is yellow, blue or yellow is white.
    EXPECT_EQ(drawn(twoByTwo, corners, 1, 1), "y.yyyy\n"
                                              ".#yyyy\n"
                                              "yyyyyy\n"
                                              "yyyyyy\n");
    EXPECT_EQ(drawn(twoByTwo, art({"r..#", ".b#."}), 3, 2), "yyyyyy\n"
                                                            "yyryyy\n"
                                                            "yyybyy\n"
                                                            "yyyyyy\n");
}

TEST(ZBGraphic, IsCutAtEveryEdge)
{
    const Surface solid = art({"rg..", "bp.."});
    EXPECT_EQ(drawn(twoByTwo, solid, 0, 0), "pyyyyy\nyyyyyy\nyyyyyy\nyyyyyy\n");
    EXPECT_EQ(drawn(twoByTwo, solid, 6, 4), "yyyyyy\nyyyyyy\nyyyyyy\nyyyyyr\n");
    EXPECT_EQ(drawn(twoByTwo, solid, 0, 4), "yyyyyy\nyyyyyy\nyyyyyy\ngyyyyy\n");
    const std::string untouched = "yyyyyy\nyyyyyy\nyyyyyy\nyyyyyy\n";
    for (const int far : {-1, 7, 1000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        EXPECT_EQ(drawn(twoByTwo, solid, far, 2), untouched) << far;
        EXPECT_EQ(drawn(twoByTwo, solid, 2, far < 7 ? far : 5), untouched) << far;
    }
}

TEST(ZBGraphic, OddSizesStandLeftAndRightInTurn)
{
    // A frame of one column: its left edge is half a pixel off the centre and goes to the even column.
    const GraphicDescription column{"", GraphicKind::Simple, 1, 2, 1};
    const Surface picture = art({"r.", "r."});
    const char* const expected[] = {"r", "r", "yyr", "yyr", "yyyyr"};
    for (int x = 0; x < 5; ++x)
        EXPECT_TRUE(drawn(column, picture, x, 1).starts_with(expected[x])) << x;
}

TEST(ZBGraphic, WhatThePictureLacksDrawsNothing)
{
    const std::string untouched = "yyyyyy\nyyyyyy\nyyyyyy\nyyyyyy\n";
    struct Case {
        GraphicDescription description;
        Surface picture;
        int frame;
        std::string expected;
    };
    const int huge = std::numeric_limits<int>::max();
    const Case cases[] = {
        // No mask at all, half a mask: the field stays and the image mixes into it.
        {{"", GraphicKind::Simple, 2, 1, 1}, art({"rc"}), 0, "yy#yyy\n"},
        {{"", GraphicKind::Simple, 2, 1, 1}, art({"rc."}), 0, "yr#yyy\n"},
        // Half an image.
        {{"", GraphicKind::Simple, 2, 1, 1}, art({"r"}), 0, "yyyyyy\n"},
        // The second frame has one row of two; the third has none.
        {{"", GraphicKind::Animated, 1, 2, 3}, art({"g.", "g.", "r."}), 1, "yyryyy\nyyyyyy\n"},
        {{"", GraphicKind::Animated, 1, 2, 3}, art({"g.", "g.", "r."}), 2, untouched},
        {{"", GraphicKind::Animated, 1, huge, huge}, art({"r."}), huge - 1, untouched},
        {{"", GraphicKind::Simple, huge, 1, 1}, art({"rrr"}), 0, untouched}, // starts far to the left
        {{"", GraphicKind::Simple, 0, 1, 1}, art({"r."}), 0, untouched},
        {{"", GraphicKind::Simple, 1, -1, 1}, art({"r."}), 0, untouched},
        {{"", GraphicKind::Simple, -huge, -huge, 1}, art({"r."}), 0, untouched},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.expected);
        EXPECT_TRUE(drawn(c.description, c.picture, 2, 1, c.frame).starts_with(c.expected))
            << drawn(c.description, c.picture, 2, 1, c.frame);
    }
}

TEST(ZBGraphic, FramesGoByTimeOrByHeading)
{
    struct Case {
        GraphicKind kind;
        std::int32_t count, frameNumber;
        double direction;
        int frame;
    };
    using enum GraphicKind;
    const Case cases[] = {
        {Simple, 4, 9, 90, 0},           {Animated, 4, 0, 0, 0},
        {Animated, 4, 2, 0, 0},          {Animated, 4, 3, 0, 1},
        {Animated, 4, 12, 90, 0},        {Animated, 0, 7, 0, 0},
        {Animated, -3, 7, 0, 0},         {Rotating, 4, 5, 0, 0},
        {Rotating, 4, 5, 90, 1},         {Rotating, 4, 0, 44, 0},
        {Rotating, 4, 0, 45, 0},         {Rotating, 4, 0, 46, 1},
        {Rotating, 4, 0, 135, 2},        {Rotating, 4, 0, 315, 0},
        {Rotating, 4, 0, -90, 3},        {Rotating, 4, 0, -360, 0},
        {Rotating, 4, 0, 3600 + 180, 2}, {Rotating, 0, 0, 90, 0},
        {Rotating, 7, 0, -1e300, -1},    {Rotating, 2147483647, 0, 359.9999, -1},
    };
    for (const Case& c : cases) {
        const GraphicDescription description{"", c.kind, 1, 1, c.count};
        const int frame =
            ZBGraphic("g", SpriteSheet(description, art({"r."}))).frameIndex(c.frameNumber, c.direction);
        if (c.frame >= 0) {
            EXPECT_EQ(frame, c.frame) << c.frameNumber << ' ' << c.direction << ' ' << c.count;
        }
        EXPECT_TRUE(frame >= 0 && frame < std::max(c.count, 1));
    }
}

// Wide graphics are drawn in runs; what is drawn must not show it.
TEST(PixelRuns, DrawWhatPixelByPixelDraws)
{
    Random random(2);
    constexpr int width = 100;
    constexpr int rows = 40;
    Surface picture(2 * width, rows, black);
    for (int y = 0; y < rows; ++y)
        for (int x = 0; x < width;) {
            const auto kind = random.below(3);
            const std::uint64_t length = 1 + random.below(random.below(2) == 0 ? 4 : 60);
            for (const int end = std::min(width, x + static_cast<int>(length)); x < end; ++x) {
                const Pixel color = opaqueBits | static_cast<Pixel>(random.next64());
                picture.set(x, y, kind == 0 ? black : color);
                picture.set(width + x, y, kind == 0 ? white : kind == 1 ? black : rgb(60, 70, 80));
            }
        }
    const GraphicDescription description{"", GraphicKind::Animated, width, rows / 2, 2};
    const SpriteSheet sheet(description, picture);
    const ZBGraphic graphic("g", sheet);
    for (const auto& [x, y, frame] :
         {std::tuple(75, 30, 0), {75, 30, 1}, {3, 2, 0}, {148, 58, 1}, {40, 59, 0}}) {
        Surface target(150, 60, rgb(1, 2, 3));
        Surface expected = target;
        graphic.Draw(target, x, y, frame);
        for (int row = 0; row < 60; ++row)
            for (int column = 0; column < 150; ++column) {
                const int fromX = column - (x - width / 2);
                const int fromY = row - (y - rows / 4);
                if (fromX < 0 || fromX >= width || fromY < 0 || fromY >= rows / 2)
                    continue;
                const MaskedPixel pixel = sheet.at(frame, fromX, fromY);
                expected.set(column, row, (expected.at(column, row) & pixel.mask) | pixel.image);
            }
        EXPECT_TRUE(target == expected) << x << ' ' << y << ' ' << frame;
    }
}

TEST(Blit, TheQuickRoutineDoesWhatThePlainOneDoes)
{
    Random random(1);
    constexpr std::size_t sourceStride = 80;
    constexpr std::size_t targetStride = 90;
    constexpr std::size_t rows = 3;
    const auto noise = [&](std::size_t count) {
        std::vector<Pixel> pixels(count);
        std::ranges::generate(pixels, [&] { return static_cast<Pixel>(random.next64()); });
        return pixels;
    };
    for (std::size_t width = 0; width < 70; ++width) {
        const auto mask = noise(sourceStride * rows);
        const auto image = noise(sourceStride * rows);
        auto best = noise(targetStride * rows);
        auto plain = best;
        const std::size_t start = width % 9; // at every address
        const auto job = [&](std::vector<Pixel>& target) {
            return BlitJob{&target[start], targetStride, &mask[width % 5], &image[width % 7], sourceStride,
                           width,          rows};
        };
        auto expected = best;
        for (std::size_t i = 0; i < rows * width; ++i) {
            const std::size_t from = i / width * sourceStride + i % width;
            Pixel& pixel = expected[start + i / width * targetStride + i % width];
            pixel = (pixel & mask[width % 5 + from]) | image[width % 7 + from];
        }
        blit(job(best));
        blitPlain(job(plain));
        EXPECT_TRUE(best == expected && plain == expected) << width;
    }
}
