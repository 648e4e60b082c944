// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/FileSource.h"

#include "platform/TextFile.h"

#include <algorithm>
#include <utility>

std::optional<std::string> FileSource::readBytes(std::string_view productPath, std::uintmax_t limit) const
{
    return load(productPath, limit);
}

std::optional<std::string> FileSource::readText(std::string_view productPath, std::uintmax_t limit) const
{
    auto bytes = load(productPath, limit);
    return bytes ? std::optional(decodeText(std::move(*bytes))) : std::nullopt;
}

std::optional<std::vector<std::string_view>> partsOfProductPath(std::string_view productPath)
{
    if (productPath.find('\0') != std::string_view::npos)
        return std::nullopt;
    std::vector<std::string_view> parts;
    for (std::size_t start = 0;;) {
        const std::size_t end = std::min(productPath.find_first_of("\\/", start), productPath.size());
        const std::string_view part = productPath.substr(start, end - start);
        if (part.empty() || part == ".")
            return std::nullopt;
        parts.push_back(part);
        if (end == productPath.size())
            return parts;
        start = end + 1;
    }
}

bool matchesPattern(std::string_view name, std::string_view pattern)
{
    if (pattern == "*.*")
        return true;
    const std::string text = lowerCase(name);
    const std::string wanted = lowerCase(pattern);
    const std::size_t star = wanted.find('*');
    if (star == std::string::npos)
        return text == wanted;
    const std::string_view start = std::string_view(wanted).substr(0, star);
    const std::string_view end = std::string_view(wanted).substr(star + 1);
    return text.size() >= start.size() + end.size() && text.starts_with(start) && text.ends_with(end);
}
