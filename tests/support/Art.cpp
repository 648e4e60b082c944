// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "support/Art.h"

#include "runtime/ZB.h"

#include <algorithm>

namespace
{

constexpr std::string_view letters = ".#roygcbp";

Pixel colorOf(std::size_t letter)
{
    return letter == 0 ? black : letter == 1 ? white : ColorTable.at(letter - 2);
}

} // namespace

Surface art(std::initializer_list<std::string_view> rows)
{
    Surface surface(static_cast<int>(rows.begin()->size()), static_cast<int>(rows.size()));
    int y = 0;
    for (const std::string_view row : rows) {
        std::ranges::transform(row, surface.row(y++).begin(),
                               [](char letter) { return colorOf(letters.find(letter)); });
    }
    return surface;
}

std::string art(const Surface& surface, int step)
{
    std::string text;
    for (int y = 0; y < surface.height(); y += step) {
        for (int x = 0; x < surface.width(); x += step) {
            std::size_t letter = 0;
            while (letter < letters.size() && colorOf(letter) != surface.at(x, y))
                ++letter;
            text += letter < letters.size() ? letters[letter] : '?';
        }
        text += '\n';
    }
    return text;
}
