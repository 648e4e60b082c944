// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Installation.h"
#include "recording/PlayFile.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The plays that are kept in the folder of a game, a file each.
class PlayKeeper
{
public:
    struct Entry {
        std::string file; ///< in the game's folder
        std::string name; ///< that people gave it
        bool isPinned = false;
        bool isReadable = false;
    };

    /// `folder`: product path with a trailing backslash.
    PlayKeeper(const Installation& installation, std::string folder);

    const Installation& installation() const { return m_installation; }
    const std::string& folder() const { return m_folder; }
    /// In the order of their file names. Files that have not changed since are not read again.
    std::vector<Entry> list();
    /// Where there is no play, nothing, and `fault` is a sentence that says why.
    std::optional<PlayFile> read(const std::string& file, std::string& fault) const;

    /// "play_1.zbplay" for "Play 1"; empty for a name without a letter or digit.
    static std::string fileOf(std::string_view name, std::string_view ending = PlayFile::ending);
    bool isTaken(const std::string& file) const { return m_installation.find(m_folder + file).has_value(); }
    /// "Play 1", or the first number whose file is not there.
    std::string freeName(std::string_view word, std::string_view ending = PlayFile::ending) const;

    // False where the disk does not let itself be written; all is then as it was.
    [[nodiscard]] bool save(const std::string& file, const PlayFile& play) const;
    [[nodiscard]] bool rename(const std::string& file, const std::string& name) const;
    [[nodiscard]] bool remove(const std::string& file) const;
    [[nodiscard]] bool setPinned(const std::string& file, bool on) const;

private:
    struct Known {
        std::filesystem::file_time_type time;
        std::uintmax_t size = 0;
        Entry entry;
    };
    Entry entryOf(const std::string& file) const;

    const Installation& m_installation;
    std::string m_folder;
    std::map<std::string, Known> m_known;
};
