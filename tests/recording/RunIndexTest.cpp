// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "recording/RunIndex.h"
#include "recording/RecordedGame.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <tuple>

// What an index says of a run must be what one finds by going from statement to statement.

namespace
{

// Changes of every kind: often, seldom, several in a frame, by chance, backwards, fractions, texts, none.
const char* const busyProgram = R"(program{
classes{
ball{
normal{
move me
change counter$moves 1
change counter$moves 1
if me.x > 20 {
  destroy me
}if
}normal
collision{
set text$last "hit"
change counter$hits 0.1
}collision
create{
set text$last "born"
}create
destroy{
set text$last "gone"
change counter$gone 1
}destroy
}ball
}classes
states{
begin{
initialize{
set counter$moves 0
set counter$hits 0
set counter$gone 0
set counter$time 0
setstate play
}initialize
loop{
}loop
}begin
play{
initialize{
create ball 1 "dot" 0 3 -10 0 0
create ball 2 "dot" 180 3 10 0 0
}initialize
loop{
change counter$time 1
set counter$same 5
set counter$chance random(1,3)
if counter$chance = 2 {
  create ball 3 "dot" random(0,360) 7 random(-30,30) 0 0
}if
if counter$chance = 3 {
  set counter$down random(-3.5,2)
}if
if counter$time = 30 {
  setstate begin
}if
}loop
}play
}states
}program
)";

using Key = std::tuple<std::int64_t, std::int32_t, int>;

/// Every value of a counter with the statement before, found step by step.
std::map<Key, double> changesByStepping(RecordedGame& game, std::size_t slot)
{
    std::map<Key, double> changes;
    const auto replay = game.replay();
    replay->seek({0, 0});
    double value = std::nan("");
    Moment before = replay->moment();
    int line = replay->line();
    while (replay->stepForward()) {
        const double now = replay->state().variables.counters[slot];
        if (now == now && now != value)
            changes[{before.frame, before.statement, line}] = value = now;
        before = replay->moment();
        line = replay->line();
    }
    return changes;
}

} // namespace

TEST(RunIndex, VariablesChangeWhereSteppingShowsIt)
{
    RecordedGame game(busyProgram, 40);
    const auto& names = game.index.program()->tree.variables().counters();
    ASSERT_EQ(names.size(), 7U);
    for (std::size_t slot = 0; slot < names.size(); ++slot) {
        std::map<Key, double> found;
        std::int32_t changes = 0;
        for (const RunIndex::Change& change :
             game.index.changesOf(ValueKind::Counter, static_cast<std::int32_t>(slot))) {
            found[{change.moment.frame, change.moment.statement, change.line}] = change.after.realVal;
            changes += change.times;
        }
        const std::map<Key, double> expected = changesByStepping(game, slot);
        ASSERT_EQ(static_cast<std::size_t>(changes), expected.size()) << *names[slot];
        for (const auto& [key, value] : found) // several of one frame may be told as one
            if (const auto same = expected.find(key); same == expected.end())
                ADD_FAILURE() << *names[slot] << " at line " << std::get<2>(key);
        ASSERT_EQ(found.empty(), expected.empty());
        if (!found.empty()) {
            EXPECT_EQ(found.rbegin()->second, expected.rbegin()->second) << *names[slot];
        }
    }
}

TEST(RunIndex, LinesRunWhereSteppingShowsIt)
{
    RecordedGame game(busyProgram, 40);
    std::map<int, std::vector<Moment>> expected;
    const auto replay = game.replay();
    replay->seek({0, 0});
    while (replay->stepForward())
        if (replay->moment().statement > 0)
            expected[replay->line()].push_back(replay->moment());
    ASSERT_GT(expected.size(), 15U);
    for (const auto& [line, moments] : expected) {
        EXPECT_EQ(game.index.timesRun(line), static_cast<std::int64_t>(moments.size())) << line;
        EXPECT_EQ(game.index.firstRun(line), moments.front()) << line;
        EXPECT_EQ(game.index.lastFrameOf(line), moments.back().frame) << line;
        std::vector<std::int64_t> frames;
        for (const RunIndex::LineRun& run : game.index.runsOf(line)) {
            EXPECT_TRUE(std::ranges::count(moments, run.first) == 1) << line;
            for (std::int64_t frame = run.first.frame; frame <= run.lastFrame; ++frame)
                frames.push_back(frame);
        }
        std::vector<std::int64_t> expectedFrames;
        for (const Moment& moment : moments)
            if (expectedFrames.empty() || expectedFrames.back() != moment.frame)
                expectedFrames.push_back(moment.frame);
        EXPECT_EQ(frames, expectedFrames) << line;
    }
}

TEST(RunIndex, SlicesAndGrowthMakeNoDifference)
{
    RecordedGame game(busyProgram, 20);
    while (game.index.extend(3))
        ;
    game.playOn(20);
    while (game.index.extend(1))
        ;
    RecordedGame whole(busyProgram, 40);
    ASSERT_EQ(game.index.frames(), 40);
    ASSERT_EQ(game.index.marks().size(), whole.index.marks().size());
    for (std::size_t i = 0; i < whole.index.marks().size(); ++i) {
        EXPECT_EQ(game.index.marks()[i].moment, whole.index.marks()[i].moment);
        EXPECT_EQ(game.index.marks()[i].kind, whole.index.marks()[i].kind);
    }
    for (int line = 1; line <= whole.index.lines().lineCount(); ++line)
        EXPECT_EQ(game.index.timesRun(line), whole.index.timesRun(line)) << line;
    EXPECT_EQ(game.index.changesOf(ValueKind::Counter, 0).size(),
              whole.index.changesOf(ValueKind::Counter, 0).size());
}

TEST(RunIndex, BeginsAnewWhereARunGoesOnFromThePast)
{
    RecordedGame game(programOf({.initialize = "set counter$a 0", .loop = "change counter$a 1"}), 20);
    const std::uint64_t version = game.index.version();
    const auto replay = game.replay();
    replay->seek({5, 0});
    game.goOnFrom(*replay);
    while (game.index.extend(100))
        ;
    EXPECT_NE(game.index.version(), version);
    EXPECT_EQ(game.index.frames(), 5);
    EXPECT_EQ(game.index.changesOf(ValueKind::Counter, 0).size(), 6U);
    game.playOn(2);
    EXPECT_FALSE(game.index.extend(100));
    EXPECT_EQ(game.index.changesOf(ValueKind::Counter, 0).size(), 8U);
}

TEST(RunIndex, SpritesComeGoAndMeet)
{
    RecordedGame game(busyProgram, 40);
    using Happening = RunIndex::Happening;
    const auto total = [&](Happening what) {
        std::int64_t count = 0;
        for (const RunIndex::ClassEvent& event : game.index.happenedTo(0, what))
            count += event.times;
        return count;
    };
    EXPECT_EQ(total(Happening::Created), game.index.timesRun(game.lineOf("create ball 1")) +
                                             game.index.timesRun(game.lineOf("create ball 2")) +
                                             game.index.timesRun(game.lineOf("create ball 3")));
    EXPECT_EQ(total(Happening::Destroyed), game.index.timesRun(game.lineOf("destroy me")));
    EXPECT_EQ(total(Happening::Hit), game.index.timesRun(game.lineOf("set text$last \"hit\"")));
    EXPECT_GT(total(Happening::Hit), 0);
    EXPECT_GT(total(Happening::Destroyed), 0);
    // One sees a sprite at the moment where it is said to have come.
    const auto replay = game.replay();
    std::int32_t sprites = 0;
    for (const RunIndex::ClassEvent& event : game.index.happenedTo(0, Happening::Created)) {
        replay->seek(event.moment);
        EXPECT_GT(replay->state().lastID, sprites - 1'000'000);
        sprites = replay->state().lastID + 1'000'000;
    }
    // The states: begin, play, begin again, play again.
    std::vector<std::int32_t> states;
    for (const RunIndex::StateEntry& entry : game.index.states())
        states.push_back(entry.state);
    EXPECT_EQ(states, (std::vector<std::int32_t>{0, 1, 0, 1}));
    EXPECT_EQ(game.index.states()[0].line, 0);
    EXPECT_EQ(game.index.states()[1].line, game.lineOf("setstate play"));
    EXPECT_EQ(game.index.states()[2].line, game.lineOf("setstate begin"));
}

TEST(RunIndex, AMistakeAndAPauseAreMarked)
{
    const std::string program = programOf({.initialize = "set counter$a 0",
                                           .loop = "change counter$a 1\nif counter$a = 3 {\npause\n}if\nif "
                                                   "counter$a = 5 {\nchange counter$b 1\n}if"});
    RecordedGame game(program, 10);
    std::vector<RunIndex::Mark> marks = game.index.marks();
    ASSERT_EQ(marks.size(), 3U);
    EXPECT_EQ(marks[1].kind, RunIndex::MarkKind::Pause);
    EXPECT_EQ(marks[1].line, game.lineOf("pause"));
    EXPECT_EQ(marks[1].moment, (Moment{2, 3}));
    EXPECT_EQ(marks[2].kind, RunIndex::MarkKind::Mistake);
    EXPECT_EQ(marks[2].line, game.lineOf("change counter$b 1"));
    const auto replay = game.replay();
    EXPECT_EQ(marks[2].moment, replay->last());
    replay->seek(marks[2].moment);
    EXPECT_EQ(replay->line(), marks[2].line);
    EXPECT_FALSE(game.index.extend(10));
    EXPECT_EQ(game.index.marks().size(), 3U);
}

TEST(RunIndex, ManyChangesInAFrameAreToldAsOne)
{
    std::string changes;
    for (int i = 0; i < 9; ++i)
        changes += "change counter$a 1\n";
    RecordedGame game(programOf({.initialize = "set counter$a 0", .loop = changes}), 3);
    const auto found = game.index.changesOf(ValueKind::Counter, 0);
    std::int32_t times = 0;
    for (std::size_t i = 0; i < found.size(); ++i) {
        times += found[i].times;
        if (i > 0) {
            EXPECT_EQ(found[i].before.realVal, found[i - 1].after.realVal);
        }
    }
    EXPECT_EQ(times, 28);
    EXPECT_EQ(found.size(), 12U);
    EXPECT_EQ(found.back().after.realVal, 27);
}

TEST(RunIndex, NothingIsKnownOfNoRun)
{
    const Recording recording;
    PictureFiles pictures;
    RunIndex index(recording, pictures);
    EXPECT_FALSE(index.extend(10));
    EXPECT_EQ(index.program(), nullptr);
    EXPECT_EQ(index.timesRun(1), 0);
    EXPECT_TRUE(index.changesOf(ValueKind::Counter, 0).empty());
    EXPECT_TRUE(index.happenedTo(0, RunIndex::Happening::Created).empty());
}
