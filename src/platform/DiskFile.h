// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

/// Contents of the plain file at `file`; nothing where it cannot be read or is larger than `limit` bytes.
std::optional<std::string> readFileBytes(const std::filesystem::path& file, std::uintmax_t limit);

/// A file that is written beside the one whose place it will take. Nothing is left of it where it does not.
class FileReplacement
{
public:
    /// Writes `bytes` to a temporary file beside `file` and flushes them to the disk. What earlier ones have
    /// left in the folder, when their program was killed, is cleared away.
    FileReplacement(const std::filesystem::path& file, std::string_view bytes);
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    /// Whether all bytes are on the disk.
    bool isReady() const { return m_isReady; }
    /// Takes the place by a rename. False where that failed; the old file is then untouched.
    [[nodiscard]] bool takePlace();

private:
    std::filesystem::path m_file;
    std::string m_temporary; ///< empty where there is none
    int m_handle = -1;       ///< of the temporary file, locked as long as it is wanted
    bool m_isReady = false;
};

/// Replaces the file at `file` whole or not at all: the bytes go to a temporary file beside it, are flushed
/// to the disk and take the old file's place by a rename. False where any step failed; the old file is then
/// untouched.
[[nodiscard]] bool writeFileWhole(const std::filesystem::path& file, std::string_view bytes);

/// Whether a name is that of a temporary file, which is nobody's file yet or has been left behind.
bool isTemporaryName(std::string_view name);

/// Removes the temporary files that programs have left in a folder when they were killed. Those of a program
/// that is still writing are locked, and stay.
void clearLeftFiles(const std::filesystem::path& folder);
