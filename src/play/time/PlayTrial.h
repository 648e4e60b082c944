// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "recording/PlayCheck.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

/// A kept play that is played, bit by bit, in its game as it is now.
class PlayTrial
{
public:
    /// Where and with what a play is played.
    struct Game {
        const FileSource& files;
        const std::string& folder; ///< product path with a trailing backslash
        PictureReader& pictures;
        std::string program; ///< lines separated by CR LF
    };

    /// Nothing where the program has a mistake, which `fault` tells in a sentence.
    static std::unique_ptr<PlayTrial> start(PlayFile play, const Game& game, std::string& fault);

    /// Keeps what is played for whoever wants to go through it.
    std::shared_ptr<Recording> record();
    /// Plays for about so many milliseconds. False when there is no more to play.
    bool playFor(std::int64_t milliseconds);
    const PlayVerdict& verdict() const { return m_check->verdict(); }
    const std::string& name() const { return m_play.label.name; }
    /// How much of it has been played.
    int percent();

private:
    explicit PlayTrial(PlayFile play)
        : m_play(std::move(play))
    {
    }

    PlayFile m_play;
    std::shared_ptr<Recording> m_recording;
    std::optional<PlayCheck> m_check;
};
