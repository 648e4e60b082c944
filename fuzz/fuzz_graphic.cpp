// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "FuzzGame.h"

// A description file and its picture: everything up to the first 0 byte is the description.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input = textOf(data, size);
    const std::size_t end = std::min(input.find('\0'), input.size());
    FuzzGame& game = FuzzGame::instance();
    game.write("it.spr", input.substr(0, end));
    if (end < input.size()) // else the picture of the last input, which is as good as any
        game.write("it.spb", input.substr(end + 1));

    const auto description = GraphicDescription::fromText(input.substr(0, end));
    if (description && GraphicDescription::fromText(description->toText())->toText() != description->toText())
        __builtin_trap();
    game.play(
        "program{\nclasses{\nit{\nnormal{\nmove me\nchangedirection me 77\n}normal\n}it\n}classes\nstates{\n"
        "begin{\ninitialize{\ncreate it 1 \"it\" -77 9 -99 99 0\ncreate it 1 \"it\" 7 9 0 0 0\n"
        "setbackground game \"it.spb\"\n}initialize\n}begin\n}states\n}program\n",
        4);
    return 0;
}
