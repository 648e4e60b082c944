// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/FileStamp.h"

#include "platform/Installation.h"

namespace
{

/// FNV-1a: good enough where nobody cheats.
std::uint64_t sumOf(std::string_view bytes)
{
    std::uint64_t sum = 0xcbf29ce484222325U;
    for (const char byte : bytes)
        sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
    return sum;
}

} // namespace

FileStamp::FileStamp(std::string_view bytes)
    : m_exists(true)
    , m_size(bytes.size())
    , m_sum(sumOf(bytes))
{
}

bool FileStamp::hasChanged(const Installation& installation, std::string_view productPath) const
{
    if (const auto bytes = installation.readBytes(productPath))
        return *this != FileStamp(*bytes);
    return installation.isFile(productPath); // there, and not to be read: not what was seen
}
