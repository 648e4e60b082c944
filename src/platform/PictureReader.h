// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/FileSource.h"
#include "platform/Surface.h"

#include <filesystem>
#include <optional>
#include <string_view>

/// Reads pictures, known by their content and not by their name. The core declares it; the programs hand one
/// in.
class PictureReader
{
public:
    virtual ~PictureReader() = default;

    /// The picture of a file's bytes, or nothing where they are no picture, damaged or too large to hold.
    /// Pixels that a file cut short does not have are 0, which is no color.
    virtual std::optional<Surface> decode(std::string_view bytes) = 0;

    /// The picture in `file`; nothing also where that is no plain file or cannot be read.
    virtual std::optional<Surface> read(const std::filesystem::path& file);
    std::optional<Surface> read(const FileSource& files, std::string_view productPath);

    /// A picture with more pixels is too large to hold.
    static constexpr long long maximumPixels = 32LL << 20U;
    /// Room for that many pixels in the most wasteful kind of file.
    static constexpr std::uintmax_t maximumFileSize = std::uintmax_t{maximumPixels} * 4 + (1U << 20U);
};
