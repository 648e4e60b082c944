// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "library/TrayLayout.h"

#include "platform/Rounding.h"

#include <algorithm>

namespace
{

constexpr std::size_t tileCharacters = 18;
constexpr int clickMargin = 10;

constexpr bool startsCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xc0U) != 0x80U;
}

} // namespace

int tileLeft(int slot, int trayWidth)
{
    int left = firstTileLeft;
    for (int n = 0; n < slot; ++n)
        left = roundToInt(left + trayWidth / double(tilesInView)); // each step is rounded, not only the sum
    return left;
}

int slotAt(int x, int trayWidth)
{
    const int slotWidth = roundToInt(trayWidth / double(tilesInView));
    return slotWidth > 0 ? (x - clickMargin) / slotWidth
                         : 0; // towards zero: the left margin counts as slot 0
}

TrayStep stepInTray(int marked, int direction)
{
    const int slot = marked < 0 ? 0 : marked + direction;
    const int shown = std::clamp(slot, 0, tilesInView - 1);
    return {shown, slot - shown};
}

std::string tileText(std::string_view utf8)
{
    std::string text;
    std::size_t characters = 0;
    for (const char byte : utf8) {
        if (startsCharacter(byte) && ++characters > tileCharacters)
            break;
        text += byte;
    }
    if (characters < tileCharacters)
        text.append(tileCharacters - characters, ' ');
    return text;
}
