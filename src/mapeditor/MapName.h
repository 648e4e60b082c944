// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

class Installation;

// The names under which maps are kept: the folder of a game, a backslash, and the name that the game's
// program writes in quotes.

enum class MapNameFault {
    None,
    Blank,      ///< no name at all
    LeadsOut,   ///< has a ".."
    Icon,       ///< the name of the game's icon
    GameFile,   ///< what every game keeps for something else
    Unwritable, ///< no program can write it in a line
};
MapNameFault faultOf(std::string_view name);

/// The last part of a name.
std::string_view fileOf(std::string_view name);

/// The product path of a file that is named from the folder of the games.
std::string belowGames(std::string_view name);
/// The path of a file that lies in the same folder as the map.
std::string besideMap(std::string_view mapName, std::string_view file);

/// Whether a file stands there that is not a whole map: one in its place would cost somebody's work.
bool holdsNoMap(const Installation& installation, std::string_view productPath);
