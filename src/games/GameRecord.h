// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

/// What stands before the folder of a game in its path.
inline constexpr std::string_view gamesPath = "games\\";

/// One game of the library. `folder` is the folder's name with a trailing backslash.
struct GameRecord {
    std::string author;
    std::string title;
    std::string folder;

    bool operator==(const GameRecord&) const = default;

    /// Product path of the game's folder ("games\00000001"), without a backslash at its end.
    std::string path() const;
    /// Product path of a file in it ("games\00000001\code.txt").
    std::string pathOf(std::string_view fileName) const;
};
