// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "FuzzGame.h"

#include "platform/TextFile.h"

// A map file: read, asked, drawn, changed, written and read again.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text = decodeText(std::string(textOf(data, size)));
    ZBMap map;
    map.Create(5, 5);
    const bool isRead = map.fromText(text);
    for (const int x : {-2147483647 - 1, -101, -100, 0, 57, 100, 2147483647})
        for (const int y : {-2147483647 - 1, -100, 0, 99, 119, 2147483647})
            map.GetSquare(x, y);
    Surface picture(61, 47);
    for (int layer = -1; layer < 7; ++layer)
        map.Draw(picture, layer);
    if (!isRead)
        return 0;
    ZBMap again;
    if (!again.fromText(map.toText()) || again.toText() != map.toText())
        __builtin_trap(); // what is written must be readable
    map.set_offset(0, 3, true);
    map.set_offset_all(map.columns * map.rows - 1, false);
    return 0;
}
