// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>

/// Where a game folder given on the command line lies: the installation around it, and the game in it.
struct GamePlace {
    std::filesystem::path installation;
    std::string gamesFolder; ///< "games\", or empty for a folder that lies in no installation
    std::string folder;      ///< with a trailing backslash, or empty
};
/// A folder "games/NAME" lies in the installation around it; any other folder stands for itself.
GamePlace placeOf(const std::filesystem::path& gameFolder);
