// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "games/GameRecord.h"
#include "platform/Installation.h"

#include <optional>
#include <string>
#include <vector>

// The folders of the installation: games\ with one folder per game, zbo\ with the templates.

/// What came of making a game folder.
struct NewGameFolder {
    enum class Outcome { Created, TemplateMissing, NotWritten };
    Outcome outcome;
    /// The folder's name ("00000002"); else the product path of the template that is missing ("zbo\code.txt")
    /// or of the file or folder that could not be written ("games\00000002").
    std::string name;
};

/// Makes the folder "games\" + the first free eight-digit number and copies the templates of zbo\ into it.
/// Where that fails no half-made folder is left.
NewGameFolder CreateGameFolder(const Installation& installation);

/// The games of the library in the order of the file system. Entries that are no game folder (a plain file, a
/// folder without prop.zbo) are skipped; a missing line of prop.zbo is an empty text.
std::vector<GameRecord> ListGames(const Installation& installation);

/// Clears the folders of the games of what programs that were killed have left of files they were writing.
/// May run beside everything else, in this program and in others.
void ClearLeavings(const Installation& installation);

/// The file with the author and title of a game.
inline constexpr std::string_view propertiesFile = "prop.zbo";
/// What it holds for `game`, and the game for what it holds; a missing line is an empty text.
std::string propertiesText(const GameRecord& game);
GameRecord gameRecordOf(std::string_view folder, std::string_view propertiesBytes);

/// The author and title of one game folder ("00000001\"), empty where prop.zbo is missing. `games`
/// stands before the folder in the path of the game.
GameRecord readGameRecord(const FileSource& files, std::string_view folder,
                          std::string_view games = gamesPath);

/// Names of the sprite graphics of a game's folder ("games\00000001\"), without their ending, in the order of
/// the file system.
std::vector<std::string> spriteNames(const Installation& installation, std::string_view folder);

/// Writes author and title of `game` to its prop.zbo. False where that failed.
[[nodiscard]] bool SaveGameProperties(const Installation& installation, const GameRecord& game);
