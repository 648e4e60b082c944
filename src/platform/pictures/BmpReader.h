// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <optional>
#include <string_view>

/// The picture of a Windows or OS/2 bitmap file: 1, 4, 8, 16, 24 or 32 bits for each pixel, run lengths or
/// not, from the bottom up or from the top down. Nothing where it is none, has no pixel at all or is too
/// large to hold. Pixels that a file cut short does not have are 0.
std::optional<Surface> readBmp(std::string_view bytes);
