// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/world/SpriteSheet.h"
#include "platform/DiskFile.h"

#include "support/Art.h"
#include "support/FailingCalls.h"
#include "support/TestGame.h"

#include <gtest/gtest.h>

#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

constexpr Pixel red = rgb(255, 0, 0);
constexpr Pixel grey = rgb(128, 128, 128);

/// A folder with the graphic "it", read as the game does.
class SpriteFilesTest : public testing::Test
{
protected:
    void write(std::string_view description, std::string_view picture) const
    {
        folder.write("it.spr", description);
        folder.write("it.spb", picture);
    }
    std::optional<SpriteSheet> read()
    {
        fault = SpriteSheet::Fault::None;
        return SpriteSheet::read(Installation(folder.path()), pictures, "it", &fault);
    }
    std::string bytes(const char* name) const
    {
        return readFileBytes(folder.path() / name, 100000).value_or("none");
    }
    std::size_t files() const
    {
        const auto all = std::filesystem::directory_iterator(folder.path());
        return static_cast<std::size_t>(std::distance(begin(all), end(all)));
    }

    ScratchFolder folder;
    PictureFiles pictures;
    SpriteSheet::Fault fault = SpriteSheet::Fault::None;
};

// Two generations of a sprite, which differ in everything.
const SpriteSheet older({"old", GraphicKind::Simple, 1, 2, 1}, art({"r.", "r."}));
const SpriteSheet newer({"new", GraphicKind::Animated, 2, 1, 3}, art({"bb..", "yy..", "gg.."}));

std::string textOf(const SpriteSheet& sheet)
{
    return sheet.description().toText() + art(sheet.picture());
}

} // namespace

TEST(GraphicDescription, IsFourItemsBehindALineOfFreeText)
{
    struct Case {
        const char* text;
        bool ok;
        GraphicDescription description;
    };
    const Case cases[] = {
        {"a ball, red\r\nSimple,16,17,1\r\n", true, {"a ball, red", GraphicKind::Simple, 16, 17, 1}},
        {"\n\"Animated\", 2 ,\t3,4", true, {"", GraphicKind::Animated, 2, 3, 4}},
        {"x\rRotating\r1\r2\r3\rand more", true, {"x", GraphicKind::Rotating, 1, 2, 3}},
        {"x\nRotating,1\n2,3,4,5\n6", true, {"x", GraphicKind::Rotating, 1, 2, 3}},
        {"x\nSimple,0,-5,2147483647", true, {"x", GraphicKind::Simple, 0, -5, 2147483647}},
        {"x\nsimple,1,1,1", false, {}},
        {"x\n\"Simple,1,1,1", false, {}},
        {"x\n\",1,1,1", false, {}},
        {"x\nSimple,1,1", false, {}},
        {"x\nSimple,1,,1", false, {}},
        {"x\nSimple,1,1.5,1", false, {}},
        {"x\nSimple,1,1,2147483648", false, {}},
        {"Simple,1,1,1", false, {}},
        {"x\n\nSimple,1,1,1", false, {}},
        {"", false, {}},
    };
    for (const Case& c : cases) {
        const auto read = GraphicDescription::fromText(c.text);
        ASSERT_EQ(read.has_value(), c.ok) << c.text;
        if (!read)
            continue;
        EXPECT_EQ(read->toText(), c.description.toText()) << c.text;
        EXPECT_EQ(GraphicDescription::fromText(read->toText())->toText(), read->toText());
    }
}

TEST(MaskedPixel, LooksLikeWhatTheGameMakesOfIt)
{
    struct Case {
        Pixel image, mask, look;
    };
    const Case cases[] = {
        {black, white, 0},                   // a hole
        {red, black, red},                   // a color
        {black, black, black},               // black is no hole
        {black, grey, 0x7f000000},           // a shadow
        {red, white, 0x55550000},            // red that takes the other two colors away
        {black, rgb(255, 0, 0), 0xaa000000}, // lets red through
        {rgb(0x10, 0x20, 0x30), rgb(0x80, 0x80, 0x80), 0x7f102030}, // as bright as can be, no brighter
        {white, white, white},
    };
    for (const Case& c : cases) {
        const MaskedPixel pixel = {c.image, c.mask};
        EXPECT_EQ(pixel.look(), c.look) << std::hex << c.image << ' ' << c.mask;
        EXPECT_EQ(pixel.isTransparent(), c.look == 0);
        EXPECT_EQ(pixel.isOpaque(), c.mask == black);
    }
}

TEST(SpriteSheet, ChangesNothingWhereThePictureEnds)
{
    const SpriteSheet narrow({"", GraphicKind::Simple, 2, 2, 2}, art({"rb.", "gg.", "yy."}));
    EXPECT_FALSE(narrow.isWhole());
    EXPECT_EQ(narrow.at(0, 0, 0), (MaskedPixel{red, black}));
    EXPECT_EQ(narrow.at(0, 1, 0).mask, white); // its mask is missing
    EXPECT_FALSE(narrow.at(0, 1, 0).isTransparent());
    for (const auto& [frame, x, y] :
         {std::array{1, 0, 1}, {2, 0, 0}, {-1, 0, 0}, {0, 2, 0}, {0, -1, 0}, {0, 0, 2}, {0, 0, -1}})
        EXPECT_TRUE(narrow.at(frame, x, y).isTransparent()) << frame << x << y;
    const Surface look = narrow.look(1);
    EXPECT_EQ(look.at(0, 0), ColorTable[2]);
    EXPECT_EQ(look.at(0, 1), 0U);
    EXPECT_TRUE(SpriteSheet({"", GraphicKind::Simple, 2, 2, 1}, art({"rb..", "gg..", "yy.."})).isWhole());
    EXPECT_FALSE(SpriteSheet({"", GraphicKind::Simple, 2, 2, 2}, art({"rb..", "gg..", "yy.."})).isWhole());
    for (const auto& [width, height] : {std::pair{0, 1}, {1, 0}, {-5, 3}, {60000, 60000}})
        EXPECT_TRUE(SpriteSheet({"", GraphicKind::Simple, width, height, 1}, art({"r."})).look(0).isNull());
}

TEST(SpriteSheet, IsSeeThroughWhereItsFileWasCutOff)
{
    Surface picture = art({"rb..", "gg.."});
    picture.set(1, 0, 0); // an image
    picture.set(2, 1, 0); // a mask
    const SpriteSheet sheet({"", GraphicKind::Simple, 2, 2, 1}, picture);
    EXPECT_FALSE(sheet.isWhole());
    EXPECT_EQ(art(sheet.picture()), "r..#\n.g#.\n");
}

TEST_F(SpriteFilesTest, TellWhatIsWrongWithThem)
{
    using enum SpriteSheet::Fault;
    const std::string picture = bitmapFile(art({"r."}));
    const std::string good = "x\r\nSimple,1,1,1\r\n";
    const struct {
        const char *description, *picture;
        SpriteSheet::Fault fault;
    } cases[] = {{good.c_str(), "BM", Damaged},
                 {"x\r\nsimple,1,1,1\r\n", nullptr, Damaged},
                 {good.c_str(), nullptr, None}};
    for (const auto& c : cases) {
        write(c.description, c.picture != nullptr ? std::string(c.picture) : picture);
        EXPECT_EQ(read().has_value(), c.fault == None);
        EXPECT_EQ(fault, c.fault) << c.description;
    }
    for (const char* missing : {"it.spb", "it.spr"}) {
        write(good, picture);
        std::filesystem::remove(folder.path() / missing);
        EXPECT_FALSE(read());
        EXPECT_EQ(fault, Missing) << missing;
    }
}

TEST_F(SpriteFilesTest, AreReadAsTheyWereWritten)
{
    const Installation installation(folder.path());
    for (const SpriteSheet* sheet : {&older, &newer, &older}) {
        ASSERT_TRUE(sheet->write(installation, "it"));
        EXPECT_EQ(bytes("it.spr"), sheet->description().toText());
        const auto again = read();
        ASSERT_TRUE(again);
        EXPECT_EQ(textOf(*again), textOf(*sheet));
    }
    // A description that somebody has changed by hand counts.
    folder.write("it.spr", "mine\r\nRotating,1,1,2\r\n");
    EXPECT_EQ(read()->description().toText(), "mine\r\nRotating,1,1,2\r\n");
    EXPECT_EQ(files(), 2U);
}

TEST_F(SpriteFilesTest, AreOneGenerationWhateverFails)
{
    using enum FailingCalls::Then;
    const Installation installation(folder.path());
    for (const auto then : {FailOnce, FailAll, EndProcess}) {
        bool reached = true;
        int calls = 0;
        while (reached) {
            ASSERT_TRUE(older.write(installation, "it"));
            bool saved = false;
            if (then == EndProcess) {
                const pid_t child = ::fork();
                if (child == 0) {
                    const FailingCalls failing(++calls, then);
                    ::_exit(newer.write(installation, "it") ? 1 : 2);
                }
                ++calls;
                int status = 0;
                ASSERT_EQ(::waitpid(child, &status, 0), child);
                reached = WEXITSTATUS(status) == 0;
            } else {
                const FailingCalls failing(++calls, then);
                saved = newer.write(installation, "it");
                reached = failing.reached();
            }
            const auto sheet = read();
            ASSERT_TRUE(sheet) << calls;
            EXPECT_TRUE(textOf(*sheet) == textOf(newer) || textOf(*sheet) == textOf(older)) << calls;
            if (saved) {
                EXPECT_EQ(textOf(*sheet), textOf(newer)) << calls;
            } else if (then == FailOnce) {
                EXPECT_EQ(textOf(*sheet), textOf(older)) << calls;
            }
        }
        EXPECT_GT(calls, 8); // two files, each made, filled, flushed and renamed
    }
}
