// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <optional>
#include <string_view>

/// The picture of a JPEG file, through libjpeg. What a file cut short does not have goes on as it was, or is
/// grey.
std::optional<Surface> readJpeg(std::string_view bytes);
