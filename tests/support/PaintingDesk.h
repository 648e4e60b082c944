// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "support/PretendDesk.h"

#include <filesystem>

/// A desk on an installation folder of its own with one game.
class PaintingDesk : private ScratchFolder, public PretendDesk
{
public:
    PaintingDesk()
        : PretendDesk(ScratchFolder::path())
    {
        makeFolder("games/00000001");
        module().CurrentGame = {"", "", "00000001\\"};
    }

    std::filesystem::path game() const { return ScratchFolder::path() / "games" / "00000001"; }
};
