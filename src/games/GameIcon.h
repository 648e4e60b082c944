// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "games/GameRecord.h"
#include "platform/Installation.h"

#include <optional>
#include <string>
#include <string_view>

// The icon of a game: the file "icon.bmp", "icon.gif", "icon.jpg" or "icon.jpeg" of its folder. Whatever else
// has the name icon (a sprite, a map, a file that was being written when the power went) is no icon.

/// Whether a file of that name, in any case, is a game's icon.
bool isGameIcon(std::string_view fileName);

/// Product path of the first icon in a game's folder, or nothing.
std::optional<std::string> findGameIcon(const Installation& installation, const GameRecord& game);

/// Makes `picture` the only icon of a game, under the name "icon" with the ending (".bmp") that tells its
/// kind. False where that failed; the game then keeps an icon, the old one or the new.
[[nodiscard]] bool writeGameIcon(const Installation& installation, const GameRecord& game,
                                 std::string_view ending, std::string_view picture);
