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

/// How a run was started.
enum class RunKind {
    Plain, ///< without the workbench; also: no run yet
    Traced ///< as the game editor does: every statement is announced to the trace
};

/// What the whole program shares; there is one, and everybody is handed a reference to it.
struct ZB {
    GameRecord CurrentGame;
    std::string GamesFolder = "games\\"; ///< what stands before CurrentGame.folder in the path of a game
    RunKind RunMode = RunKind::Plain;
    bool CodeEditorWasOpen = false; ///< the code editor was visible when the run started
    int ErrorLine = 0;              ///< line of the last reported error, 0 for none
    std::string ErrorText;

    /// The product path of CurrentGame's folder with a trailing backslash.
    std::string gamePath() const { return GamesFolder + CurrentGame.folder; }
};
