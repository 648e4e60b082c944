// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/pictures/PictureFiles.h"
#include "recording/Replay.h"
#include "recording/RunIndex.h"
#include "support/TestGame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A run of a small program, recorded, with its index.
class RecordedGame
{
public:
    explicit RecordedGame(std::string program, int frames = 10, const std::vector<KeyChange>& keys = {})
        : m_text(std::move(program))
    {
        m_game.player.interpreter().setListener(&recording);
        HeadlessOptions options;
        options.frames = frames;
        options.trace = true;
        m_game.play(m_text, options, keys);
        while (index.extend(1000))
            ;
    }
    ~RecordedGame() { m_game.player.interpreter().setListener(nullptr); }
    RecordedGame(const RecordedGame&) = delete;
    RecordedGame& operator=(const RecordedGame&) = delete;

    void playOn(int frames)
    {
        for (int i = 0; i < frames; ++i)
            m_game.player.playFrame();
    }
    /// What came after the moment is forgotten.
    void goOnFrom(const Replay& replay)
    {
        m_game.context().restore(replay.state());
        recording.goOn(m_game.context());
    }
    /// The number of the first line with that text in it; 0 where there is none.
    int lineOf(std::string_view text) const
    {
        const std::size_t at = m_text.find(text);
        if (at == std::string::npos)
            return 0;
        return static_cast<int>(
                   std::count(m_text.begin(), m_text.begin() + static_cast<std::ptrdiff_t>(at), '\n')) +
               1;
    }

private:
    TestGame m_game;
    std::string m_text;
    PictureFiles m_pictures;

public:
    Recording recording;
    RunIndex index{recording, m_pictures};
    std::unique_ptr<Replay> replay() { return std::make_unique<Replay>(recording, m_pictures); }
};
