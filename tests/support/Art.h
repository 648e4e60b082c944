// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/BitmapFile.h" // bitmapFile(art({...})) is a picture file
#include "platform/Surface.h"

#include <initializer_list>
#include <string>
#include <string_view>

// Pictures that a person can read: one letter for each pixel.
// . black  # white  r red  o orange  y yellow  g green  c cyan  b blue  p purple  ? any other color

/// The picture with these rows, all of one length.
Surface art(std::initializer_list<std::string_view> rows);
/// The picture as rows of letters, each ended by a line feed; of `step` rows and columns only the first is
/// shown.
std::string art(const Surface& surface, int step = 1);
