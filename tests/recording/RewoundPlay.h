// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "app/GameModule.h"
#include "headless/HeadlessPlayer.h"
#include "platform/Installation.h"
#include "platform/Random.h"
#include "platform/Sum.h"
#include "platform/TextFile.h"
#include "platform/pictures/PictureFiles.h"
#include "recording/Recording.h"
#include "recording/Replay.h"
#include "recording/StateSum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

/// A pixel at a time: there are many pictures.
inline std::uint64_t sumOf(const Surface& picture)
{
    std::uint64_t sum = 0xcbf29ce484222325;
    for (const Pixel pixel : picture.pixels())
        sum = (sum ^ std::uint64_t{pixel}) * 0x100000001b3;
    return sum;
}

/// What can be told of a moment.
struct Seen {
    Moment moment;
    std::uint64_t state = 0;
    std::uint64_t picture = 0;
    std::size_t linesSoFar = 0;
    std::uint64_t dump = 0;
};

inline std::uint64_t sumOf(const std::vector<std::string>& lines)
{
    Sum sum;
    for (const std::string& line : lines)
        sum.add(line);
    return sum.value();
}

/// Plays a game as a child would: keys go up and down at random, now and then it is paused and stepped, with
/// keys while it waits.
class Play
{
public:
    Play(const FileSource& files, PictureReader& pictures, ZB& module, bool seesAll = false,
         std::size_t cap = Recording::usualCap)
        : m_pictures(pictures)
        , m_seesAll(seesAll)
        , recording(cap)
        , player(module, files, pictures, [this](std::string_view line) { lines.emplace_back(line); })
    {
        player.interpreter().setListener(&recording);
    }
    ~Play() { player.interpreter().setListener(nullptr); }

    void play(const std::string& text, int frames, std::uint64_t seed, bool steps = true)
    {
        Random chance(seed);
        HeadlessOptions options;
        options.frames = 0;
        options.trace = options.wantsPicture = true;
        options.boxes = {true, true, true};
        options.seed = seed;
        player.run(text, options, {});
        ZBContext& context = player.interpreter().context();
        see(0);
        for (int frame = 1; frame <= frames && context.InterpreterRunning(); ++frame) {
            pressKeys(chance);
            const bool inSteps = steps && chance.below(50) == 0;
            context.statements().setStepMode(inSteps);
            if (!inSteps) {
                player.playFrame();
            } else {
                std::int32_t statement = 0;
                // The interpreter would be stepped by its user; here the context is.
                for (Progress progress = context.Quantum(); progress == Progress::Waiting;
                     progress = context.advance()) {
                    ++statement;
                    if (chance.below(4) == 0)
                        pressKeys(chance);
                    if (chance.below(4) == 0)
                        seen.push_back(now({frame - 1, statement}));
                }
                static_cast<RunListener&>(recording).frameEnds();
            }
            if (context.InterpreterRunning())
                see(frame);
        }
    }

    Seen now(Moment moment)
    {
        const ZBContext& context = player.interpreter().context();
        return {moment, stateSum(context.state()), sumOf(context.display()), lines.size(),
                sumOf(context.DumpVariablesInto())};
    }
    void see(int frame)
    {
        if (m_seesAll || seen.empty() || frame % 7 == 0 || player.interpreter().context().state().nextState)
            seen.push_back(now({frame, 0}));
    }
    void pressKeys(Random& chance)
    {
        constexpr std::array codes = {37, 38, 39, 40, 32, 13, 65, 83, 68, 87, 17, 16};
        if (chance.below(5) != 0)
            return;
        const int code = codes[static_cast<std::size_t>(chance.below(codes.size()))];
        if (chance.below(2) == 0)
            player.interpreter().context().KeyDown(code, 0);
        else
            player.interpreter().context().KeyUp(code, 0);
    }

    /// Every moment that was seen, in random order, must come back.
    void expectAllAgain(std::uint64_t seed)
    {
        Replay replay(recording, m_pictures);
        Random chance(seed);
        std::vector<std::size_t> order(seen.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        for (std::size_t i = order.size(); i > 1; --i)
            std::swap(order[i - 1], order[static_cast<std::size_t>(chance.below(i))]);
        for (std::size_t i = 0; i < order.size(); ++i) {
            const Seen& then = seen[order[i]];
            const std::string where =
                std::to_string(then.moment.frame) + "/" + std::to_string(then.moment.statement);
            ASSERT_TRUE(replay.seek(then.moment));
            ASSERT_EQ(replay.moment(), then.moment) << where;
            ASSERT_EQ(stateSum(replay.state()), then.state) << where;
            ASSERT_EQ(sumOf(replay.variables()), then.dump) << where;
            ASSERT_EQ(sumOf(replay.picture()), then.picture) << where;
            ASSERT_EQ(stateSum(replay.state()), then.state) << where;
            if (i % 32 == 0)
                expectHistory(replay, then);
        }
    }
    void expectHistory(Replay& replay, const Seen& then)
    {
        const Replay::History history = replay.history({true, true, true}, 1000);
        const std::size_t bannerLines = 38;
        const std::size_t count = std::min(then.linesSoFar - bannerLines, Replay::historyLimit);
        const auto end = lines.begin() + static_cast<std::ptrdiff_t>(then.linesSoFar);
        ASSERT_EQ(history.lines, std::vector<std::string>(end - static_cast<std::ptrdiff_t>(count), end))
            << then.moment.frame << "/" << then.moment.statement;
        ASSERT_EQ(stateSum(replay.state()), then.state);
    }

private:
    PictureReader& m_pictures;
    bool m_seesAll; ///< every frame

public:
    std::vector<std::string> lines;
    std::vector<Seen> seen;
    Recording recording;
    HeadlessPlayer player;
};

/// A bundled game, or another program with its pictures.
struct BundledGame {
    explicit BundledGame(const std::string& number, std::string program = {})
        : place(placeOf(std::filesystem::path(ZB_SOURCE_DIR) / "games" / number))
        , installation(place.installation)
        , module(moduleOf(installation, place))
        , text(withProductLineEnds(
              program.empty()
                  ? installation.readText(place.gamesFolder + place.folder + "code.txt").value_or("")
                  : std::move(program)))
    {
    }
    GamePlace place;
    Installation installation;
    ZB module;
    std::string text;
    PictureFiles pictures;
};
