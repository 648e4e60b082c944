// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "recording/ChildWords.h"

std::int64_t frameNumberOf(Moment moment)
{
    return moment.frame + 1;
}

std::int64_t frameSeenAt(Moment moment)
{
    return moment.statement > 0 ? moment.frame : moment.frame - 1;
}

std::string countText(std::int64_t count)
{
    std::string text = std::to_string(count);
    for (std::size_t at = text.size(); at > 3;)
        text.insert(at -= 3, 1, ',');
    return text;
}

std::string withArticle(std::string_view name)
{
    const bool isVowel =
        !name.empty() && std::string_view("aeiou").find(name.front()) != std::string_view::npos;
    return std::string(isVowel ? "an " : "a ").append(name);
}

std::string placeText(Moment moment, int line)
{
    std::string text = "Frame " + countText(frameNumberOf(moment));
    if (line > 0)
        text += ", line " + std::to_string(line);
    return text;
}
