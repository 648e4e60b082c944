// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/RunFiles.h"

#include "platform/TextFile.h"

namespace
{

/// Of files that are kept. A game that reads more sees the rest as it is when it asks again.
constexpr std::size_t mostBytes = std::size_t{256} << 20U;

} // namespace

bool RunFiles::isFile(std::string_view productPath) const
{
    const auto [place, isNew] = m_there.try_emplace(lowerCase(productPath));
    if (isNew)
        place->second = m_source.isFile(productPath);
    return place->second;
}

std::optional<std::string> RunFiles::load(std::string_view productPath, std::uintmax_t limit) const
{
    std::string key = lowerCase(productPath);
    if (const auto known = m_contents.find(key); known != m_contents.end())
        return known->second && known->second->size() > limit ? std::nullopt : known->second;
    auto bytes = m_source.readBytes(productPath, limit);
    const std::size_t size = bytes ? bytes->size() : 0;
    if (m_bytes + size <= mostBytes) {
        m_bytes += size;
        m_contents.emplace(std::move(key), bytes);
    }
    return bytes;
}
