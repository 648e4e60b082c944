// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "app/GameModule.h"
#include "platform/Installation.h"
#include "platform/TextFile.h"

#include <optional>
#include <string>
#include <utility>

/// A game that was named by its folder.
struct ZblGame {
    explicit ZblGame(const std::string& gameFolder)
        : place(placeOf(gameFolder))
        , installation(place.installation)
        , text(installation.readText(path() + "code.txt"))
    {
        if (text)
            text = withProductLineEnds(std::move(*text));
    }

    /// With a trailing backslash, or empty.
    std::string path() const { return place.gamesFolder + place.folder; }

    GamePlace place;
    Installation installation;
    std::optional<std::string> text; ///< of the program; nothing where it cannot be read
};

inline std::string unreadable(const std::string& gameFolder)
{
    return "cannot read the program of the game in " + gameFolder;
}
