// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/FileSource.h"
#include "runtime/world/ZBGraphic.h"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The files of a game as one run sees them: each is read once. However they change meanwhile, they stay what
/// they were for that run, and for whoever plays it again.
class RunFiles : public FileSource
{
public:
    /// `folder` is the game's, a product path with a trailing backslash.
    RunFiles(const FileSource& source, std::string folder)
        : m_source(source)
        , m_folder(std::move(folder))
    {
    }

    const std::string& folder() const { return m_folder; }

    bool isFile(std::string_view productPath) const override;
    std::vector<std::string> listFiles(std::string_view folder, std::string_view pattern) const override
    {
        return m_source.listFiles(folder, pattern);
    }

    /// The contents of the files that the run has read, by product path in lower case; nothing for those that
    /// it did not get.
    const std::map<std::string, std::optional<std::string>, std::less<>>& contents() const
    {
        return m_contents;
    }

    /// Whether the files that the run has only looked for are there.
    const std::map<std::string, bool, std::less<>>& lookedFor() const { return m_there; }

    /// A background as large as the playfield; no field where there is no such picture.
    struct Background {
        std::shared_ptr<const Surface> field;
        std::size_t pixelsRead = 0; ///< of the picture in the file
    };
    // What has been made of the files, by the names that the program gives them.
    std::map<std::string, Background, std::less<>> backgrounds;
    std::map<std::string, std::shared_ptr<const ZBGraphic>, std::less<>> graphics;

private:
    std::optional<std::string> load(std::string_view productPath, std::uintmax_t limit) const override;

    const FileSource& m_source;
    std::string m_folder;
    // Reading changes nothing that anybody could tell.
    mutable std::map<std::string, std::optional<std::string>, std::less<>> m_contents;
    mutable std::map<std::string, bool, std::less<>> m_there;
    mutable std::size_t m_bytes = 0;
};
