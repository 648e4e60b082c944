// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <array>

/// The seven map colors: red, orange, yellow, green, cyan, blue, purple.
inline constexpr std::array<Pixel, 7> ColorTable = {
    rgb(0xff, 0x00, 0x00), rgb(0xff, 0x80, 0x00), rgb(0xff, 0xff, 0x00), rgb(0x00, 0xff, 0x00),
    rgb(0x00, 0xff, 0xff), rgb(0x00, 0x00, 0xff), rgb(0xff, 0x00, 0xff),
};
inline constexpr int mapColorCount = static_cast<int>(ColorTable.size());
