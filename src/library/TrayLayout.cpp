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

std::pair<QString, QString> inTwoLines(const QString& padded)
{
    constexpr qsizetype longestLine = 12;
    const QString text = padded.trimmed();
    const auto longerPart = [&](qsizetype at) { return std::max(at, text.size() - at); };
    qsizetype best = text.size();
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at] == u' ' && longerPart(at) < longerPart(best))
            best = at;
    }
    if (longerPart(best) > longestLine) {
        best = (text.size() + 1) / 2;
        if (best < text.size() && text[best].isLowSurrogate())
            ++best; // the two halves of a letter stay together
    }
    return {text.first(best).trimmed(), text.sliced(best).trimmed()};
}
