// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "FuzzGame.h"

// A description file and its picture.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzGame& game = FuzzGame::instance();
    const auto description = GraphicDescription::fromText(game.writeGraphic("it", textOf(data, size)));
    if (description && GraphicDescription::fromText(description->toText())->toText() != description->toText())
        __builtin_trap();
    game.play(
        "program{\nclasses{\nit{\nnormal{\nmove me\nchangedirection me 77\n}normal\n}it\n}classes\nstates{\n"
        "begin{\ninitialize{\ncreate it 1 \"it\" -77 9 -99 99 0\ncreate it 1 \"it\" 7 9 0 0 0\n"
        "setbackground game \"it.spb\"\n}initialize\n}begin\n}states\n}program\n",
        4);
    return 0;
}
