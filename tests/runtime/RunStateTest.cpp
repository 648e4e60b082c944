// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/RunState.h"

#include "support/Art.h"
#include "support/TestGame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace
{

constexpr std::string_view busyGame = R"(program{
  classes{
    ball{
      create{
        setspeed me random(1,9)
        setdirection me random(0,359.5)
      }create
      normal{
        move me
        rebound me game
        if me.speed > 8.5 {
          changespeed me -0.25
        }if
        if counter$frame > 30 {
          if keyboard.space = "true" {
            destroy me
          }if
        }if
      }normal
      collision{
        rebound me it
        change counter$hits 1
        if counter$hits > 200 {
          set counter$hits 0
          set counter$hits counter$unset ; the frame ends here, and the trace stays indented
        }if
      }collision
      mapchange{
        set text$last game.map
      }mapchange
      destroy{
        setstate again
      }destroy
    }ball
  }classes
  states{
    begin{
      initialize{
        set counter$frame 0
        set counter$hits 0
        set text$last ""
        setbackground game "sky.bmp"
        setmap game "colors.map"
      }initialize
      loop{
        change counter$frame 1
        if counter$frame < 40 {
          create ball counter$frame "flip" 0 0 random(-90,90) random(-90,90) 0
          create ball text$last "dial" 0 0 random(-90,90) random(-90,90) 0
        }if
        if counter$frame = 3 {
          set text$last "?"
        }if
      }loop
    }begin
    again{
      loop{
        setstate begin
      }loop
    }again
  }states
}program
)";

/// A run of the busy game, saved after some frames and played on from there as often as one likes.
class Rewound : public testing::TestWithParam<int>
{
protected:
    struct Recording {
        std::vector<std::string> lines;
        std::vector<Surface> pictures;
        bool operator==(const Recording&) const = default;
    };

    Recording playOn()
    {
        Recording recording;
        game.output.clear();
        for (int frame = 0; frame < 50; ++frame) {
            if (frame == 20)
                game.context().KeyDown(32, 0);
            if (frame == 21)
                game.context().KeyUp(32, 0);
            game.player.playFrame();
            recording.pictures.push_back(game.player.display());
        }
        recording.lines = game.output;
        for (const std::string& line : game.context().DumpVariablesInto())
            recording.lines.push_back(line);
        return recording;
    }

    TestGame game;
};

} // namespace

TEST_P(Rewound, ARunGoesOnFromACopyAsItDidBefore)
{
    HeadlessOptions options;
    options.frames = GetParam();
    options.trace = true;
    options.boxes = {true, true, true};
    options.wantsPicture = true;
    options.showMap = true;
    game.play(busyGame, options);
    ASSERT_TRUE(game.context().InterpreterRunning()) << game.output.back();

    const RunState saved = game.context().save();
    const Recording first = playOn();
    EXPECT_GT(first.lines.size(), 1000U);
    game.context().restore(saved);
    const Recording second = playOn();
    EXPECT_EQ(first.lines, second.lines);
    EXPECT_TRUE(first.pictures == second.pictures);

    // Even when another run has come between.
    game.play(programOf({}), options);
    game.context().restore(saved);
    EXPECT_TRUE(playOn() == first);
}

INSTANTIATE_TEST_SUITE_P(AfterFrames, Rewound, testing::Values(1, 20, 60), testing::PrintToStringParamName());

namespace
{

/// Takes the frame that has come back to its end, statement by statement; `atWait` sees every one that waits.
void finishFrame(TestGame& game, Progress progress, const std::function<void()>& atWait)
{
    for (; progress == Progress::Waiting; progress = game.context().advance())
        atWait();
    EXPECT_EQ(progress, Progress::FrameDone);
}

} // namespace

TEST(Runs, GoOnFromACopyAtEveryStatement)
{
    TestGame game;
    HeadlessOptions options;
    options.frames = 8;
    options.trace = options.wantsPicture = options.showMap = true;
    options.boxes = {true, true, true};
    game.play(busyGame, options);
    ASSERT_TRUE(game.context().InterpreterRunning()) << game.output.back();
    ZBContext& context = game.context();
    context.statements().setStepMode(true);

    struct Copy {
        RunState state;
        std::size_t linesSoFar;
    };
    std::vector<Copy> copies;
    constexpr std::int64_t lastTick = 12;
    const auto playOn = [&](Progress progress, const std::function<void()>& atWait) {
        finishFrame(game, progress, atWait);
        while (context.state().tick < lastTick)
            finishFrame(game, context.Quantum(), atWait);
        std::vector<std::string> dump = context.DumpVariablesInto();
        dump.push_back(art(context.display(), 8));
        return dump;
    };
    const auto pressKeys = [&] { // they count when the statement goes on
        if (context.state().currentLine() % 5 == 2)
            context.KeyDown(32, 0);
        if (context.state().currentLine() % 5 == 4)
            context.KeyUp(32, 0);
    };
    game.output.clear();
    const auto dump = playOn(context.Quantum(), [&] {
        copies.push_back({context.save(), game.output.size()});
        pressKeys();
    });
    const std::vector<std::string> lines = game.output;
    ASSERT_GT(copies.size(), 200U);

    for (std::size_t i = 0; i < copies.size(); ++i) {
        const Copy& copy = copies[i * 7 % copies.size()]; // to and fro
        game.output.assign(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(copy.linesSoFar));
        context.restore(copy.state);
        pressKeys();
        EXPECT_TRUE(playOn(context.advance(), pressKeys) == dump) << "from copy " << i;
        EXPECT_TRUE(game.output == lines) << "from copy " << i;
    }
}

TEST(Runs, TakeTheirKeysFromAQueue)
{
    TestGame game;
    HeadlessOptions options;
    options.frames = 0;
    const Blocks blocks{.initialize = "set counter$n 0",
                        .loop = "change counter$n 1\nset text$left keyboard.left\nset text$up keyboard.up"};
    game.play(programOf(blocks), options);
    ZBContext& context = game.context();
    context.addInputs(
        {{.time = {.tick = 2}, .down = true, .code = 37}, {.time = {.tick = 4}, .down = false, .code = 37}});
    const auto shows = [&](std::string_view text) {
        const auto dump = context.DumpVariablesInto();
        return std::ranges::find(dump, text) != dump.end();
    };
    for (int tick = 1; tick <= 5; ++tick) {
        if (tick == 3)
            context.KeyDown(38, 0); // before what the script holds for later
        game.player.playFrame();
        EXPECT_EQ(shows("text$left          =\"true\""), tick == 2 || tick == 3) << tick;
        EXPECT_EQ(shows("text$up            =\"true\""), tick >= 3) << tick;
    }
    EXPECT_TRUE(context.state().inputs.empty());
}

TEST(Runs, AreEqualToTheByteForEqualSeeds)
{
    const auto record = [](std::uint64_t seed) {
        TestGame game;
        HeadlessOptions options;
        options.frames = 60;
        options.trace = options.dump = options.wantsPicture = true;
        options.boxes = {true, true, true};
        options.seed = seed;
        game.play(busyGame, options);
        return std::pair(game.output, game.player.display());
    };
    EXPECT_TRUE(record(5) == record(5));
    EXPECT_FALSE(record(5) == record(6));
}

TEST(Runs, BeginWithAllKeysUpAndCountFramesRoundAgain)
{
    TestGame game;
    game.context().KeyDown(37, 0);
    HeadlessOptions options;
    options.frames = 1;
    const Blocks blocks{.loop = "set text$left keyboard.left\nset text$any keyboard.anykey"};
    game.play(programOf(blocks), options);
    const std::vector<std::string> up = {"text$left          =\"False\"", "text$any           =\"False\""};
    EXPECT_EQ(game.context().DumpVariablesInto(), up);

    game.context().KeyDown(127, 0);
    game.context().KeyDown(128, 0);
    game.context().KeyUp(127, 0);
    game.player.playFrame();
    EXPECT_EQ(game.context().DumpVariablesInto(), up); // codes from 128 on are no keys

    RunState late = game.context().save();
    late.frameNumber = 19'999'998;
    game.context().restore(late);
    game.player.playFrame();
    EXPECT_EQ(game.context().frameNumber(), 19'999'999);
    game.player.playFrame();
    EXPECT_EQ(game.context().frameNumber(), 0);
}
