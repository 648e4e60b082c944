// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "games/GamePlace.h"

#include "platform/TextFile.h"

GamePlace placeOf(const std::filesystem::path& gameFolder)
{
    std::error_code error;
    std::filesystem::path folder = std::filesystem::canonical(gameFolder, error);
    if (error)
        folder = gameFolder;
    const std::filesystem::path games = folder.parent_path();
    if (lowerCase(games.filename().string()) == "games")
        return {games.parent_path(), games.filename().string() + "\\", folder.filename().string() + "\\"};
    return {folder, "", ""};
}
