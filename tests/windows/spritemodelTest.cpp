#include "play/SpriteModel.h"
#include "play/SpriteFiles.h"

#include <gtest/gtest.h>

namespace
{

constexpr Pixel red = rgb(255, 0, 0);
constexpr Pixel blue = rgb(0, 0, 255);

/// The current frame as text, rows between bars: "." see-through, "r" red, "b" blue, "k" black.
std::string art(const SpriteModel& model)
{
    std::string text;
    const Surface& frame = model.currentFrame();
    for (int y = 0; y < frame.height(); ++y) {
        for (const Pixel pixel : frame.row(y))
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
    };
    for (const Case& c : cases) {
        SpriteModel model = blank(5, 3);
        model.drawLine(c.x1, c.y1, c.x2, c.y2, red);
        EXPECT_EQ(art(model), c.expected) << c.x2;
    }
}

TEST(SpriteModel, FillsUpToTheColourItselfWhateverLiesBetween)
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

TEST(SpriteModel, KeepsThePictureInTheMiddleWhenFramesGrow)
{
    SpriteModel model = blank(2, 2);
    model.setPixel(0, 0, red);
    model.setPixel(1, 1, blue);
    model.setFrameSize({5, 4});
    EXPECT_EQ(art(model), ".....|.r...|..b..|.....|");
    model.setFrameSize({2, 2});
    EXPECT_EQ(art(model), "r.|.b|");
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
    const Surface picture = model.picture();
    ASSERT_EQ(picture.width(), 4);
    ASSERT_EQ(picture.height(), 2);
    const Pixel expected[] = {black, black, black, white, black, red, white, black};
    EXPECT_TRUE(std::equal(std::begin(expected), std::end(expected), picture.pixels().begin()));

    SpriteModel other;
    ASSERT_TRUE(other.load(model.description(), picture));
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
    ASSERT_TRUE(model.load({"", GraphicKind::Animated, 2, 1, 2}, picture));
    EXPECT_EQ(art(model), "r.|");
    ASSERT_TRUE(model.load({"", GraphicKind::Simple, 2, 1, 0}, picture));
    EXPECT_EQ(model.frameCount(), 1);
    const GraphicDescription absurd[] = {{"", GraphicKind::Simple, 0, 1, 1},
                                         {"", GraphicKind::Simple, 1, -5, 1},
                                         {"", GraphicKind::Simple, 2000000000, 2000000000, 1},
                                         {"", GraphicKind::Animated, 8, 8, 2000000000},
                                         {"", GraphicKind::Animated, 1024, 1024, 1024}};
    for (const GraphicDescription& description : absurd)
        EXPECT_FALSE(model.load(description, picture)) << description.frameCount;
    EXPECT_EQ(art(model), "r.|");
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

TEST(SpriteFiles, MakeNamesThatProgramsCanWrite)
{
    const std::pair<const char*, const char*> cases[] = {
        {"My Rocket", "my_rocket"},
        {" ball-2 ", "ball-2"},
        {"a\"b;c{d}\\e/f.spr", "abcdefspr"},
        {"\u00c4pfel", "\u00e4pfel"},
        {"!?", ""},
        {"", ""},
        {"..", ""},
    };
    for (const auto& [wish, name] : cases)
        EXPECT_EQ(spriteName(wish), name);
    EXPECT_LE(spriteName(std::string(500, 'x')).size(), 40U);
}
