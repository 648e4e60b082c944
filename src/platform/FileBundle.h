// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/FileSource.h"

#include <map>

/// Files in memory, named as those of an installation are: a game where there is no file system. Of two files
/// whose names differ in nothing but their case the later one is kept.
class FileBundle : public FileSource
{
public:
    /// Folders come with the files in them. False where no product path can name the file.
    bool add(std::string_view productPath, std::string bytes);

    bool isFile(std::string_view productPath) const override;
    std::vector<std::string> listFiles(std::string_view folder, std::string_view pattern) const override;

private:
    struct File {
        std::string name; ///< without its folders, as it is spelt
        std::string bytes;
    };

    std::optional<std::string> load(std::string_view productPath, std::uintmax_t limit) const override;
    std::optional<std::string> keyOf(std::string_view productPath) const;
    bool exists(const std::string& key) const;

    std::map<std::string, File, std::less<>> m_files; ///< by path, in lower case and with slashes
};
