// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/FileSource.h"
#include "platform/PictureReader.h"
#include "runtime/RunFiles.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The files of the game that runs: pictures, maps and music by the names that its program gives them. The
/// game's folder is a product path with a trailing backslash.
class GameAssets
{
public:
    /// How many graphics a run may have at once.
    static constexpr std::size_t graphicCount = 48;

    GameAssets(const FileSource& files, PictureReader& pictures);

    /// A run begins of the game in that folder: its files are read anew.
    void setPath(std::string path) { m_read = std::make_shared<RunFiles>(m_files, std::move(path)); }
    const std::string& path() const { return m_read->folder(); }
    /// What the run has read; shared with those that play it again.
    const std::shared_ptr<RunFiles>& runFiles() const { return m_read; }
    void useFiles(std::shared_ptr<RunFiles> files) { m_read = std::move(files); }

    bool exists(std::string_view name) const;
    /// A text file; nothing where it cannot be read.
    std::optional<std::string> text(std::string_view name) const;
    /// A background as large as the playfield; null where there is no such picture or it has no pixels. One
    /// that the run has used before costs nothing.
    RunFiles::Background background(std::string_view name);
    /// The graphic of that name beside those which the run has. Null where it cannot be read, where there are
    /// too many, or where all of them together would be too large.
    std::shared_ptr<const ZBGraphic>
    graphic(std::string_view name, const std::vector<std::shared_ptr<const ZBGraphic>>& others) const;

private:
    const FileSource& m_files;
    PictureReader& m_pictures;
    std::shared_ptr<RunFiles> m_read;
};
