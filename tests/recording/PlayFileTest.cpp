// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "recording/PlayFile.h"
#include "app/GameModule.h"
#include "headless/HeadlessPlayer.h"
#include "platform/Installation.h"
#include "platform/Random.h"
#include "platform/TextFile.h"
#include "platform/pictures/PictureFiles.h"
#include "recording/PlayCheck.h"
#include "recording/Replay.h"
#include "recording/StateSum.h"
#include "support/TestGame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

// Plays that are kept: their text, and how they are played again.

namespace
{

/// Everything that a play may hold, in a few lines.
const std::string smallPlay = "zorbino play 1\n"
                              "version 1.0.0\n"
                              "title A \\\\ B\n"
                              "kept 2026-11-22 10:15\n"
                              "name here I win\n"
                              "pinned yes\n"
                              "seed 18446744073709551615\n"
                              "program 0000000000000001\n"
                              "lines AAAB\n"
                              "file 0000000000000002 dot.spr\n"
                              "file missing no such.spb\n"
                              "variable counter$a\n"
                              "frames 2\n"
                              "state 0 000000000000000a\n"
                              "1+37\n"
                              "1-37\n"
                              "2.3:17+32\n"
                              "way A/\n"
                              "state 2 fedcba9876543210\n"
                              "1+300\n"
                              "mistake 5 One\\r\\nTwo\n";

std::string faultOf(const std::string& text)
{
    std::string fault;
    return readPlay(text, fault) ? "none" : fault;
}

std::string replaced(std::string text, std::string_view from, std::string_view to)
{
    return text.replace(text.find(from), from.size(), to);
}

class QuietReporter : public ParseReporter
{
    void parseError(const ParseFault& /*fault*/) override {}
    void beep() override {}
};

/// Played in the game of a folder as it is now.
PlayVerdict checked(const PlayFile& play, const std::string& program, const FileSource& files,
                    const std::string& path, Recording* recording = nullptr,
                    std::int64_t until = PlayFile::mostFrames)
{
    PictureFiles pictures;
    QuietReporter reporter;
    const auto start = startPlay(play, withProductLineEnds(program), files, path, pictures, reporter);
    if (!start)
        return {};
    PlayCheck check(play, *start, pictures);
    check.setUntil(until);
    if (recording)
        check.record(*recording);
    while (check.play(7)) {
    }
    return check.verdict();
}

/// Keys that go up and down at random in a run of a bundled game, which now and then is stepped, with keys
/// while it waits.
class BundledPlay
{
public:
    explicit BundledPlay(const std::string& number)
        : place(placeOf(std::filesystem::path(ZB_SOURCE_DIR) / "games" / number))
        , path(place.gamesFolder + place.folder)
        , installation(place.installation)
        , text(installation.readText(path + "code.txt").value_or(""))
        , m_module(moduleOf(installation, place))
        , m_player(m_module, installation, pictures, [](std::string_view) {})
    {
        m_player.interpreter().setListener(&recording);
    }
    ~BundledPlay() { m_player.interpreter().setListener(nullptr); }

    void play(int frames, const std::vector<KeyChange>& keys)
    {
        HeadlessOptions options;
        options.frames = frames;
        options.seed = 5;
        m_player.run(withProductLineEnds(text), options, keys);
    }
    void playInSteps(int frames)
    {
        Random chance(3);
        play(0, {});
        ZBContext& context = m_player.interpreter().context();
        for (int frame = 0; frame < frames && context.InterpreterRunning(); ++frame) {
            const bool isStepped = chance.below(20) == 0;
            context.statements().setStepMode(isStepped);
            pressKey(chance, context);
            for (Progress progress = context.Quantum(); progress == Progress::Waiting;
                 progress = context.advance())
                pressKey(chance, context);
            static_cast<RunListener&>(recording).frameEnds();
        }
    }

private:
    static void pressKey(Random& chance, ZBContext& context)
    {
        constexpr std::array codes = {37, 38, 39, 40, 32, 13};
        if (chance.below(4) != 0)
            return;
        const int code = codes[static_cast<std::size_t>(chance.below(codes.size()))];
        if (chance.below(2) == 0)
            context.KeyDown(code, 0);
        else
            context.KeyUp(code, 0);
    }

public:
    GamePlace place;
    std::string path;
    Installation installation;
    std::string text;
    PictureFiles pictures;
    Recording recording;

private:
    ZB m_module;
    HeadlessPlayer m_player;
};

/// Kept as a file would be, and read again.
PlayFile throughFile(const PlayFile& play)
{
    std::string fault;
    const std::string text = playText(play);
    auto again = readPlay(text, fault);
    EXPECT_EQ(fault, "");
    EXPECT_TRUE(again && *again == play);
    EXPECT_EQ(again ? playText(*again) : "", text);
    return again.value_or(PlayFile());
}

/// A ball that runs to the right and, while the left arrow is held, up.
Blocks ballRuns()
{
    return {.normal = "moveright me 0.1\nif keyboard.left = \"true\" {\nmoveup me 0.1\n}if",
            .initialize = "set counter$a 0\ncreate ball 1 \"dot\" 0 0 0 0 0",
            .loop = "change counter$a 1"};
}

const std::string mistake = "if counter$a = 30 {\nchange counter$never 1\n}if";
const std::string whatItSays = "You used change on a counter you have not set yet! (line ";

PlayFile kept(TestGame& game, const Blocks& blocks, std::int32_t frames = 350)
{
    Recording recording;
    PictureFiles pictures;
    game.player.interpreter().setListener(&recording);
    HeadlessOptions options;
    options.frames = frames;
    game.play(programOf(blocks), options, {{20, true, 37}, {40, false, 37}});
    game.player.interpreter().setListener(nullptr);
    recording.runEnds();
    return throughFile(keepPlay(recording, pictures, {.version = "1", .title = "T", .kept = "", .name = ""})
                           .value_or(PlayFile()));
}

} // namespace

TEST(PlayFile, SaysTheSameWhenItIsReadAndWritten)
{
    std::string fault;
    const auto play = readPlay(smallPlay, fault);
    ASSERT_TRUE(play) << fault;
    EXPECT_EQ(playText(*play), smallPlay);
    EXPECT_EQ(play->label.title, "A \\ B");
    EXPECT_EQ(play->mistake, (RuntimeFault{"One\r\nTwo", 5}));
    const std::vector<KeyInput> keys = {
        {{1, 0, 0}, true, 37}, {{1, 0, 0}, false, 37}, {{2, 3, 17}, true, 32}, {{3, 0, 0}, true, 300}};
    EXPECT_EQ(play->keys, keys);
    std::string withOtherEnds;
    for (const char c : smallPlay)
        withOtherEnds += c == '\n' ? "\r\n" : std::string(1, c);
    EXPECT_EQ(readPlay(withOtherEnds, fault), play);
}

TEST(PlayFile, SaysWhereItIsDamaged)
{
    struct Damage {
        const char* from;
        const char* to;
        const char* fault;
    };
    const std::string at = "This play is damaged: line ";
    for (const auto& [from, to, fault] : std::vector<Damage>{
             {"zorbino play 1\n", "", "This is no play that Zorbino has kept."},
             {"play 1", "play one", "This is no play that Zorbino has kept."},
             {"play 1", "play 0", "This is no play that Zorbino has kept."},
             {"play 1", "play 2", "This play was kept by a newer Zorbino."},
             {"version 1.0.0\n", "", "2, \"version\" should stand here."},
             {"\\\\", "\\", "3, the text makes no sense."},
             {"\\\\ B", "\\", "3, the text makes no sense."},
             {"yes", "maybe", "6, it should say yes or no."},
             {"18446744073709551615", "18446744073709551616", "7, the number makes no sense."},
             {"18446744073709551615", "07", "7, the number makes no sense."},
             {"0000000000000001", "1", "8, the sum makes no sense."},
             {"lines AAAB", "lines AAA", "9, the sums of the program's lines make no sense."},
             {"missing no", "none no", "11, the sum makes no sense."},
             {"missing no such.spb", "missing", "11, the name of the file makes no sense."},
             {"frames 2", "frames -2", "13, there are too many frames."},
             {"frames 2", "frames 10000001", "13, there are too many frames."},
             {"frames 2", "frames 301", "18, the way makes no sense."},
             {"state 0", "state 1", "14, \"state 0\" should stand here."},
             {"1+37", "0+37", "15, \"way\" should stand here."},
             {"1+37", "3+37", "15, the key makes no sense."},
             {"1-37", "1 37", "16, the key makes no sense."},
             {"1-37", "1-37x", "16, the key makes no sense."},
             {"1-37", "1-99999999999", "16, the key makes no sense."},
             {"2.3:17", "2.0:17", "17, the key makes no sense."},
             {"2.3:17", "2.3", "17, the key makes no sense."},
             {"1-37\n2.3:17+32", "2.3:17+32\n1-37", "17, the key makes no sense."},
             {"way A/", "way A", "18, the way makes no sense."},
             {"way A/", "way A*", "18, the way makes no sense."},
             {"1+300", "2+300", "20, the key makes no sense."},
             {"mistake 5", "mistake five", "21, the mistake makes no sense."},
             {"mistake 5 One\\r\\nTwo\n", "", "21, \"whole\" should stand here."},
             {"Two\n", "Two\nmore\n", "21, nothing more should stand here."},
         }) {
        const std::string expected = std::isdigit(static_cast<unsigned char>(*fault)) ? at + fault : fault;
        EXPECT_EQ(faultOf(replaced(smallPlay, from, to)), expected) << from << " -> " << to;
    }
    EXPECT_EQ(faultOf(std::string(PlayFile::mostBytes + 1, 'z')), "This play is too large.");
}

TEST(PlayFile, TakesNoHarmFromAnyBytes)
{
    for (std::size_t size = 0; size < smallPlay.size(); ++size)
        EXPECT_NE(faultOf(smallPlay.substr(0, size)), "none") << size;
    Random chance(1);
    for (int i = 0; i < 20'000; ++i) {
        std::string text = smallPlay;
        for (auto changes = chance.below(3) + 1; changes > 0; --changes)
            text[static_cast<std::size_t>(chance.below(text.size()))] = static_cast<char>(chance.below(128));
        std::string fault;
        const auto play = readPlay(text, fault);
        if (play) {
            ASSERT_EQ(readPlay(playText(*play), fault), play) << text;
        }
    }
}

TEST(PlayFile, TenMinutesWithManyKeysAreSmall)
{
    std::vector<KeyChange> keys;
    for (int i = 0; i < 3560; ++i)
        keys.push_back({1 + i * 5, i % 2 == 0, 37 + (i / 2) % 4});
    BundledPlay game("00000003");
    game.play(18'000, keys);
    const auto play =
        keepPlay(game.recording, game.pictures, {"1.0.0", "A title", "2026-11-22 10:15", "", false});
    ASSERT_TRUE(play);
    EXPECT_EQ(play->frames, 18'000);
    EXPECT_EQ(play->keys.size(), 3560U);
    EXPECT_LE(playText(*play).size(), 50'000U);
}

class KeptPlays : public testing::TestWithParam<const char*>
{
};

TEST_P(KeptPlays, OfABundledGameGoAsTheyWent)
{
    BundledPlay game(GetParam());
    game.playInSteps(700);
    const auto play = keepPlay(game.recording, game.pictures, {});
    ASSERT_TRUE(play);
    const PlayFile again = throughFile(*play);
    EXPECT_EQ(again.frames, 700);
    EXPECT_TRUE(std::ranges::any_of(again.keys, [](const KeyInput& key) { return key.time.block > 0; }));

    Recording recording;
    const PlayVerdict verdict = checked(again, game.text, game.installation, game.path, &recording);
    EXPECT_TRUE(verdict.allMet());
    EXPECT_EQ(verdict.sentences(), std::vector<std::string>());
    // The recording that it fills is that of the first run.
    Replay first(game.recording, game.pictures);
    Replay second(recording, game.pictures);
    for (const Moment moment : {Moment{0, 1}, Moment{350, 2}, Moment{699, 1}, Moment{700, 0}}) {
        ASSERT_TRUE(first.seek(moment) && second.seek(moment));
        EXPECT_EQ(stateSum(first.state()), stateSum(second.state())) << moment.frame;
    }
    EXPECT_EQ(recording.frames(), 700);
    EXPECT_GT(recording.keyframes().size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(Games, KeptPlays,
                         testing::Values("00000001", "00000002", "00000003", "00000004", "00000005",
                                         "00000006"));

TEST(PlayCheck, SaysHowAPlayGoesInAChangedProgram)
{
    TestGame game;
    const PlayFile play = kept(game, ballRuns());
    ASSERT_EQ(play.frames, 350);
    const Installation installation(game.folder.path());

    struct Change {
        const char* name;
        std::function<void(Blocks&)> change;
        std::vector<std::string> sentences;
    };
    const std::string changed = "The program has changed since this play was kept.";
    const std::string same = "This play still goes the same.";
    const std::string another = "on this play goes another way (line ";
    for (const auto& [name, change, sentences] : std::vector<Change>{
             {"nothing", [](Blocks&) {}, {}},
             {"a comment and blanks", [](Blocks& b) { b.loop = "  " + b.loop + " ; it grows"; }, {}},
             {"a line more", [](Blocks& b) { b.normal = "; to the right\n" + b.normal; }, {changed, same}},
             {"a variable more",
              [](Blocks& b) { b.loop = "set counter$b 1\nset text$c \"x\"\n" + b.loop; },
              {changed, same}},
             {"what runs first",
              [](Blocks& b) { b.normal = replaced(b.normal, "moveright me 0.1", "moveright me 0.2"); },
              {changed, "From frame 1 " + another + "5)."}},
             {"what runs with a key",
              [](Blocks& b) { b.normal = replaced(b.normal, "moveup me 0.1", "moveup me 0.2"); },
              {changed, "From frame 20 " + another + "7)."}},
             {"what runs late",
              [](Blocks& b) { b.loop += "\nif counter$a = 310 {\nsetstate begin\n}if"; },
              {changed, "From frame 310 " + another + "32)."}},
             {"a line less",
              [](Blocks& b) { b.normal = replaced(b.normal, "moveright me 0.1", ""); },
              {changed, "From frame 1 " + another + "5)."}},
             {"a mistake",
              [](Blocks& b) { b.loop += '\n' + mistake; },
              {changed, "In frame 30 it ends with a mistake: " + whatItSays + "33)."}},
         }) {
        Blocks blocks = ballRuns();
        change(blocks);
        const PlayVerdict verdict = checked(play, programOf(blocks), installation, "");
        EXPECT_EQ(verdict.sentences(), sentences) << name;
        EXPECT_EQ(verdict.allMet(), sentences.empty()) << name;
        EXPECT_EQ(verdict.goesTheSame(), sentences.empty() || sentences.back() == same) << name;
    }
    Blocks blocks = ballRuns();
    blocks.loop += '\n' + mistake;
    EXPECT_TRUE(checked(play, programOf(blocks), installation, "", nullptr, 29).goesTheSame());
    Recording recording;
    checked(play, programOf(blocks), installation, "", &recording);
    EXPECT_EQ(recording.frames(), 29);
    EXPECT_TRUE(recording.isBroken());
}

TEST(PlayCheck, SaysHowAMistakeIsOtherThanItWas)
{
    TestGame game;
    Blocks blocks = ballRuns();
    blocks.loop += '\n' + mistake;
    const PlayFile play = kept(game, blocks);
    ASSERT_EQ(play.frames, 29);
    const Installation installation(game.folder.path());
    const auto difference = [&](const std::string& loop) {
        Blocks other = ballRuns();
        other.loop = loop;
        return checked(play, programOf(other), installation, "").difference();
    };
    const std::string before = "change counter$a 1\n";
    EXPECT_EQ(difference(before + mistake), "");
    EXPECT_EQ(difference("\n\n" + before + mistake), ""); // it has only moved
    EXPECT_EQ(difference(before), "It does not end with its mistake any more: " + whatItSays + "33)");
    EXPECT_EQ(
        difference(before + "if counter$a = 30 {\nsetstate nowhere\nset counter$b me.x\n}if").substr(0, 39),
        "In frame 30 it ends with a mistake: You");
    EXPECT_TRUE(checked(play, programOf(blocks), installation, "").allMet());
}

TEST(PlayCheck, SaysWhichFileIsOtherThanItWas)
{
    TestGame game;
    const std::string program = programOf(ballRuns());
    const PlayFile play = kept(game, ballRuns());
    const Installation installation(game.folder.path());
    const auto files = [&] { return checked(play, program, installation, "").files; };
    using Sentences = std::vector<std::string>;
    EXPECT_EQ(files(), Sentences());
    game.folder.write("dot.spr", "another dot\r\nSimple,3,3,1\r\n");
    EXPECT_EQ(files(), (Sentences{"The file dot.spr has changed since this play was kept."}));
    game.folder.remove("dot.spr");
    EXPECT_EQ(files(), (Sentences{"The file dot.spr is gone."}));
    EXPECT_FALSE(checked(play, program, installation, "").goesTheSame());

    game.folder.write("dot.spr", "a dot\r\nSimple,3,3,1\r\n");
    Blocks blocks = ballRuns();
    blocks.loop = "create ball 2 \"ghost\" 0 0 0 0 0";
    const PlayFile haunted = kept(game, blocks);
    EXPECT_TRUE(haunted.mistake);
    EXPECT_TRUE(checked(haunted, programOf(blocks), installation, "").allMet());
    game.folder.write("ghost.spr", "a ghost\r\nSimple,3,3,1\r\n");
    EXPECT_EQ(checked(haunted, programOf(blocks), installation, "").files,
              (Sentences{"The file ghost.spr was not there when this play was kept."}));
}

TEST(PlayCheck, SumsOfTheStateSeeWhatNobodySees)
{
    TestGame game;
    PlayFile play = kept(game, ballRuns());
    ++play.sums[1];
    const Installation installation(game.folder.path());
    const PlayVerdict verdict = checked(play, programOf(ballRuns()), installation, "");
    EXPECT_TRUE(verdict.goesTheSame());
    EXPECT_EQ(verdict.sentences(),
              std::vector<std::string>{"By frame 300 something differs that cannot be seen."});
}

TEST(PlaySums, FindTheLinesThatHaveChanged)
{
    const auto changed = [](const char* older, const char* newer) {
        std::string lines;
        for (const int line : changedLines(LineArray(newer), lineSums(LineArray(older))))
            lines += std::to_string(line) + ' ';
        return lines;
    };
    const char* const program = "a\r\nb\r\nc\r\nb\r\nd";
    EXPECT_EQ(changed(program, program), "");
    EXPECT_EQ(changed(program, "A ;first\r\n  b\r\nc\r\nb\r\nd"), "");
    EXPECT_EQ(changed(program, "a\r\nx\r\nc\r\ny\r\nd"), "2 4 ");
    EXPECT_EQ(changed(program, "a\r\nb\r\nx\r\nb\r\nc\r\nb\r\nd"), "3 4 ");
    EXPECT_EQ(changed(program, "a\r\nd"), "2 ");
    EXPECT_EQ(changed(program, "x\r\na\r\nb\r\nc\r\nb\r\nd\r\ny"), "1 7 ");
    EXPECT_EQ(changed("", program), "1 2 3 4 5 ");
}
