// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "support/Art.h"
#include "support/TestGame.h"

#include <gtest/gtest.h>

// What nobody would write, but a file may hold: a message at the worst, and the game kit goes on.

namespace
{

using Result = HeadlessPlayer::Result;

std::string repeated(std::string_view text, int count)
{
    std::string out;
    for (int i = 0; i < count; ++i)
        out += text;
    return out;
}

/// A game that can still be played after whatever has been tried.
class HostileInput : public testing::Test
{
protected:
    ~HostileInput() override
    {
        EXPECT_EQ(play(programOf({.initialize = "create ball 1 \"dot\" 0 0 0 0 0"})), Result::AllFrames);
    }

    Result play(const std::string& program, bool traced = false)
    {
        HeadlessOptions options;
        options.frames = 3;
        options.trace = options.boxes.code = traced;
        options.wantsPicture = options.showMap = true;
        return game.play(program, options);
    }

    TestGame game;
};

} // namespace

TEST_F(HostileInput, ManyNestedIfs)
{
    constexpr int depth = 100'000;
    const std::string nest =
        repeated("if 1 = 1 {\n", depth) + "set counter$deep 1\n" + repeated("}if\n", depth);
    EXPECT_EQ(play(programOf({.initialize = nest})), Result::AllFrames);
    EXPECT_EQ(game.context().DumpVariablesInto().size(), 1U);
    const std::string elses = repeated("if 1 = 2 {\n}else{\n", depth) + "pause\n" + repeated("}if\n", depth);
    EXPECT_EQ(play(programOf({.loop = elses})), Result::AllFrames);
    EXPECT_EQ(play(programOf({.loop = repeated("if 1 = 1 {\n", depth)})), Result::ParseError);
    EXPECT_EQ(
        play(programOf({.initialize = repeated("if 1 = 1 {\n", 1000) + "pause\n" + repeated("}\n", 1000)}),
             true),
        Result::AllFrames);
}

TEST_F(HostileInput, EndlessLinesAndWords)
{
    const std::string megabyte(1U << 20U, 'x');
    EXPECT_EQ(play(programOf({.initialize = megabyte})), Result::ParseError);
    EXPECT_EQ(
        play(programOf({.initialize = "set counter$" + megabyte + " 1\nset text$t \"" + megabyte + "\""})),
        Result::AllFrames);
    EXPECT_EQ(
        play(programOf({.initialize = "set text$t \"" + megabyte + "\"\ncreate ball 1 text$t 0 0 0 0 0"})),
        Result::RuntimeError);
    EXPECT_EQ(play(programOf({.initialize = "setmap game \"" + repeated("a\\", 100'000) + "\""})),
              Result::RuntimeError);
    EXPECT_EQ(play(programOf({.initialize = "set counter$n " + std::string(1U << 20U, '9')})),
              Result::RuntimeError);
    EXPECT_EQ(play(programOf({.initialize = "set counter$n " + repeated("random(1,", 100'000)})),
              Result::ParseError);
    EXPECT_EQ(play(std::string(1U << 20U, '{')), Result::ParseError);
    EXPECT_EQ(play(repeated("{\n", 100'000)), Result::ParseError);
    EXPECT_EQ(play(repeated("}\n", 100'000)), Result::ParseError);
    EXPECT_EQ(play(std::string(1U << 20U, '\0')), Result::ParseError);
}

TEST_F(HostileInput, ManyOfEverything)
{
    std::string classes;
    std::string states;
    std::string statements;
    for (int i = 0; i < 20'000; ++i) {
        const std::string name = std::to_string(i);
        classes += "c" + name + "{\n}c" + name + "\n";
        states += "s" + name + "{\n}s" + name + "\n";
        statements += "set counter$" + name + " " + name + "\n";
    }
    EXPECT_EQ(play("program{\nclasses{\n" + classes + "}classes\nstates{\nbegin{\ninitialize{\n" +
                   statements + "}initialize\n}begin\n" + states + "}states\n}program\n"),
              Result::AllFrames);
    EXPECT_EQ(game.context().DumpVariablesInto().size(), 20'000U);
    // More sprites than events can wait: their normal events run the queue over.
    const std::string sprites = repeated("create ball 1 \"dot\" 0 0 0 0 0\n", 1001);
    EXPECT_EQ(play(programOf({.normal = "pause", .initialize = sprites})), Result::RuntimeError);
    EXPECT_EQ(game.output.at(0), "! [Internal Error!] Too many simultaneous events! @@@");
}

TEST_F(HostileInput, TextThatIsNoUtf8)
{
    EXPECT_EQ(
        play(programOf(
            {.initialize = "set text$\xff\xc0 \"\xe2\x82\xc3\xdc\"\nset text$t \xf0\x9f\nsetstate \xff"})),
        Result::RuntimeError);
    EXPECT_EQ(play(programOf(
                  {.initialize = "set text$\xff\xc0 \"\xe2\x82\xc3\xdc\"\ncreate \xc3 1 \"\" 0 0 0 0 0"})),
              Result::RuntimeError);
}

TEST_F(HostileInput, MapsWithAbsurdSizes)
{
    const std::string load =
        programOf({.initialize = "setmap game \"m\"\ncreate ball 1 \"dot\" 0 0 0 0 0", .loop = ""});
    const std::string legend = repeated("\r\n", ZBMap::legendCount);
    for (const char* size : {"2000000000\r\n1\r\n", "1\r\n2000000000\r\n", "2147483647\r\n2147483647\r\n",
                             "-5\r\n5\r\n", "1e300\r\n1\r\n", "nan\r\ninf\r\n"}) {
        game.folder.write("m", std::string("\r\n\r\n") + size + legend + "1\r\n2\r\n");
        EXPECT_EQ(play(load), Result::RuntimeError) << size;
    }
    game.folder.write("m", "");
    EXPECT_EQ(play(load), Result::RuntimeError);
    // As fine as a map can be: every sprite finds its square, and it is drawn.
    std::string squares;
    for (int i = 0; i < 300'000; ++i)
        squares += "127,";
    game.folder.write("m", "\r\n\r\n300000\r\n1\r\n" + legend + squares);
    EXPECT_EQ(play(load), Result::AllFrames);
    EXPECT_EQ(game.player.display().at(0, 0), ColorTable[0]);
}

TEST_F(HostileInput, PicturesThatLie)
{
    const std::string show = programOf({.initialize = "create ball 1 \"g\" 77 0 0 0 0"});
    const std::string picture = bitmapFile(art({"r."}));
    const auto play1 = [&](std::string_view description, std::string_view pictureFile) {
        game.folder.write("g.spr", description);
        game.folder.write("g.spb", pictureFile);
        return play(show);
    };
    for (const char* lie :
         {"\nSimple,2147483647,2147483647,2147483647", "\nAnimated,-1,-1,-1", "\nRotating,1,1,0",
          "\nRotating,1,1,2147483647", "\nAnimated,1,2147483647,2147483647", "\nRotating,0,0,-2147483648"})
        EXPECT_EQ(play1(lie, picture), Result::AllFrames) << lie;
    EXPECT_EQ(play1("\nSimple,1,1,1", ""), Result::RuntimeError);
    // A header that promises more than there is, or more than there could be.
    for (const std::size_t field : {std::size_t{18}, std::size_t{22}})
        for (const char* size :
             {"\xff\xff\xff\x7f", "\x00\x00\x00\x80", "\x00\x00\x01\x00", "\x01\x00\x00\x00"}) {
            std::string lying = picture;
            lying.replace(field, 4, std::string(size, 4));
            play1("\nSimple,1,1,1", lying);
        }
    for (std::size_t length = 0; length < picture.size(); length += 3)
        play1("\nSimple,1,1,1", picture.substr(0, length));
    for (const char* kind :
         {"GIF89a\xff\xff\xff\xff", "\xff\xd8\xff\xe0", "\x89PNG\r\n\x1a\n", "<svg/>", "#define x_width 9"})
        EXPECT_EQ(play1("\nSimple,1,1,1", kind), Result::RuntimeError) << kind;
}

TEST_F(HostileInput, FilesThatAreNoFiles)
{
    std::filesystem::create_directory(game.folder.path() / "folder.map");
    std::filesystem::create_symlink("loop.map", game.folder.path() / "loop.map");
    for (const char* name :
         {"folder.map", "loop.map", "..", ".", "", "\\", "c:\\x", "/etc/passwd", "..\\..\\etc\\passwd"})
        for (const char* word : {"setmap", "setbackground", "setmusic"})
            EXPECT_EQ(play(programOf({.loop = std::string(word) + " game \"" + name + "\""})),
                      Result::RuntimeError)
                << word << ' ' << name;
}

TEST_F(HostileInput, EndlessEventsThatReadFiles)
{
    // Reading takes so much longer than other statements that the end must come sooner.
    for (const char* reading : {"setmap game \"colors.map\"", "setbackground game \"sky.bmp\""}) {
        game.output.clear();
        EXPECT_EQ(play(programOf({.collision = std::string("moveright me 0\n") + reading,
                                  .create = "moveright me 0",
                                  .initialize = "create ball 1 \"dot\" 0 0 0 0 0\n"
                                                "create ball 2 \"dot\" 0 0 0 0 0"}),
                       true),
                  Result::RuntimeError);
        EXPECT_LT(game.output.size(), 10'000U) << reading;
    }
}
