#pragma once

#include "platform/Installation.h"
#include "runtime/ZB.h"

#include <optional>
#include <string>
#include <vector>

// The folders of the installation: games\ with one folder per game, zbo\ with the templates.

/// Makes the folder "games\" + the first free eight-digit number and copies the templates of zbo\ into it.
/// Returns its name without a backslash, or nothing where that failed; `missing` is then the product path of
/// the template that is missing ("zbo\code.txt") or of the file or folder that could not be written
/// ("games\00000002"), and no half-made folder is left.
std::optional<std::string> CreateGameFolder(const Installation& installation, std::string& missing);

/// The games of the library in the order of the file system. Entries that are no game folder (a plain file, a
/// folder without prop.zbo) are skipped; a missing line of prop.zbo is an empty text.
std::vector<GameRecord> ListGames(const Installation& installation);

/// The author and title of one game folder ("00000001\"), empty where prop.zbo is missing. `games`
/// stands before the folder in the path of the game.
GameRecord readGameRecord(const Installation& installation, std::string_view folder,
                          std::string_view games = "games\\");

/// Names of the sprite graphics of a game's folder ("games\00000001\"), without their ending, sorted.
std::vector<std::string> spriteNames(const Installation& installation, std::string_view folder);

/// Writes author and title of `game` to its prop.zbo. False where that failed.
[[nodiscard]] bool SaveGameProperties(const Installation& installation, const GameRecord& game);

/// Product path of the first file of a game folder that matches "icon.*", or nothing.
std::optional<std::string> findGameIcon(const Installation& installation, const GameRecord& game);

/// Makes a copy of "zbo\icons\" + iconName the only icon of a game. False where that failed; the game then
/// keeps an icon, the old one or the new.
[[nodiscard]] bool ChooseGameIcon(const Installation& installation, const GameRecord& game,
                                  std::string_view iconName);
