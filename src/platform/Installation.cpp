// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/Installation.h"

#include "platform/DiskFile.h"
#include "platform/TextFile.h"

#include <algorithm>
#include <system_error>

namespace fs = std::filesystem;

namespace
{

struct Entry {
    fs::path path;
    bool isLink;
};

/// The entry of `folder` named `name` in any case; the exact spelling comes first.
std::optional<Entry> entryOf(const fs::path& folder, std::string_view name)
{
    std::error_code error;
    fs::path exact = folder / fs::path(std::string(name));
    if (const auto status = fs::symlink_status(exact, error); fs::exists(status))
        return Entry{std::move(exact), fs::is_symlink(status)};
    const std::string wanted = lowerCase(name);
    std::optional<Entry> best;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        // Several spellings side by side: always the same one, whatever order the folder is read in.
        std::error_code ignored;
        if (lowerCase(entry->path().filename().string()) == wanted && (!best || entry->path() < best->path))
            best = Entry{entry->path(), entry->is_symlink(ignored)};
    }
    return best;
}

bool isBelow(const fs::path& path, const fs::path& root)
{
    auto at = path.begin();
    for (const fs::path& part : root) {
        if (at == path.end() || *at != part)
            return false;
        ++at;
    }
    return true;
}

} // namespace

Installation::Installation(const fs::path& root)
{
    std::error_code error;
    m_root = fs::canonical(root, error);
    if (error)
        m_root = fs::absolute(root, error).lexically_normal();
}

std::optional<fs::path> Installation::walk(std::string_view productPath, bool lastMayBeNew) const
{
    const auto parts = partsOfProductPath(productPath);
    if (!parts)
        return std::nullopt;
    fs::path at = m_root;
    std::size_t depth = 0;
    std::error_code error;
    for (std::size_t i = 0; i < parts->size(); ++i) {
        const std::string_view part = (*parts)[i];
        if (part == "..") {
            if (depth == 0)
                return std::nullopt;
            --depth;
            at = at.parent_path();
            continue;
        }
        ++depth;
        const auto entry = entryOf(at, part);
        if (entry)
            at = entry->path;
        else if (lastMayBeNew && i + 1 == parts->size() && fs::is_directory(at, error))
            return at / fs::path(std::string(part));
        else
            return std::nullopt;
        // A link that leads out of the installation names nothing.
        if (entry->isLink) {
            const fs::path real = fs::canonical(at, error);
            if (error || !isBelow(real, m_root))
                return std::nullopt;
        }
    }
    return at;
}

std::optional<fs::path> Installation::find(std::string_view productPath) const
{
    return walk(productPath, false);
}

std::optional<fs::path> Installation::place(std::string_view productPath) const
{
    return walk(productPath, true);
}

bool Installation::isFile(std::string_view productPath) const
{
    std::error_code error;
    const auto path = find(productPath);
    return path && fs::is_regular_file(*path, error);
}

bool Installation::isFolder(std::string_view productPath) const
{
    std::error_code error;
    const auto path = find(productPath);
    return path && fs::is_directory(*path, error);
}

std::vector<std::string> Installation::list(std::string_view folder) const
{
    std::vector<std::string> names;
    const auto path = folder.empty() ? m_root : find(folder);
    if (!path)
        return names;
    std::error_code error;
    for (fs::directory_iterator entry(*path, error), end; !error && entry != end; entry.increment(error))
        if (std::string name = entry->path().filename().string(); !isTemporaryName(name))
            names.push_back(std::move(name));
    return names;
}

std::vector<std::string> Installation::listFiles(std::string_view folder, std::string_view pattern) const
{
    std::vector<std::string> names;
    const auto path = folder.empty() ? m_root : find(folder);
    if (!path)
        return names;
    std::error_code error;
    for (fs::directory_iterator entry(*path, error), end; !error && entry != end; entry.increment(error)) {
        std::string name = entry->path().filename().string();
        std::error_code ignored;
        if (matchesPattern(name, pattern) && !isTemporaryName(name) && entry->is_regular_file(ignored))
            names.push_back(std::move(name));
    }
    return names;
}

std::optional<std::string> Installation::load(std::string_view productPath, std::uintmax_t limit) const
{
    const auto path = find(productPath);
    return path ? readFileBytes(*path, limit) : std::nullopt;
}

bool Installation::write(std::string_view productPath, std::string_view bytes) const
{
    const auto path = place(productPath);
    std::error_code error;
    return path && !fs::is_directory(*path, error) && writeFileWhole(*path, bytes);
}

bool Installation::writePair(std::string_view firstPath, std::string_view firstBytes,
                             std::string_view secondPath, std::string_view secondBytes) const
{
    const auto first = place(firstPath);
    const auto second = place(secondPath);
    std::error_code error;
    if (!first || !second || fs::is_directory(*first, error) || fs::is_directory(*second, error))
        return false;
    const bool wasThere = fs::exists(*first, error);
    const auto old = wasThere ? readFileBytes(*first, maximumFileSize) : std::nullopt;
    if (wasThere && !old)
        return false; // it could not be brought back
    FileReplacement newFirst(*first, firstBytes);
    FileReplacement newSecond(*second, secondBytes);
    if (!newFirst.isReady() || !newSecond.isReady() || !newFirst.takePlace())
        return false;
    if (newSecond.takePlace())
        return true;
    [[maybe_unused]] const bool restored = old ? writeFileWhole(*first, *old) : fs::remove(*first, error);
    return false;
}

bool Installation::makeFolder(std::string_view productPath) const
{
    const auto path = place(productPath);
    std::error_code error;
    return path && fs::create_directory(*path, error);
}

bool Installation::remove(std::string_view productPath) const
{
    const auto path = find(productPath);
    std::error_code error;
    return path && fs::remove(*path, error);
}
