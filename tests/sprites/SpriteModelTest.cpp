// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/SpriteModel.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

constexpr Pixel red = rgb(255, 0, 0);
constexpr Pixel blue = rgb(0, 0, 255);

/// The current frame as text, rows between bars: "." see-through, "r" red, "b" blue, "k" black.
std::string art(const SpriteModel& model)
{
    std::string text;
    const auto frame = model.currentFrame();
    for (int y = 0; y < frame->height(); ++y) {
        for (const Pixel pixel : frame->row(y))
            text += pixel == transparent ? '.'
                    : pixel == red       ? 'r'
                    : pixel == blue      ? 'b'
                    : pixel == black     ? 'k'
                                         : '?';
        text += '|';
    }
    return text;
}

SpriteModel blank(int width, int height)
{
    SpriteModel model;
    model.clear({width, height});
    return model;
}

} // namespace

TEST(SpriteModel, DrawsConnectedLinesAndClipsThem)
{
    struct Case {
        int x1, y1, x2, y2;
        const char* expected;
    };
    const Case cases[] = {
        {0, 0, 0, 0, "r....|.....|.....|"},   {0, 0, 4, 2, "rr...|..rr.|....r|"},
        {4, 2, 4, 0, "....r|....r|....r|"},   {1, 1, 99, 1, ".....|.rrrr|.....|"},
        {-3, -3, 2, 2, "r....|.r...|..r..|"}, {-9, -9, -1, -1, ".....|.....|.....|"},
        {0, 2, 4, 0, "....r|..rr.|rr...|"},   {4, 2, 0, 0, "r....|.rr..|...rr|"},
        {3, 0, 2, 2, "...r.|...r.|..r..|"},   {0, 2, 1, 0, ".r...|r....|r....|"},
        {0, 0, 9, 3, "rr...|..rrr|.....|"},   {4, -1, 4, 1, "....r|....r|.....|"},
    };
    for (const Case& c : cases) {
        SpriteModel model = blank(5, 3);
        model.drawLine(c.x1, c.y1, c.x2, c.y2, red);
        EXPECT_EQ(art(model), c.expected) << c.x2;
    }
}

TEST(SpriteModel, FillsUpToTheColorItselfWhateverLiesBetween)
{
    SpriteModel model = blank(5, 3);
    model.drawLine(2, 0, 2, 2, red);
    model.setPixel(0, 1, blue); // no boundary for red
    model.floodFill(1, 1, red);
    EXPECT_EQ(art(model), "rrr..|rrr..|rrr..|");
    model.floodFill(2, 2, red); // begins on the boundary: nothing to fill
    EXPECT_EQ(art(model), "rrr..|rrr..|rrr..|");
    model.floodFill(4, 0, transparent);
    EXPECT_EQ(art(model), "rrr..|rrr..|rrr..|");
    model.floodFill(0, 0, transparent);
    EXPECT_EQ(art(model), ".....|.....|.....|");
    model.floodFill(-1, 7, red);
    EXPECT_FALSE(art(model).find('r') != std::string::npos);
}

TEST(SpriteModel, UndoesAStrokeAsOneStepAndRedoesIt)
{
    SpriteModel model = blank(3, 1);
    model.setPixel(0, 0, blue);
    model.beginStroke();
    model.setPixel(1, 0, red);
    model.setPixel(2, 0, red);
    model.endStroke();
    model.undo();
    EXPECT_EQ(art(model), "b..|");
    model.redo();
    EXPECT_EQ(art(model), "brr|");
    EXPECT_FALSE(model.canRedo());
    model.undo();
    model.setPixel(0, 0, blue); // changes nothing, so that the way forward stays
    EXPECT_TRUE(model.canRedo());
    model.setPixel(1, 0, blue);
    EXPECT_FALSE(model.canRedo());
    for (int step = 0; step < 5; ++step)
        model.undo();
    EXPECT_EQ(art(model), "...|");
    EXPECT_FALSE(model.isModified());
}

TEST(SpriteModel, UndoneFramesKeepTheirOwnPixels)
{
    SpriteModel model = blank(2, 1);
    model.setPixel(0, 0, red);
    model.duplicateFrame();
    model.setPixel(1, 0, blue);
    model.addFrame();
    model.moveFrame(-2);
    EXPECT_EQ(model.currentIndex(), 0);
    EXPECT_EQ(art(model), "..|");
    model.removeFrame();
    EXPECT_EQ(art(model), "r.|");
    model.setCurrent(1);
    EXPECT_EQ(art(model), "rb|");
    for (const char* expected : {"..|", "..|", "rb|", "r.|", "r.|", "..|"}) {
        model.undo();
        EXPECT_EQ(art(model), expected);
    }
    EXPECT_EQ(model.frameCount(), 1);
    model.removeFrame(); // the only one is cleared
    EXPECT_EQ(model.frameCount(), 1);
}

TEST(SpriteModel, HoldsUpToItsLimits)
{
    struct Case {
        int width, height, count;
        bool fits;
    };
    const Case cases[] = {
        {1, 1, 1, true},        {1024, 1, 1, true},     {1025, 1, 1, false},  {1, 1024, 1, true},
        {1, 1025, 1, false},    {0, 1, 1, false},       {1, 0, 1, false},     {1, 1, 1024, true},
        {1, 1, 1025, false},    {1, 1, 0, true},        {1, 1, -3, true},     {1024, 1024, 4, true},
        {1024, 1024, 5, false}, {1024, 1023, 5, false}, {64, 64, 1024, true}, {65, 64, 1024, false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(SpriteModel::canHold({"", GraphicKind::Simple, c.width, c.height, c.count}), c.fits)
            << c.width << ' ' << c.height << ' ' << c.count;

    SpriteModel model = blank(1024, 1024);
    for (int frames = 1; frames < 4; ++frames) {
        EXPECT_TRUE(model.canAddFrame());
        model.addFrame();
    }
    EXPECT_FALSE(model.canAddFrame());
    model.duplicateFrame();
    EXPECT_EQ(model.frameCount(), 4);
    model.setFrameSize({1024, 1025});
    EXPECT_EQ(model.frameSize(), (FrameSize{1024, 1024}));
}

TEST(SpriteModel, RemembersAsManyStepsAsFitIntoMemory)
{
    struct Case {
        int side, frames;
        std::size_t steps;
    };
    for (const Case& c : {Case{1, 1, 200}, {32, 4, 200}, {512, 1, 64}, {1024, 1, 16}, {1024, 4, 4}}) {
        SpriteModel model;
        ASSERT_TRUE(
            model.load(SpriteSheet({"", GraphicKind::Simple, c.side, c.side, c.frames}, Surface(1, 1))));
        for (std::size_t step = 0; step < c.steps + 2; ++step)
            model.setKind(step % 2 == 0 ? GraphicKind::Animated : GraphicKind::Rotating);
        std::size_t undone = 0;
        for (; model.canUndo(); ++undone)
            model.undo();
        EXPECT_EQ(undone, c.steps) << c.side;
    }
}

TEST(SpriteModel, TakesNoStepWhereNothingChanges)
{
    SpriteModel model = blank(2, 2);
    model.setKind(GraphicKind::Simple);
    model.setFrameSize({2, 2});
    model.moveFrame(-1);
    model.moveFrame(1);
    model.setPixel(2, 0, red);
    model.setPixel(0, 2, red);
    model.setPixel(1, 1, transparent);
    model.drawLine(-1, 0, -1, 9, red);
    model.floodFill(0, 0, transparent);
    EXPECT_FALSE(model.canUndo());
    EXPECT_FALSE(model.isModified());
    model.undo();
    model.redo();
    model.setKind(GraphicKind::Animated);
    EXPECT_TRUE(model.isModified());
    model.setSaved();
    EXPECT_FALSE(model.isModified());
    model.undo(); // away from what was saved
    EXPECT_TRUE(model.isModified());
    model.redo();
    model.setPixel(1, 1, red);
    model.setPixel(1, 1, transparent); // drawn and taken away: as it was
    EXPECT_FALSE(model.isModified());
}

TEST(SpriteModel, AStrokeEndsWithWhatInterruptsIt)
{
    using Interruption = void (*)(SpriteModel&);
    const Interruption interruptions[] = {[](SpriteModel& m) {
                                              m.undo();
                                              m.redo();
                                          },
                                          [](SpriteModel& m) { m.setCurrent(0); },
                                          [](SpriteModel& m) { m.endStroke(); },
                                          [](SpriteModel& m) { m.beginStroke(); }};
    for (const Interruption interrupt : interruptions) {
        SpriteModel model = blank(3, 1);
        model.beginStroke();
        model.setPixel(0, 0, red);
        model.setPixel(1, 0, red);
        interrupt(model);
        model.setPixel(2, 0, red);
        EXPECT_EQ(art(model), "rrr|");
        model.undo();
        EXPECT_EQ(art(model), "rr.|");
        model.undo();
        EXPECT_EQ(art(model), "...|");
    }
}

TEST(SpriteModel, CarriesFramesToTheirPlaces)
{
    SpriteModel model = blank(1, 1);
    model.setPixel(0, 0, red);
    model.addFrame(); // r.
    model.addFrame();
    model.setPixel(0, 0, blue); // r.b
    const auto order = [&model] {
        const int current = model.currentIndex();
        std::string text;
        for (int index = 0; index < model.frameCount(); ++index) {
            model.setCurrent(index);
            text += art(model).front();
        }
        model.setCurrent(current);
        return text + std::to_string(current);
    };
    EXPECT_EQ(order(), "r.b2");
    model.moveFrame(-1);
    EXPECT_EQ(order(), "rb.1");
    model.moveFrame(-5);
    EXPECT_EQ(order(), "br.0");
    model.moveFrame(2);
    EXPECT_EQ(order(), "r.b2");
    model.moveFrame(7);
    EXPECT_EQ(order(), "r.b2");
    model.removeFrame();
    EXPECT_EQ(order(), "r.1");
    model.setCurrent(-4);
    model.duplicateFrame();
    EXPECT_EQ(order(), "rr.1");
    model.setCurrent(0);
    model.removeFrame();
    EXPECT_EQ(order(), "r.0");
    model.setCurrent(9);
    EXPECT_EQ(model.currentIndex(), 1);
}

TEST(SpriteModel, KeepsTheFreeTextOfItsDescription)
{
    SpriteModel model;
    EXPECT_EQ(model.description().toText(), "Zorbino sprite\r\nSimple,32,32,1\r\n");
    ASSERT_TRUE(model.load(SpriteSheet({"made by me", GraphicKind::Rotating, 2, 3, 4}, Surface(4, 12))));
    model.setFrameSize({5, 6});
    EXPECT_EQ(model.description().toText(), "made by me\r\nRotating,5,6,4\r\n");
    model.clear({7, 8});
    EXPECT_EQ(model.description().toText(), "Zorbino sprite\r\nSimple,7,8,1\r\n");
}

TEST(SpriteModel, KeepsThePictureInTheMiddleWhenFramesGrow)
{
    SpriteModel model = blank(2, 2);
    model.setPixel(0, 0, red);
    model.setPixel(1, 1, blue);
    model.setFrameSize({5, 4});
    EXPECT_EQ(art(model), ".....|.r...|..b..|.....|");
    model.setFrameSize({2, 2});
    EXPECT_EQ(art(model), "r.|.b|");
    model.setFrameSize({1, 5}); // narrower and higher: half of what is left over goes to the left and up
    EXPECT_EQ(art(model), ".|r|.|.|.|");
    model.undo();
    model.setFrameSize({5, 1});
    EXPECT_EQ(art(model), ".r...|");
    model.undo();
    for (const FrameSize& wrong : {FrameSize{0, 2}, {2, -1}, {2000, 2}}) {
        model.setFrameSize(wrong);
        EXPECT_EQ(art(model), "r.|.b|");
    }
}

TEST(SpriteModel, GivesImageAndMaskAndTakesThemBack)
{
    SpriteModel model = blank(2, 1);
    model.setPixel(0, 0, black); // opaque black is no hole
    model.addFrame();
    model.setPixel(1, 0, red);
    model.setKind(GraphicKind::Rotating);
    const Surface picture = model.sheet().picture();
    ASSERT_EQ(picture.width(), 4);
    ASSERT_EQ(picture.height(), 2);
    const Pixel expected[] = {black, black, black, white, black, red, white, black};
    EXPECT_TRUE(std::equal(std::begin(expected), std::end(expected), picture.pixels().begin()));

    SpriteModel other;
    ASSERT_TRUE(other.load(model.sheet()));
    EXPECT_EQ(art(other), "k.|");
    EXPECT_EQ(other.kind(), GraphicKind::Rotating);
    EXPECT_FALSE(other.isModified());
    EXPECT_FALSE(other.canUndo());
    other.setCurrent(1);
    EXPECT_EQ(art(other), ".r|");
}

TEST(SpriteModel, TakesPicturesOfOthersAndRefusesAbsurdOnes)
{
    Surface picture(3, 1, black); // too narrow for its mask, too low for its second frame
    picture.set(0, 0, red);
    picture.set(1, 0, red);
    SpriteModel model;
    ASSERT_TRUE(model.load(SpriteSheet({"", GraphicKind::Animated, 2, 1, 2}, picture)));
    EXPECT_EQ(art(model), "r?|"); // red over whatever is below
    model.setCurrent(1);
    EXPECT_EQ(art(model), "..|");
    ASSERT_TRUE(model.load(SpriteSheet({"", GraphicKind::Simple, 2, 1, 0}, picture)));
    EXPECT_EQ(model.frameCount(), 1);
    const GraphicDescription absurd[] = {{"", GraphicKind::Simple, 0, 1, 1},
                                         {"", GraphicKind::Simple, 1, -5, 1},
                                         {"", GraphicKind::Simple, 2000000000, 2000000000, 1},
                                         {"", GraphicKind::Animated, 8, 8, 2000000000},
                                         {"", GraphicKind::Animated, 1024, 1024, 1024}};
    for (const GraphicDescription& description : absurd)
        EXPECT_FALSE(model.load(SpriteSheet(description, picture))) << description.frameCount;
    EXPECT_EQ(art(model), "r?|");
}

TEST(SpriteModel, KeepsPixelsThatAreNeitherColorNorHoleUntilTheyAreDrawnOver)
{
    constexpr Pixel grey = rgb(128, 128, 128);
    Surface picture(8, 1, black);
    const Pixel pixels[] = {black, black, red, blue, grey, grey, white, black}; // the second half is the mask
    std::ranges::copy(pixels, picture.pixels().begin());
    SpriteModel model;
    ASSERT_TRUE(model.load(SpriteSheet({"", GraphicKind::Simple, 4, 1, 1}, picture)));
    EXPECT_EQ(model.sheet().picture(), picture);
    EXPECT_EQ(model.currentFrame()->at(0, 0), (MaskedPixel{black, grey}.look()));
    EXPECT_EQ(model.currentFrame()->at(2, 0), (MaskedPixel{red, white}.look()));
    EXPECT_EQ(art(model), "???b|");
    EXPECT_EQ(model.pixel(0, 0), black); // the color that is nearest
    EXPECT_EQ(model.pixel(2, 0), red);
    model.setFrameSize({6, 1});
    model.duplicateFrame();
    model.removeFrame();
    model.setPixel(1, 0, black); // looks alike, and is drawn all the same
    EXPECT_EQ(model.sheet().picture().at(7, 0), black);
    model.setFrameSize({4, 1});
    EXPECT_EQ(art(model), "k??b|");
    model.floodFill(1, 0, blue); // up to the blue beside them
    EXPECT_EQ(art(model), "bbbb|");
    for (int step = 0; step < 6; ++step)
        model.undo();
    EXPECT_EQ(model.sheet().picture(), picture);
    EXPECT_FALSE(model.isModified());
}

TEST(SpriteModel, ChangesThePreviewEveryThirdFrameOfTheGame)
{
    SpriteModel model = blank(1, 1);
    model.addFrame();
    EXPECT_EQ(model.previewIndex(4), 0);
    model.setKind(GraphicKind::Animated);
    for (int frame = 0; frame < 12; ++frame)
        EXPECT_EQ(model.previewIndex(frame), frame / 3 % 2) << frame;
}
