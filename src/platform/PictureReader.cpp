// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/PictureReader.h"

#include "platform/DiskFile.h"

std::optional<Surface> PictureReader::read(const std::filesystem::path& file)
{
    const auto bytes = readFileBytes(file, maximumFileSize);
    return bytes ? decode(*bytes) : std::nullopt;
}

std::optional<Surface> PictureReader::read(const FileSource& files, std::string_view productPath)
{
    const auto bytes = files.readBytes(productPath, maximumFileSize);
    return bytes ? decode(*bytes) : std::nullopt;
}
