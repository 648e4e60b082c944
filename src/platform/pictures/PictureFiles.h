// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PictureReader.h"

#include <filesystem>

/// Reads BMP, GIF, JPEG and PNG pictures: the one reader of all programs.
class PictureFiles : public PictureReader
{
public:
    std::optional<Surface> decode(std::string_view bytes) override;
};

/// Writes a surface as a PNG picture, whole or not at all. False where that failed.
[[nodiscard]] bool writePng(const Surface& surface, const std::filesystem::path& file);
