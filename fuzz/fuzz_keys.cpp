// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "FuzzGame.h"

#include "platform/TextFile.h"

#include <algorithm>

// A key file: what is understood is in order, is the same when it is written and read again, and can be
// played.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text = decodeText(std::string(textOf(data, size)));
    std::vector<KeyChange> keys;
    int badLine = 0;
    if (!parseKeys(text, keys, badLine)) {
        if (badLine < 1 || static_cast<std::size_t>(badLine) > splitLines(text).size())
            __builtin_trap();
        return 0;
    }
    std::string written;
    for (const KeyChange& key : keys)
        written +=
            std::to_string(key.frame) + (key.down ? " down " : " up ") + std::to_string(key.code) + '\n';
    std::vector<KeyChange> again;
    const auto isSame = [](const KeyChange& one, const KeyChange& other) {
        return one.frame == other.frame && one.down == other.down && one.code == other.code;
    };
    if (!std::ranges::is_sorted(keys, {}, &KeyChange::frame) || !parseKeys(written, again, badLine) ||
        !std::ranges::equal(keys, again, isSame))
        __builtin_trap();
    FuzzGame::instance().play(
        "program{\nstates{\nbegin{\nloop{\nif keyboard.left = \"true\" {\nset counter$a 1\n}if\n"
        "if keyboard.anykey = \"true\" {\nset counter$b 1\n}if\n}loop\n}begin\n}states\n}program\n",
        5, keys);
    return 0;
}
