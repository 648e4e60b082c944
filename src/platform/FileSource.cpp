// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/FileSource.h"

#include "platform/TextFile.h"

#include <algorithm>

std::optional<std::string> FileSource::readBytes(std::string_view productPath, std::uintmax_t limit) const
{
    return load(productPath, limit);
}

std::optional<std::string> FileSource::readText(std::string_view productPath, std::uintmax_t limit) const
{
    const auto bytes = load(productPath, limit);
    return bytes ? std::optional(decodeText(*bytes)) : std::nullopt;
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
    std::size_t at = 0;
    std::size_t want = 0;
    std::size_t starAt = 0;
    std::size_t starWant = std::string::npos;
    while (at < text.size()) {
        if (want < wanted.size() && wanted[want] == '*') {
            starWant = ++want;
            starAt = at;
        } else if (want < wanted.size() && (wanted[want] == '?' || wanted[want] == text[at])) {
            ++at;
            ++want;
        } else if (starWant != std::string::npos) {
            want = starWant;
            at = ++starAt;
        } else {
            return false;
        }
    }
    while (want < wanted.size() && wanted[want] == '*')
        ++want;
    return want == wanted.size();
}
