// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/DiskFile.h"
#include "platform/Installation.h"

// Where there are no files but those of a FileBundle.

std::optional<std::string> readFileBytes(const std::filesystem::path& /*file*/, std::uintmax_t /*limit*/)
{
    return std::nullopt;
}

bool Installation::writePair(std::string_view /*firstPath*/, std::string_view /*firstBytes*/,
                             std::string_view /*secondPath*/, std::string_view /*secondBytes*/) const
{
    return false;
}
