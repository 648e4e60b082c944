// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "games/WritableName.h"

#include "platform/NumberText.h"
#include "platform/TextFile.h"

#include <algorithm>

namespace
{

constexpr std::size_t longestName = 40; // bytes

bool isWritable(char c)
{
    const bool isLetterOfAnotherAlphabet = static_cast<unsigned char>(c) >= 0x80U;
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '-' ||
           isLetterOfAnotherAlphabet;
}

bool isInsideLetter(char c)
{
    return (static_cast<unsigned char>(c) & 0xc0U) == 0x80U;
}

} // namespace

std::string writableName(std::string_view wish)
{
    if (!isValidUtf8(wish))
        return {};
    std::string name = lowerCase(trimBlanks(wish));
    std::ranges::replace_if(
        name, [](char c) { return c == ' ' || c == '\t'; }, '_');
    std::erase_if(name, [](char c) { return !isWritable(c); });
    if (name.size() > longestName) {
        std::size_t end = longestName;
        while (isInsideLetter(name[end]))
            --end;
        name.resize(end);
    }
    return name;
}

bool isIconName(std::string_view name)
{
    return lowerCase(name) == "icon";
}
