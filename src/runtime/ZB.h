// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "games/GameRecord.h"
#include "platform/TextFile.h"
#include "runtime/world/MapColors.h"

#include <string>
#include <string_view>

/// The title of message boxes.
inline constexpr std::string_view ProductName = "Zorbino";

/// What the whole program shares; there is one, and everybody is handed a reference to it.
struct ZB {
    GameRecord CurrentGame;
    std::string GamesFolder = "games\\"; ///< what stands before CurrentGame.folder in the path of a game
    int RunMode = 0;                ///< 1: started from the game editor (traced); 0: no run yet or untraced
    bool CodeEditorWasOpen = false; ///< the code editor was visible when the run started
    int ErrorLine = 0;              ///< line of the last reported error, 0 for none
    std::string ErrorText;

    /// The product path of CurrentGame's folder with a trailing backslash.
    std::string gamePath() const { return GamesFolder + CurrentGame.folder; }
};
