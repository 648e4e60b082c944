// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/EditorSizes.h"

#include <algorithm>
#include <array>

const EditorSizes& sizesFor(int screenHeight)
{
    static constexpr std::array<EditorSizes, 3> allSizes = {{
        {740, Qt::TopToolBarArea, Qt::ToolButtonTextUnderIcon, 32, 12, 40, 28, 320, 128, 64, true, true},
        {660, Qt::LeftToolBarArea, Qt::ToolButtonTextBesideIcon, 24, 12, 40, 20, 280, 88, 64, false, true},
        {0, Qt::LeftToolBarArea, Qt::ToolButtonTextBesideIcon, 22, 6, 26, 17, 200, 72, 40, false, false},
    }};
    const auto fits = [screenHeight](const EditorSizes& sizes) { return screenHeight >= sizes.screenHeight; };
    const auto* const sizes = std::ranges::find_if(allSizes, fits);
    return sizes == allSizes.end() ? allSizes.back() : *sizes;
}
