// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Rounding.h"

/// Width and height of the playfield in pixels.
inline constexpr int fieldSize = 480;

/// World coordinates (-100 to 100, y upwards) to pixels of a picture of that width or height.
inline double WorldToScreenX(double x, int width)
{
    return roundHalfEven(((x + 100) / 200) * width);
}
inline double WorldToScreenY(double y, int height)
{
    return roundHalfEven((1 - (y + 100) / 200) * height);
}
