// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>

class Installation;

/// Says that a game is being worked on, for as long as the object lives, so that a second program on the same
/// installation can notice. The lock lies on the game's folder itself: it leaves no file behind, goes with a
/// program that crashes, and needs no right to write.
class GameLock
{
public:
    GameLock() = default; ///< on no game
    GameLock(const Installation& installation, std::string_view folder);
    ~GameLock();
    GameLock(GameLock&& other) noexcept;
    GameLock& operator=(GameLock&& other) noexcept;
    GameLock(const GameLock&) = delete;
    GameLock& operator=(const GameLock&) = delete;

    /// Whether somebody else works on the game. Once they have left it, the lock is taken here. A folder that
    /// cannot be locked at all (some network disks) counts as free.
    bool isTakenElsewhere();

private:
    int m_folder = -1; ///< descriptor of the game's folder
};
