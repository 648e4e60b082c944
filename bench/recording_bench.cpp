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

    /// Plays ten minutes of it; null: nobody records. Returns the milliseconds of all frames but the first.
    double play(Recording* recording, bool isDrawn)
    {
        HeadlessPlayer player(m_module, m_installation, pictures, [](std::string_view) {});
        player.interpreter().setListener(recording);
        HeadlessOptions options;
        options.frames = 1;
        options.trace = true;
        options.wantsPicture = isDrawn;
        static_cast<void>(player.run(withProductLineEnds(m_text), options, {}));
        Random chance(7);
        constexpr std::array codes = {37, 38, 39, 40, 32, 13};
        const double time = timeOf([&] {
            for (int frame = 1; frame < frames; ++frame) {
                if (chance.below(8) == 0) {
                    const int code = codes[static_cast<std::size_t>(chance.below(codes.size()))];
                    if (chance.below(2) == 0)
                        player.interpreter().context().KeyDown(code, 0);
                    else
                        player.interpreter().context().KeyUp(code, 0);
                }
                player.playFrame();
            }
        });
        player.interpreter().setListener(nullptr);
        return time;
    }

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

Cost costOf(PlayedGame& game, bool isDrawn)
{
    double without = 1e9;
    double with = 1e9;
    for (int round = 0; round < 3; ++round) {
        without = std::min(without, game.play(nullptr, isDrawn));
        Recording recording;
        with = std::min(with, game.play(&recording, isDrawn));
    }
    return {without * 1000 / frames, 100 * (with - without) / without};
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
    game.play(&recording, false);
    RunIndex index(recording, game.pictures);
    double slowestSlice = 0;
    const double indexTime = timeOf([&] {
        for (bool isMore = true; isMore;)
            slowestSlice = std::max(slowestSlice, timeOf([&] { isMore = index.extend(500); }));
    });
    const std::vector<double> seeks = timesOfSeeking(recording, game.pictures);
    const std::vector<double> cards = timesOfCards(recording, game.pictures, index);
    std::printf(
        "%-10s %6lld  %7.1f us %+5.1f %%  %7.1f us %+5.1f %%  %6.2f MB %4zu  %7.2f %7.2f %7.2f ms  %7.1f ms "
        "%6.1f ms %6.2f MB  %6.2f ms  %7.1f %7.1f ms\n",
        name, static_cast<long long>(recording.frames()), drawn.without, drawn.share, undrawn.without,
        undrawn.share, static_cast<double>(recording.bytes()) / 1e6, recording.keyframes().size(),
        quantile(seeks, 0.5), quantile(seeks, 0.99), quantile(seeks, 1), indexTime, slowestSlice,
        static_cast<double>(index.bytes()) / 1e6, slowestQuestion(index), quantile(cards, 0.5),
        quantile(cards, 1));
    std::fflush(stdout);
}

std::string crowd()
{
    std::string text =
        "program{\nclasses{\nball{\nnormal{\nmove me\nif me.x > 95 {\nrebound me game\n}if\nif me.x < "
        "-95 {\nrebound me game\n}if\n}normal\n}ball\n}classes\nstates{\nbegin{\ninitialize{\nset "
        "counter$time 0\n";
    for (int i = 0; i < 1000; ++i)
        text += "create ball 1 \"ball\" random(0,360) 1 random(-90,90) random(-90,90) 0\n";
    return text + "}initialize\nloop{\nchange counter$time 1\n}loop\n}begin\n}states\n}program\n";
}

const char* const scenery =
    "program{\nclasses{\n}classes\nstates{\nbegin{\ninitialize{\nset counter$odd "
    "1\n}initialize\nloop{\nif counter$odd = 1 {\nset counter$odd 0\nsetbackground game "
    "\"candy.jpg\"\n}else{\nset counter$odd 1\nsetbackground game "
    "\"lost.jpg\"\n}if\n}loop\n}begin\n}states\n}program\n";

} // namespace

int main(int argc, char** argv)
{
    std::printf("%-10s %6s  %10s %7s  %10s %7s  %9s %4s  %26s  %10s %9s %9s  %9s  %18s\n", "game", "frames",
                "drawn", "record", "undrawn", "record", "memory", "keys", "seek: median, p99, most", "index",
                "slice", "memory", "question", "card: median, most");
    const std::string only = argc > 1 ? argv[1] : "";
    for (const char* number : {"00000001", "00000002", "00000003", "00000004", "00000005", "00000006"})
        if (only.empty() || only == number)
            measure(number, PlayedGame(number));
    if (only.empty() || only == "crowd")
        measure("crowd", PlayedGame("00000001", crowd()));
    if (only.empty() || only == "scenery")
        measure("scenery", PlayedGame("00000001", scenery));
    return EXIT_SUCCESS;
}
