// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/FileSource.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The installation folder and everything below it.
class Installation : public FileSource
{
public:
    explicit Installation(const std::filesystem::path& root);

    const std::filesystem::path& root() const { return m_root; }

    /// The existing file or folder of that name, or nothing.
    std::optional<std::filesystem::path> find(std::string_view productPath) const;
    /// Where a file or folder of that name is or would be written: an existing entry (in any case) or a new
    /// name in an existing folder. Nothing where the folder is missing or the path leads out.
    std::optional<std::filesystem::path> place(std::string_view productPath) const;
    bool isFile(std::string_view productPath) const override;
    bool isFolder(std::string_view productPath) const;

    /// Names of the entries of a folder, in the order in which the file system returns them; "." and ".."
    /// left out; empty where the folder cannot be read. An empty path lists the installation folder itself.
    std::vector<std::string> list(std::string_view folder) const;
    std::vector<std::string> listFiles(std::string_view folder, std::string_view pattern) const override;

    /// Writes a file whole or not at all. False where that failed; an older file is then untouched.
    [[nodiscard]] bool write(std::string_view productPath, std::string_view bytes) const;
    /// Writes two files that belong together: both are on the disk before the first of them takes its place.
    /// False where that failed; the older files are then there still, where the disk lets itself be written.
    [[nodiscard]] bool writePair(std::string_view firstPath, std::string_view firstBytes,
                                 std::string_view secondPath, std::string_view secondBytes) const;
    [[nodiscard]] bool makeFolder(std::string_view productPath) const;
    [[nodiscard]] bool remove(std::string_view productPath) const;

private:
    std::optional<std::string> load(std::string_view productPath, std::uintmax_t limit) const override;
    std::optional<std::filesystem::path> walk(std::string_view productPath, bool lastMayBeNew) const;

    std::filesystem::path m_root;
};
