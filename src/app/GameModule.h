// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "games/GameFolders.h"
#include "games/GamePlace.h"
#include "runtime/ZB.h"

/// The module for a game of that place.
inline ZB moduleOf(const FileSource& files, const GamePlace& place)
{
    ZB module;
    module.GamesFolder = place.gamesFolder;
    module.CurrentGame = readGameRecord(files, place.folder, place.gamesFolder);
    return module;
}
