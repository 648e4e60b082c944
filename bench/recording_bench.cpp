// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "app/GameModule.h"
#include "headless/HeadlessPlayer.h"
#include "platform/DiskFile.h"
#include "platform/Installation.h"
#include "platform/Random.h"
#include "platform/TextFile.h"
#include "platform/pictures/PictureFiles.h"
#include "recording/Questions.h"
#include "recording/Recording.h"
#include "recording/Replay.h"
#include "recording/RunIndex.h"
#include "recording/SpriteStory.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// What recording costs beside the same run without, how large recordings are, and how long it takes to go to
// a moment or to answer a question: ten minutes of each bundled game, of a thousand sprites, and of a game
// that sets its background in every frame.

namespace
{

constexpr int frames = 18'000;

double millisecondsSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

template<typename Work> double timeOf(const Work& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return millisecondsSince(start);
}

double quantile(std::vector<double> times, double share)
{
    if (times.empty())
        return 0;
    std::ranges::sort(times);
    return times[static_cast<std::size_t>(share * static_cast<double>(times.size() - 1))];
}

/// A game that is played by pressing keys at random.
class PlayedGame
{
public:
    explicit PlayedGame(const std::string& number)
        : m_place(placeOf(std::filesystem::path(ZB_SOURCE_DIR) / "games" / number))
        , m_installation(m_place.installation)
        , m_module(moduleOf(m_installation, m_place))
        , m_text(m_installation.readText(m_place.gamesFolder + m_place.folder + "code.txt").value_or(""))
    {
    }
    /// The same with another program.
    PlayedGame(const std::string& number, std::string text)
        : PlayedGame(number)
    {
        m_text = std::move(text);
    }

    /// Begins a run; null: nobody records. It ends when another begins.
    class Run
    {
    public:
        Run(PlayedGame& game, Recording* recording, bool isDrawn)
            : m_player(game.m_module, game.m_installation, game.pictures, [](std::string_view) {})
        {
            m_player.interpreter().setListener(recording);
            HeadlessOptions options;
            options.frames = 1;
            options.trace = true;
            options.wantsPicture = isDrawn;
            static_cast<void>(m_player.run(withProductLineEnds(game.m_text), options, {}));
        }
        ~Run() { m_player.interpreter().setListener(nullptr); }
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;

        /// Plays so many frames; the time in milliseconds.
        double play(int count)
        {
            return timeOf([&] {
                for (int i = 0; i < count; ++i) {
                    pressKeys();
                    m_player.playFrame();
                }
            });
        }

    private:
        void pressKeys()
        {
            constexpr std::array codes = {37, 38, 39, 40, 32, 13};
            if (m_chance.below(8) != 0)
                return;
            const int code = codes[static_cast<std::size_t>(m_chance.below(codes.size()))];
            if (m_chance.below(2) == 0)
                m_player.interpreter().context().KeyDown(code, 0);
            else
                m_player.interpreter().context().KeyUp(code, 0);
        }

        HeadlessPlayer m_player;
        Random m_chance{7};
    };

    PictureFiles pictures;

private:
    GamePlace m_place;
    Installation m_installation;
    ZB m_module;
    std::string m_text;
};

struct Cost {
    double without = 0; ///< microseconds a frame
    double share = 0;   ///< what recording adds, in percent
};

/// Both runs go side by side, a stretch of each in turns, so that whatever else the machine does strikes
/// both.
Cost costOf(PlayedGame& game, bool isDrawn)
{
    constexpr int stretch = 2 * static_cast<int>(Recording::longestStretch);
    Recording recording;
    PlayedGame::Run without(game, nullptr, isDrawn);
    PlayedGame::Run with(game, &recording, isDrawn);
    std::vector<double> times;
    std::vector<double> shares;
    for (int frame = 1; frame < frames; frame += stretch) {
        const double one = without.play(stretch);
        const double other = with.play(stretch);
        times.push_back(one * 1000 / stretch);
        shares.push_back(100 * (other - one) / one);
    }
    return {quantile(times, 0.5), quantile(shares, 0.5)};
}

/// Times of going to moments at random, with the picture.
std::vector<double> timesOfSeeking(Recording& recording, PictureReader& pictures)
{
    Replay replay(recording, pictures);
    Random chance(3);
    std::vector<double> times;
    for (int i = 0; i < 400; ++i) {
        const auto frame =
            static_cast<std::int64_t>(chance.below(static_cast<std::uint64_t>(recording.frames() + 1)));
        times.push_back(timeOf([&] {
            replay.seek({frame, 0});
            static_cast<void>(replay.picture());
        }));
    }
    return times;
}

/// Times of going one statement back, over and over.
std::vector<double> timesOfStepsBack(Recording& recording, PictureReader& pictures)
{
    Replay replay(recording, pictures);
    std::vector<double> times;
    Random chance(4);
    for (int i = 0; i < 20; ++i) {
        replay.seek(
            {static_cast<std::int64_t>(chance.below(static_cast<std::uint64_t>(recording.frames() + 1))), 0});
        for (int step = 0; step < 10; ++step)
            times.push_back(timeOf([&] {
                static_cast<void>(replay.stepBack());
                static_cast<void>(replay.picture());
            }));
    }
    return times;
}

double slowestQuestion(const RunIndex& index)
{
    const Questions questions(index);
    std::vector<Question> all = questions.all();
    for (int line = 1; line <= index.lines().lineCount(); ++line)
        all.push_back(Questions::aboutLine(line));
    double slowest = 0;
    for (const Question& question : all)
        slowest = std::max(slowest, timeOf([&] {
                               static_cast<void>(questions.answer(question, {frames / 2, 0}));
                           }));
    return slowest;
}

std::vector<double> timesOfCards(Recording& recording, PictureReader& pictures, const RunIndex& index)
{
    Replay replay(recording, pictures);
    SpriteStory story(recording, replay, &index);
    Random chance(5);
    std::vector<double> times;
    for (int i = 0; i < 12; ++i) {
        replay.seek(
            {static_cast<std::int64_t>(chance.below(static_cast<std::uint64_t>(recording.frames() + 1))), 0});
        const std::int32_t sprites = replay.state().spriteCount;
        if (sprites == 0)
            continue;
        const auto sprite = static_cast<int>(chance.below(static_cast<std::uint64_t>(sprites)));
        times.push_back(timeOf([&] { static_cast<void>(story.card(sprite)); }));
    }
    return times;
}

void measure(const char* name, PlayedGame game)
{
    const Cost drawn = costOf(game, true);
    const Cost undrawn = costOf(game, false);
    Recording recording;
    {
        PlayedGame::Run run(game, &recording, false);
        run.play(frames - 1);
    }
    RunIndex index(recording, game.pictures);
    double slowestSlice = 0;
    const double indexTime = timeOf([&] {
        for (bool isMore = true; isMore;)
            slowestSlice = std::max(slowestSlice, timeOf([&] { isMore = index.extend(500); }));
    });
    const std::vector<double> seeks = timesOfSeeking(recording, game.pictures);
    const std::vector<double> steps = timesOfStepsBack(recording, game.pictures);
    const std::vector<double> cards = timesOfCards(recording, game.pictures, index);
    std::printf("%-10s %6lld  %7.1f us %+5.1f %%  %7.1f us %+5.1f %%  %6.2f MB %4zu  %7.2f %7.2f %7.2f ms  "
                "%7.2f ms  %7.1f ms "
                "%6.1f ms %6.2f MB  %6.2f ms  %7.1f %7.1f ms\n",
                name, static_cast<long long>(recording.frames()), drawn.without, drawn.share, undrawn.without,
                undrawn.share, static_cast<double>(recording.bytes()) / 1e6, recording.keyframes().size(),
                quantile(seeks, 0.5), quantile(seeks, 0.99), quantile(seeks, 1), quantile(steps, 0.99),
                indexTime, slowestSlice, static_cast<double>(index.bytes()) / 1e6, slowestQuestion(index),
                quantile(cards, 0.5), quantile(cards, 1));
    std::fflush(stdout);
}

/// A thousand sprites on the way, most of them out of sight, so that they seldom meet.
const char* const crowd = "program{\nclasses{\nball{\nnormal{\nmove me\nif me.x > 600 {\nsetposition me -600 "
                          "me.y 0\n}if\nif me.x < -600 "
                          "{\nsetposition me 600 me.y "
                          "0\n}if\n}normal\n}ball\n}classes\nstates{\nbegin{\ninitialize{\nset counter$time "
                          "0\n}initialize\nloop{\nchange counter$time 1\nif counter$time < 1000 {\ncreate "
                          "ball 1 \"ball\" random(-10,10) 1 "
                          "random(-600,600) random(-600,600) 0\n}if\n}loop\n}begin\n}states\n}program\n";

const char* const scenery =
    "program{\nclasses{\n}classes\nstates{\nbegin{\ninitialize{\nset counter$odd "
    "1\n}initialize\nloop{\nif counter$odd = 1 {\nset counter$odd 0\nsetbackground game "
    "\"candy.jpg\"\n}else{\nset counter$odd 1\nsetbackground game "
    "\"lost.jpg\"\n}if\n}loop\n}begin\n}states\n}program\n";

} // namespace

int main(int argc, char** argv)
{
    std::printf("%-10s %6s  %10s %7s  %10s %7s  %9s %4s  %26s  %10s  %10s %9s %9s  %9s  %18s\n", "game",
                "frames", "drawn", "record", "undrawn", "record", "memory", "keys", "seek: median, p99, most",
                "step back", "index", "slice", "memory", "question", "card: median, most");
    const std::string only = argc > 1 ? argv[1] : "";
    for (const char* number : {"00000001", "00000002", "00000003", "00000004", "00000005", "00000006"})
        if (only.empty() || only == number)
            measure(number, PlayedGame(number));
    if (only.empty() || only == "crowd")
        measure("crowd", PlayedGame("00000001", crowd));
    if (only.empty() || only == "scenery")
        measure("scenery", PlayedGame("00000001", scenery));
    return EXIT_SUCCESS;
}
