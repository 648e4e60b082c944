// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "FuzzGame.h"

#include "games/GameFolders.h"

// The properties file of a game: what is read from it can be saved, and is read again.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const FuzzGame& game = FuzzGame::instance();
    const Installation installation(game.folder());
    static const bool hasFolder = std::filesystem::create_directories(game.folder() / "games/00000001");
    game.write("games/00000001/prop.zbo", textOf(data, size));
    const GameRecord record = readGameRecord(installation, "00000001\\");
    if (!hasFolder || !SaveGameProperties(installation, record))
        __builtin_trap();
    const GameRecord again = readGameRecord(installation, "00000001\\");
    if (again.author != record.author || again.title != record.title)
        __builtin_trap();
    return 0;
}
