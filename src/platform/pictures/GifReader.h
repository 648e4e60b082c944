// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <optional>
#include <string_view>

/// The first picture of a GIF file. Nothing where it is none, has no pixel at all or is too large to hold.
/// See-through pixels are white; those that a file cut short does not have are 0.
std::optional<Surface> readGif(std::string_view bytes);
