// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "recording/Questions.h"
#include "recording/Explanation.h"
#include "recording/LineLife.h"
#include "recording/RecordedGame.h"
#include "recording/SpriteStory.h"

#include <gtest/gtest.h>

#include <tuple>

// Runs with planted situations, and what a child gets to know of them.

namespace
{

// A ball flies into a star, which goes; the third star wins.
const char* const starProgram = R"(program{
classes{
ball{
normal{
move me
}normal
}ball
star{
normal{
if me.x < 0 {
  hide me
}if
}normal
collision{
change counter$touched 1
}collision
destroy{
change counter$score 1
}destroy
}star
wall{
normal{
movehigher me 0
}normal
collision{
if it.class = star {
  destroy it
}if
}collision
}wall
}classes
states{
begin{
initialize{
set counter$score 3
set counter$time 0
create ball "b" "dot" 0 4 -20 0 0
create star "s" "dot" 0 0 0 0 0
}initialize
loop{
change counter$time 1
if counter$time = 4 {
  create wall "w" "dot" 90 0 3 0 0
}if
if counter$time = 6 {
  setstate won
}if
}loop
}begin
won{
initialize{
}initialize
loop{
set counter$won counter$stars
change counter$score 100
}loop
}won
}states
}program
)";

// The ball touches the apple in its third frame, and then goes back.
const char* const meetingProgram = R"(program{
classes{
ball{
normal{
move me
}normal
collision{
setposition me -50 -50 0
}collision
}ball
apple{
}apple
}classes
states{
begin{
initialize{
create ball 1 "dot" 0 4 -20 0 0
create apple 1 "dot" 0 0 1 0 0
}initialize
loop{
}loop
}begin
}states
}program
)";

std::vector<std::string> textsOf(const Answers& answers)
{
    std::vector<std::string> texts;
    for (const Answer& answer : answers.list)
        texts.push_back(answer.text);
    if (texts.empty())
        texts.push_back(answers.note);
    return texts;
}

Question questionOf(const Questions& questions, std::string_view text)
{
    for (Question& each : questions.all())
        if (each.text == text)
            return each;
    ADD_FAILURE() << text;
    return {};
}

} // namespace

TEST(Questions, SpeakOfWhatHappened)
{
    RecordedGame game(starProgram, 9);
    const Questions questions(game.index);
    struct Case {
        const char* question;
        std::vector<std::string> answers;
    };
    for (const Case& each : {
             Case{"When did counter$score change?", {"Frame 1, line 35: counter$score became 3"}},
             Case{"When did counter$stars change?", {"counter$stars has not changed yet."}},
             Case{"When was a star created?", {"Frame 1, line 38: a star was created"}},
             Case{"When was a wall created?", {"Frame 4, line 43: a wall was created"}},
             Case{"When was a ball destroyed?", {"No ball has been destroyed yet."}},
             Case{"When was a ball hit?", {"No COLLISION block has run for a ball yet."}},
             Case{"When did I come into state begin?", {"Frame 1: came into state begin"}},
             Case{"When did I come into state won?",
                  {"Frame 7: came into state won, as line 46 said in frame 6"}},
         })
        EXPECT_EQ(textsOf(questions.answer(questionOf(questions, each.question))), each.answers)
            << each.question;
    EXPECT_EQ(textsOf(questions.answer(Questions::aboutLine(41))),
              std::vector<std::string>{"Frames 1 to 6: line 41 ran in each of them"});
    EXPECT_EQ(questions.answer(Questions::aboutLine(41)).note, "Line 41 ran 6 times.");
    EXPECT_EQ(questions.answer(Questions::aboutLine(2)).note, "There is no instruction in line 2.");
    EXPECT_EQ(questions.answer(Questions::aboutLine(15)).note, "Line 15 has not run yet.");
}

TEST(Questions, EveryAnswerLeadsToItsLine)
{
    RecordedGame game(starProgram, 9);
    const Questions questions(game.index);
    const auto replay = game.replay();
    int sought = 0;
    for (const Question& question : questions.all()) {
        const bool isOfStatement = question.kind == Question::Kind::CounterChanged ||
                                   question.kind == Question::Kind::SpriteDestroyed;
        for (const Answer& answer : questions.answer(question).list) {
            ASSERT_TRUE(replay->seek(answer.moment));
            sought += isOfStatement ? 1 : 0;
            if (isOfStatement) {
                EXPECT_EQ(replay->line(), answer.line) << answer.text;
            }
        }
    }
    EXPECT_GT(sought, 6);
}

TEST(Questions, AHitIsToldToBothWhoTouch)
{
    RecordedGame game(meetingProgram, 4);
    const Questions questions(game.index);
    EXPECT_EQ(textsOf(questions.answer(questionOf(questions, "When was a ball hit?"))),
              std::vector<std::string>{"Frame 3, line 7: a ball touched an apple"});
    EXPECT_EQ(textsOf(questions.answer(questionOf(questions, "When was an apple hit?"))),
              std::vector<std::string>{"Frame 3, line 7: a ball touched an apple"});
    const auto replay = game.replay();
    SpriteStory story(game.recording, *replay, &game.index);
    for (const auto& [frame, sprite, text] :
         {std::tuple(3, 0, "Its COLLISION block ran in this frame."),
          std::tuple(3, 1, "Another sprite moved against it: the COLLISION block of that one ran."),
          std::tuple(2, 0, "It touches nothing now"),
          std::tuple(2, 0, "Class ball has a COLLISION block, which did not run in this frame.")}) {
        replay->seek({frame, 0});
        const auto card = story.card(sprite);
        ASSERT_TRUE(card);
        int found = 0;
        for (const CardLine& line : card->touches)
            found += line.text.starts_with(text) ? 1 : 0;
        EXPECT_EQ(found, 1) << text;
    }
}

TEST(Questions, AListEndsAtItsLimitAroundTheMoment)
{
    RecordedGame game(programOf({.initialize = "set counter$a 0", .loop = "change counter$a 1"}), 2500);
    const Questions questions(game.index);
    const Question question = questionOf(questions, "When did counter$a change?");
    struct Case {
        Moment around;
        std::int64_t firstFrame;
        bool hasEarlier;
        bool hasLater;
    };
    for (const Case& each : {Case{{0, 0}, 0, false, true}, Case{{1200, 1}, 701, true, true},
                             Case{{9999, 0}, 1500, true, false}}) {
        const Answers answers = questions.answer(question, each.around);
        ASSERT_EQ(answers.list.size(), Questions::mostAnswers);
        EXPECT_EQ(answers.list.front().moment.frame, each.firstFrame);
        EXPECT_EQ(answers.hasEarlier, each.hasEarlier);
        EXPECT_EQ(answers.hasLater, each.hasLater);
    }
}

TEST(Questions, AFrameIsToldStatementByStatement)
{
    RecordedGame game(starProgram, 9);
    const auto replay = game.replay();
    replay->seek({6, 2});
    const Answers frame = Questions::inFrame(*replay, {4, 0});
    EXPECT_EQ(replay->moment(), (Moment{6, 2}));
    const std::vector<std::string> expected = {
        "Line 41: change counter$time 1 (counter$time went from 3 to 4)",
        "Line 42: if counter$time = 4 (counter$time was 4: yes)",
        "Line 43: a wall was created",
        "Line 45: if counter$time = 6 (counter$time was 4: no)",
        "NORMAL of a ball",
        "Line 5: move me",
        "NORMAL of a star",
        "Line 10: if me.x < 0 (me.x was 0: no)",
        "NORMAL of a wall",
        "Line 23: movehigher me 0",
    };
    EXPECT_EQ(textsOf(frame), expected);
    for (const Answer& answer : frame.list) {
        replay->seek(answer.moment);
        if (answer.text.find(": if ") != std::string::npos ||
            answer.text.find("change") != std::string::npos) {
            EXPECT_EQ(replay->line(), answer.line) << answer.text;
        }
    }
    EXPECT_EQ(Questions::inFrame(*replay, {0, 0}).note, "The game has not begun yet.");
    EXPECT_EQ(
        textsOf(Questions::inFrame(*replay, {8, 0})),
        std::vector<std::string>{"Line 54: set counter$won counter$stars (counter$stars has no value yet)"});
}

TEST(Explanation, TellsTheValuesOfEachStatement)
{
    struct Case {
        const char* statement;
        const char* text;
    };
    for (const Case& each : {
             Case{"if counter$three = 3 {\n}if", "counter$three was 3: yes"},
             Case{"if counter$three > 3 {\n}if", "counter$three was 3: no"},
             Case{"if 4 > counter$three {\n}if", "counter$three was 3: yes"},
             Case{"if 4 > 3 {\n}if", "yes"},
             Case{"if counter$three != counter$half {\n}if",
                  "counter$three was 3 and counter$half was 0.5: yes"},
             Case{"if text$name = \"pip\" {\n}if", "text$name was \"pip\": yes"},
             Case{"if keyboard.left = \"true\" {\n}if", "keyboard.left was \"False\": no"},
             Case{"if keyboard.right = \"true\" {\n}if", "keyboard.right was \"true\": yes"},
             Case{"if game.map = \"\" {\n}if", "game.map was \"\": yes"},
             Case{"if counter$none = 1 {\n}if", "counter$none has no value yet"},
             Case{"if 1 < counter$none {\n}if", "counter$none has no value yet"},
             Case{"set counter$x counter$none", "counter$none has no value yet"},
             Case{"set text$x text$none", "text$none has no value yet"},
             Case{"change counter$three counter$none", "counter$none has no value yet"},
             Case{"set counter$x random(1,counter$none)", "counter$none has no value yet"},
             Case{"set counter$x random(1,text$name)", "random needs two numbers"},
             Case{"set counter$x counter$three", ""},
             Case{"setstate begin", ""},
         }) {
        const std::string before = "set counter$three 3\nset counter$half 0.5\nset text$name \"pip\"\n";
        RecordedGame game(programOf({.initialize = before, .loop = each.statement}), 1, {{1, true, 39}});
        const auto replay = game.replay();
        const Moment last{0, 4};
        const std::vector<Explained> explained = explain(*replay, last, 2);
        ASSERT_EQ(explained.size(), 2U) << each.statement;
        EXPECT_EQ(explained[0].text, "");
        EXPECT_EQ(explained[1].text, each.text) << each.statement;
        EXPECT_EQ(replay->moment(), last);
        EXPECT_EQ(replay->line(), explained[1].line);
    }
}

TEST(Explanation, ARandomNumberIsTheOneThatIsDrawn)
{
    RecordedGame game(
        programOf({.loop = "if random(1,2) = 1 {\nset counter$a 1\n}else{\nset counter$a 2\n}if"}), 60);
    const auto replay = game.replay();
    const std::vector<Explained> explained = explain(*replay, {60, 0}, 100);
    ASSERT_EQ(explained.size(), 100U);
    const int thenLine = game.lineOf("set counter$a 1");
    for (std::size_t i = 0; i < explained.size(); i += 2) {
        const bool held = explained[i + 1].line == thenLine;
        EXPECT_EQ(explained[i].text, held ? "random(1,2) was 1: yes" : "random(1,2) was 2: no");
    }
}

TEST(Explanation, StandsBesideTheHistory)
{
    RecordedGame game(starProgram, 9);
    const auto replay = game.replay();
    for (const Moment moment : {Moment{5, 3}, Moment{8, 0}, Moment{1, 0}}) {
        replay->seek(moment);
        std::vector<std::string> numbered;
        for (const std::string& line : replay->history({.code = true}, 100).lines)
            if (line.size() > 4 && line[3] != ' ' && line.find("PAUSE") == std::string::npos)
                numbered.push_back(line);
        const std::vector<Explained> explained = explain(*replay, moment);
        ASSERT_EQ(explained.size(), numbered.size());
        for (std::size_t i = 0; i < explained.size(); ++i)
            EXPECT_EQ(std::stoi(numbered[i]), explained[i].line);
    }
}

TEST(SpriteStory, TellsWhichLineDidWhat)
{
    RecordedGame game(starProgram, 9);
    const auto replay = game.replay();
    for (const RunIndex* index :
         {static_cast<const RunIndex*>(nullptr), static_cast<const RunIndex*>(&game.index)}) {
        SpriteStory story(game.recording, *replay, index);
        replay->seek({5, 0});
        const auto ball = story.card(0);
        EXPECT_EQ(replay->moment(), (Moment{5, 0}));
        ASSERT_TRUE(ball);
        EXPECT_EQ(ball->title, "A ball");
        ASSERT_EQ(ball->deeds.size(), 3U);
        EXPECT_EQ(ball->deeds[0].text, "Created in frame 1 by line 37");
        EXPECT_EQ(ball->deeds[1].text, "Moved last in frame 5 by line 5");
        EXPECT_EQ(ball->deeds[2].text, "It has not turned yet.");
        replay->seek(*ball->deeds[1].moment);
        EXPECT_EQ(replay->line(), 5);
        ASSERT_EQ(ball->touches.size(), 3U);
        EXPECT_EQ(ball->touches[0].text, "It touches a star now.");
        EXPECT_EQ(ball->touches[2].text,
                  "Class ball has no COLLISION block, so nothing happens when a ball touches something.");

        replay->seek({5, 0});
        const auto star = story.card(1);
        ASSERT_TRUE(star);
        const auto holds = [&](std::string_view text) {
            return std::ranges::any_of(star->touches,
                                       [&](const CardLine& line) { return line.text.starts_with(text); });
        };
        EXPECT_TRUE(holds("It touches a ball now."));
        EXPECT_TRUE(holds("Class star has a COLLISION block, which did not run in this frame."));
        EXPECT_TRUE(holds("Touches are only looked for when a sprite moves, and it did not move"));
        EXPECT_FALSE(story.card(7));
        EXPECT_FALSE(story.card(-1));
    }
}

TEST(SpriteStory, FindsDeedsThatAreLongAgo)
{
    RecordedGame game(
        programOf({.normal = "if counter$time = 5 {\nhide me\n}if\nif counter$time = 7 {\nsetdirection "
                             "me 90\nmove me\n}if\nif counter$time = 9 {\nmove me\nunmove me\n}if",
                   .initialize = "set counter$time 0\ncreate ball 1 \"dot\" 0 9 0 0 0",
                   .loop = "change counter$time 1"}),
        1000);
    const auto replay = game.replay();
    for (const RunIndex* index :
         {static_cast<const RunIndex*>(nullptr), static_cast<const RunIndex*>(&game.index)}) {
        replay->seek({1000, 0});
        SpriteStory story(game.recording, *replay, index);
        const auto card = story.card(0);
        ASSERT_TRUE(card);
        ASSERT_EQ(card->deeds.size(), 4U);
        for (const auto& [place, text] :
             {std::pair(1, "unmove me"), std::pair(2, "setdirection"), std::pair(3, "hide me")})
            EXPECT_EQ(card->deeds[static_cast<std::size_t>(place)].line, game.lineOf(text)) << text;
        EXPECT_EQ(card->deeds[0].line, game.lineOf("create ball"));
        for (const CardLine& deed : card->deeds) {
            replay->seek(*deed.moment);
            if (&deed != &card->deeds.front()) {
                EXPECT_EQ(replay->line(), deed.line) << deed.text;
            }
        }
    }
}

TEST(SpriteStory, SeesTheTopmostSprite)
{
    RecordedGame game(
        programOf({.initialize = "create ball 1 \"dot\" 0 0 0 0 0\ncreate ball 2 \"dot\" 0 0 0 0 0\n"
                                 "create ball 3 \"dot\" 0 0 50 50 0"}),
        1);
    const auto replay = game.replay();
    replay->seek({1, 0});
    struct Case {
        int x;
        int y;
        int sprite;
    };
    for (const Case& each : {Case{240, 240, 1}, Case{238, 238, 1}, Case{241, 240, -1}, Case{240, 242, -1},
                             Case{360, 120, 2}, Case{0, 0, -1}, Case{-5, 700, -1}})
        EXPECT_EQ(spriteAt(replay->state(), each.x, each.y), each.sprite) << each.x << "," << each.y;
}

TEST(LineLife, SaysHowEachLineHasLived)
{
    using Life = LineLife::Life;
    const std::string program = R"(program{
classes{
outside of everything
ball{
normal{
set counter$a 1 ; a comment
if counter$a = 2 {
  set counter$b 1
}else{
  set counter$c 1
}if
if counter$a = 1 {
  set counter$d 1
}else{
  set counter$e 1
}if
if counter$time = 3 {
  set counter$f counter$none
  set counter$g 1
}if
}normal
collision{
set counter$h 1
}collision
mapchange{
set counter$i 1
}mapchange
destroy{
set counter$j 1
}destroy
}ball
ball{
normal{
set counter$k 1
}normal
}ball
}classes
states{
begin{
initialize{
set counter$l 1
set counter$time 0
create ball 1 "dot" 0 0 0 0 0
}initialize
loop{
change counter$time 1
}loop
}begin
won{
loop{
set counter$m 1
}loop
}won
}states
}program
)";
    RecordedGame game(program, 3);
    const LineLife life(game.index, *game.recording.beginning().lines);
    struct Case {
        const char* line;
        Life life;
        const char* tip;
    };
    for (const Case& each : {
             Case{"classes{", Life::NotAStatement, ""},
             Case{"outside", Life::CannotRun,
                  "This line can never run: it stands outside of the blocks that instructions belong in."},
             Case{"counter$a 1", Life::RanInLastFrame, "Ran 4 times, first in frame 1"},
             Case{"counter$b 1", Life::NeverRan,
                  "This line has not run yet: the if in line 7 has never been true so far."},
             Case{"counter$c 1", Life::RanInLastFrame, "Ran 4 times, first in frame 1"},
             Case{"counter$e 1", Life::NeverRan,
                  "This line has not run yet: the if in line 12 has always been true so far."},
             Case{"counter$g 1", Life::NeverRan,
                  "This line has not run yet: its block has always ended before it came here."},
             Case{"counter$h 1", Life::NeverRan,
                  "This COLLISION block has not happened yet: no ball has touched anything"},
             Case{"counter$i 1", Life::NeverRan,
                  "This MAPCHANGE block has not happened yet: no ball has come to another color of the map"},
             Case{"counter$j 1", Life::NeverRan,
                  "This DESTROY block has not happened yet: no ball has been destroyed"},
             Case{"counter$k 1", Life::CannotRun,
                  "This line can never run: there is another class named ball before this one."},
             Case{"counter$f counter", Life::RanInLastFrame, "Ran once, in frame 3"},
             Case{"counter$l 1", Life::RanBefore, "Ran once, in frame 1"},
             Case{"create ball", Life::RanBefore, "Ran once, in frame 1"},
             Case{"counter$m 1", Life::NeverRan,
                  "This LOOP block has not happened yet: the game has not come into state won"},
         }) {
        EXPECT_EQ(life.lifeOf(game.lineOf(each.line)), each.life) << each.line;
        EXPECT_EQ(life.tip(game.lineOf(each.line)), each.tip) << each.line;
    }
}
