// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "games/GameRecord.h"

std::string GameRecord::path() const
{
    std::string path(gamesPath);
    path += folder;
    if (path.ends_with('\\'))
        path.pop_back();
    return path;
}

std::string GameRecord::pathOf(std::string_view fileName) const
{
    std::string path(gamesPath);
    path += folder;
    path += fileName;
    return path;
}
