// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <string>
#include <string_view>

/// The bytes of a Windows bitmap file with 24 bits for each pixel. What is given to stand `behind` the pixels
/// is part of the file, but of no interest to its readers.
std::string bitmapFile(const Surface& picture, std::string_view behind = {});
