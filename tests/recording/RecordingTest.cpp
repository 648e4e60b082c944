// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "recording/Recording.h"
#include "recording/GeneratedProgram.h"
#include "recording/RecordedGame.h"
#include "recording/RewoundPlay.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

// A run is recorded, and every moment of it must come back as it was.

namespace
{

class Rewinding : public testing::TestWithParam<const char*>
{
};

void expectAllComesBack(BundledGame& game, std::uint64_t seed, int frames, bool seesAll)
{
    Play play(game.installation, game.pictures, game.module, seesAll);
    play.play(game.text, frames, seed);
    ASSERT_FALSE(play.recording.isEmpty());
    ASSERT_GT(play.recording.frames(), frames / 10) << play.lines.back();
    play.expectAllAgain(seed);
}

} // namespace

TEST_P(Rewinding, EveryMomentOfABundledGameComesBack)
{
    BundledGame game(GetParam());
    for (const std::uint64_t seed : {1U, 2U})
        expectAllComesBack(game, seed, 500, false);
}

/// Takes many minutes: only where the environment asks for it, with ZB_LONG=1.
TEST_P(Rewinding, EveryFrameOfLongPlaysComesBack)
{
    if (!std::getenv("ZB_LONG"))
        GTEST_SKIP() << "long";
    BundledGame game(GetParam());
    for (std::uint64_t seed = 1; seed <= 5; ++seed)
        expectAllComesBack(game, seed, 5000, true);
}

TEST(Keyframes, MakeNoDifferenceHoweverManyAreKept)
{
    BundledGame game("00000001");
    constexpr std::size_t cap = 60'000; // three of them
    Play every(game.installation, game.pictures, game.module);
    every.recording.keepEveryFrame();
    Play few(game.installation, game.pictures, game.module, false, cap);
    for (Play* play : {&every, &few}) {
        play->play(game.text, 1500, 4);
        play->expectAllAgain(4);
    }
    EXPECT_EQ(every.recording.keyframes().size(), 1501U);
    EXPECT_LE(few.recording.bytes(), cap);
    EXPECT_LT(few.recording.keyframes().size(), 4U);
}

INSTANTIATE_TEST_SUITE_P(Games, Rewinding,
                         testing::Values("00000001", "00000002", "00000003", "00000004", "00000005",
                                         "00000006"));

class RewindingGenerated : public testing::TestWithParam<std::uint64_t>
{
};

TEST_P(RewindingGenerated, EveryMomentComesBack)
{
    BundledGame game("00000001", GeneratedProgram(GetParam()).text());
    expectAllComesBack(game, GetParam(), 100, false);
}

TEST_P(RewindingGenerated, EveryFrameOfLongPlaysComesBack)
{
    if (!std::getenv("ZB_LONG"))
        GTEST_SKIP() << "long";
    BundledGame game("00000001", GeneratedProgram(GetParam()).text());
    for (std::uint64_t seed = 1; seed <= 4; ++seed)
        expectAllComesBack(game, seed, 5000, true);
}

INSTANTIATE_TEST_SUITE_P(Programs, RewindingGenerated, testing::Values(1, 2, 3, 4, 5));

namespace
{

/// So many in each frame, the arrow keys in turns; the last of each decides.
std::vector<KeyInput> manyKeys(std::int64_t frames, int inEach)
{
    std::vector<KeyInput> keys;
    for (std::int64_t tick = 1; tick <= frames; ++tick)
        for (int i = 0; i < inEach; ++i)
            keys.push_back({{.tick = tick}, (tick + i) % 2 == 0, 37 + i % 4});
    return keys;
}

} // namespace

TEST(LongRecording, HundredsOfThousandsOfKeysAreNoBurden)
{
    RecordedGame game(programOf(Blocks{}), 1);
    constexpr std::int64_t frames = 40'000;
    constexpr int keysInEach = 10;
    Recording recording;
    recording.begin(game.recording.beginning(), game.recording.files(), 1);
    recording.setPlayed(manyKeys(frames, keysInEach), frames, false);
    PictureFiles pictures;
    Replay replay(recording, pictures);
    for (const std::int64_t frame : {frames, frames - 1, std::int64_t{1}}) {
        ASSERT_TRUE(replay.seek({frame, 0}));
        for (int code = 37; code < 41; ++code)
            EXPECT_EQ(replay.state().keyboard.isDown(code), (frame + code - 37) % 2 == 0)
                << frame << ": " << code;
        EXPECT_TRUE(replay.state().inputs.empty()) << "those of later frames are not there yet";
    }
}

TEST(Rewound, ARunThatPausesItselfInEveryFrameIsGoneThrough)
{
    RecordedGame game(programOf(Blocks{.initialize = "set counter$n 0",
                                       .loop = "change counter$n 1\npause\nchange counter$n 100"}),
                      50);
    const auto replay = game.replay();
    const Moment last = replay->last();
    ASSERT_EQ(last, (Moment{50, 0}));
    int moments = 0;
    for (replay->seek({}); replay->stepForward(); ++moments)
        ASSERT_LT(moments, 1000);
    EXPECT_EQ(replay->moment(), last);
    int back = 0;
    for (; replay->stepBack(); ++back)
        ASSERT_LT(back, 1000);
    EXPECT_EQ(back, moments);
    EXPECT_EQ(replay->moment(), Moment{});
    for (const std::int64_t frame : {std::int64_t{2}, std::int64_t{49}, std::int64_t{50}}) {
        replay->seek({frame, 0});
        EXPECT_EQ(replay->state().variables.counters.front(), static_cast<double>(frame)) << frame;
    }
}
