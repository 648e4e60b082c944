#include "runtime/RunState.h"

#include "support/TestGame.h"

#include <gtest/gtest.h>

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
        setmap game "colours.map"
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
            game.player.interpreter().timerTick();
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
    game.player.interpreter().timerTick();
    EXPECT_EQ(game.context().DumpVariablesInto(), up); // codes from 128 on are no keys

    RunState late = game.context().save();
    late.frameNumber = 19'999'998;
    game.context().restore(late);
    game.player.interpreter().timerTick();
    EXPECT_EQ(game.context().frameNumber(), 19'999'999);
    game.player.interpreter().timerTick();
    EXPECT_EQ(game.context().frameNumber(), 0);
}
