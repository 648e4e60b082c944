// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "BenchProgram.h"
#include "StatementInLua.h"

#include "app/GameModule.h"
#include "headless/HeadlessPlayer.h"
#include "platform/DiskFile.h"
#include "platform/Installation.h"
#include "platform/TextFile.h"
#include "platform/pictures/PictureFiles.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// What the bundled games run, played with the keys of the tests and not drawn, beside Lua with globals doing
// the same: a sample of the statements and events in the order in which they came, and with each move a look
// for others to hit. Lua's side has no frame around it and no sprites that come and go.

namespace
{

constexpr int frames = 2000;
constexpr int sampleSize = 2000;

/// Pictures are read once and then remembered: how fast a picture is decoded is another figure.
class RememberedPictures : public PictureReader
{
public:
    std::optional<Surface> decode(std::string_view bytes) override
    {
        const auto [place, isNew] = m_known.try_emplace(std::string(bytes));
        if (isNew)
            place->second = m_files.decode(bytes);
        return place->second;
    }

private:
    PictureFiles m_files;
    std::map<std::string, std::optional<Surface>, std::less<>> m_known;
};

[[noreturn]] void giveUp(const std::string& text)
{
    std::fprintf(stderr, "%s\n", text.c_str());
    std::exit(EXIT_FAILURE);
}

/// What was executed, as the history has it: statements without the number of their line, and openings of
/// events.
struct Executed {
    std::vector<std::string> lines;
    int statements = 0;
    int normalEvents = 0;

    void add(std::string_view line)
    {
        const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
        const std::string_view words = line.substr(std::min(line.find_first_not_of(' '), line.size()));
        if (line.size() > 5 && std::all_of(line.begin(), line.begin() + 4, isDigit)) {
            ++statements;
            lines.emplace_back(line.substr(4));
        } else if (words.find(".normal{") != std::string_view::npos) {
            ++normalEvents;
            lines.emplace_back("event normal");
        } else if (words.find(".collision{") != std::string_view::npos ||
                   words.find(".mapchange{") != std::string_view::npos) {
            lines.emplace_back("event other");
        }
    }
};

/// A bundled game, to be played again and again.
class BundledGame
{
public:
    explicit BundledGame(const std::string& number)
        : m_place(placeOf(std::filesystem::path(ZB_SOURCE_DIR) / "games" / number))
        , m_installation(m_place.installation)
        , m_module(moduleOf(m_installation, m_place))
    {
        const auto text = m_installation.readText(m_place.gamesFolder + m_place.folder + "code.txt");
        const auto keys =
            readFileBytes(std::string(ZB_SOURCE_DIR) + "/tests/plays/bundled/" + number + ".keys",
                          Installation::maximumFileSize);
        int badLine = 0;
        if (!text || !keys || !parseKeys(*keys, m_keys, badLine))
            giveUp("game " + number + " or its keys cannot be read");
        m_text = withProductLineEnds(*text);
    }

    /// Plays it and notes what happens.
    Executed executed()
    {
        Executed all;
        HeadlessPlayer player(m_module, m_installation, m_pictures,
                              [&all](std::string_view line) { all.add(line); });
        HeadlessOptions options;
        options.frames = frames;
        options.trace = true;
        options.boxes.code = options.boxes.events = true;
        if (player.run(m_text, options, m_keys) != HeadlessPlayer::Result::AllFrames)
            giveUp("a bundled game does not run to its end");
        return all;
    }

    /// Begins anew and plays the first frame, which loads what the game needs.
    void begin()
    {
        m_player =
            std::make_unique<HeadlessPlayer>(m_module, m_installation, m_pictures, [](std::string_view) {});
        static_cast<void>(m_player->interpreter().RunGame(m_text, RunKind::Plain));
        std::vector<KeyInput> inputs;
        for (const KeyChange& key : m_keys)
            inputs.push_back({.time = {.tick = key.frame}, .down = key.down, .code = key.code});
        m_player->interpreter().context().addInputs(std::move(inputs));
        m_player->playFrame();
    }
    void playFrame() { m_player->playFrame(); }

private:
    GamePlace m_place;
    Installation m_installation;
    ZB m_module;
    RememberedPictures m_pictures;
    std::string m_text;
    std::vector<KeyChange> m_keys;
    std::unique_ptr<HeadlessPlayer> m_player;
};

void mixInZorbino(benchmark::State& state, const std::string& number)
{
    BundledGame game(number);
    const double perFrame = static_cast<double>(game.executed().statements) / frames;
    game.begin();
    int played = 1;
    for (auto _ : state) {
        if (played == frames) {
            state.PauseTiming();
            game.begin();
            played = 1;
            state.ResumeTiming();
        }
        game.playFrame();
        ++played;
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(static_cast<double>(state.iterations()) * perFrame));
    state.counters["statements"] = perFrame;
}

void mixInLua(benchmark::State& state, const std::string& number)
{
    const Executed executed = BundledGame(number).executed();
    const std::vector<std::string>& lines = executed.lines;
    const int sprites = executed.normalEvents / frames;
    StatementsInLua lua;
    for (std::size_t i = 0; i < static_cast<std::size_t>(sampleSize); ++i)
        lua.add(lines[i * lines.size() / static_cast<std::size_t>(sampleSize)]);
    Lua peer("crowd = " + std::to_string(sprites) + "\n" + std::string(luaSprite) + std::string(luaCrowd) +
             lua.chunk());
    for (auto _ : state)
        peer.call("frame");
    const double share = executed.statements / static_cast<double>(lines.size());
    state.SetItemsProcessed(
        static_cast<std::int64_t>(static_cast<double>(state.iterations() * sampleSize) * share));
    state.counters["sprites"] = sprites;
}

const bool registered = [] {
    for (const char* number : {"00000001", "00000002", "00000003", "00000004", "00000005", "00000006"}) {
        const std::string name = std::string("Mix/") + number;
        benchmark::RegisterBenchmark((name + "_Lua").c_str(), mixInLua, number)
            ->Unit(benchmark::kMicrosecond);
        benchmark::RegisterBenchmark((name + "_Zorbino").c_str(), mixInZorbino, number)
            ->Unit(benchmark::kMicrosecond);
    }
    return true;
}();

} // namespace
