// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Files that are named by the product's own paths: a backslash (or a slash) separates folders, letters match
/// without regard to case, and a path that leads out names nothing. An empty path and one with an empty or
/// "." part name nothing either. A run knows its game by nothing else, wherever the files really lie.
class FileSource
{
public:
    virtual ~FileSource() = default;

    virtual bool isFile(std::string_view productPath) const = 0;
    /// Names of the plain files of a folder that match `pattern` ("icon.*", "*.bmp", "*.*" for all), without
    /// regard to case. An empty path lists what lies in no folder.
    virtual std::vector<std::string> listFiles(std::string_view folder, std::string_view pattern) const = 0;

    /// Contents of a file; nothing where it is missing, no plain file, unreadable or larger than `limit`
    /// bytes.
    std::optional<std::string> readBytes(std::string_view productPath,
                                         std::uintmax_t limit = maximumFileSize) const;
    /// As readBytes, decoded to UTF-8 (see TextFile.h).
    std::optional<std::string> readText(std::string_view productPath,
                                        std::uintmax_t limit = maximumFileSize) const;

    static constexpr std::uintmax_t maximumFileSize = 64U << 20U;

private:
    virtual std::optional<std::string> load(std::string_view productPath, std::uintmax_t limit) const = 0;
};

/// The parts of a product path; nothing where it is empty or has an empty or "." part.
std::optional<std::vector<std::string_view>> partsOfProductPath(std::string_view productPath);

/// True when `name` matches a pattern in which one * stands for anything, without regard to case; "*.*"
/// matches every name.
bool matchesPattern(std::string_view name, std::string_view pattern);
