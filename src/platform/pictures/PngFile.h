// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <optional>
#include <string>
#include <string_view>

/// The picture of a PNG file, through libpng. See-through pixels keep the color that the file gives them.
std::optional<Surface> readPng(std::string_view bytes);

/// The bytes of a PNG file; empty where there was no memory for them.
std::string pngFile(const Surface& surface);
