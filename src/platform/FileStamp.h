// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string_view>

class Installation;

/// What a file held when it was read or written, to notice later that somebody else has changed it. A sum of
/// the bytes tells more than the file's time, which a slow clock or a copy can leave as it was.
class FileStamp
{
public:
    /// There was no file.
    FileStamp() = default;
    /// The file held these bytes, as they are on the disk.
    explicit FileStamp(std::string_view bytes);

    /// Whether the file that stands there now holds anything else. A file that is gone has not changed: there
    /// is nothing to lose in writing it anew.
    bool hasChanged(const Installation& installation, std::string_view productPath) const;

    bool operator==(const FileStamp&) const = default;

private:
    bool m_exists = false;
    std::uint64_t m_size = 0;
    std::uint64_t m_sum = 0;
};
