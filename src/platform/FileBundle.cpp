// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/FileBundle.h"

#include "platform/TextFile.h"

#include <algorithm>

bool FileBundle::add(std::string_view productPath, std::string bytes)
{
    const auto parts = partsOfProductPath(productPath);
    if (!parts || std::ranges::find(*parts, "..") != parts->end())
        return false;
    std::string key(productPath);
    std::ranges::replace(key, '\\', '/');
    m_files.insert_or_assign(lowerCase(key), File{std::string(parts->back()), std::move(bytes)});
    return true;
}

bool FileBundle::isFile(std::string_view productPath) const
{
    const auto key = keyOf(productPath);
    return key && m_files.contains(*key);
}

std::vector<std::string> FileBundle::listFiles(std::string_view folder, std::string_view pattern) const
{
    std::vector<std::string> names;
    std::string start;
    if (!folder.empty()) {
        const auto key = keyOf(folder);
        if (!key)
            return names;
        start = *key;
        if (!start.empty())
            start += '/';
    }
    for (auto at = m_files.lower_bound(start); at != m_files.end() && at->first.starts_with(start); ++at)
        if (at->first.find('/', start.size()) == std::string::npos &&
            matchesPattern(at->second.name, pattern))
            names.push_back(at->second.name);
    return names;
}

std::optional<std::string> FileBundle::load(std::string_view productPath, std::uintmax_t limit) const
{
    const auto key = keyOf(productPath);
    const auto file = key ? m_files.find(*key) : m_files.end();
    if (file == m_files.end() || file->second.bytes.size() > limit)
        return std::nullopt;
    return file->second.bytes;
}

/// The key of an existing file or folder. Each step of the way exists, as it must in a file system.
std::optional<std::string> FileBundle::keyOf(std::string_view productPath) const
{
    const auto parts = partsOfProductPath(productPath);
    if (!parts)
        return std::nullopt;
    std::string key;
    for (const std::string_view part : *parts) {
        if (part == "..") {
            if (key.empty())
                return std::nullopt;
            key.resize(key.rfind('/') == std::string::npos ? 0 : key.rfind('/'));
            continue;
        }
        if (!key.empty())
            key += '/';
        key += lowerCase(part);
        if (!exists(key))
            return std::nullopt;
    }
    return key;
}

bool FileBundle::exists(const std::string& key) const
{
    const auto inFolder = m_files.lower_bound(key + '/');
    return m_files.contains(key) || (inFolder != m_files.end() && inFolder->first.starts_with(key + '/'));
}
