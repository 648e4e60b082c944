// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "runtime/Outcomes.h"
#include "runtime/RunState.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What people want to know of a play. Texts of one line, as they please.
struct PlayLabel {
    std::string version; ///< of the product that kept it
    std::string title;   ///< of the game
    std::string kept;    ///< when
    std::string name;
    bool isPinned = false;

    bool operator==(const PlayLabel&) const = default;
};

/// A file that a run asked for.
struct PlayedFile {
    std::string name;                 ///< in the game's folder, in lower case
    std::optional<std::uint64_t> sum; ///< of its bytes; nothing: the run did not get it

    bool operator==(const PlayedFile&) const = default;
};

/// A play that is kept: what a run was besides its game, and sums by which it is known again. The sums of the
/// state tell whether it goes on in the very same way; the way tells whether it looks the same to whoever
/// plays it, also in a program that has changed (see PlaySums.h).
struct PlayFile {
    static constexpr std::size_t mostBytes = std::size_t{4} << 20U;
    static constexpr std::int64_t mostFrames = 10'000'000;
    static constexpr std::size_t mostKeys = 1'000'000;
    static constexpr std::int64_t stretch = 300; ///< frames from one sum of the state to the next
    static constexpr std::string_view ending = ".zbplay";

    PlayLabel label;
    std::uint64_t seed = 0;
    std::uint64_t programSum = 0;
    std::string lineSums; ///< of the program's lines, two letters each
    std::vector<PlayedFile> files;
    std::vector<std::string> variables; ///< of the program, "counter$score"
    std::vector<KeyInput> keys;         ///< in the order of their times
    std::int64_t frames = 0;            ///< that came to their end
    std::string way;                    ///< one letter a frame
    /// After 0, 300, 600, ... frames and after the last.
    std::vector<std::uint64_t> sums;
    std::optional<RuntimeFault> mistake; ///< that ended the run in the frame behind them

    bool operator==(const PlayFile&) const = default;

    /// How many sums a play of so many frames has, and after how many frames each of them stands.
    static std::size_t sumsOf(std::int64_t frames);
    std::int64_t frameOf(std::size_t sum) const;
};

/// The play as the text of its file: one thing a line, lines ended by LF.
std::string playText(const PlayFile& play);

/// The play in the text of a file. Where it is none, nothing, and `fault` is a sentence that says why.
std::optional<PlayFile> readPlay(std::string_view text, std::string& fault);
