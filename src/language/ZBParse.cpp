// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/ZBParse.h"

#include <array>

namespace
{

constexpr auto isSeparator = [] {
    std::array<bool, 256> table{};
    for (const char c : {'{', '}', '\t', '\n', '\r', ' '})
        table[static_cast<unsigned char>(c)] = true;
    return table;
}();

std::string_view firstWord(std::string_view line, std::size_t position)
{
    std::string_view word = nextWord(line, position);
    if (word.ends_with('{'))
        word.remove_suffix(1);
    return word;
}

} // namespace

void BlockEnd::closeAt(const LineArray& lines, int closingLine)
{
    line = closingLine;
    if (line == none)
        return;
    footer = firstWord(lines[line], 1);
    inner = line - 1;
    behind = line + 1;
}

BlockEnd findBlockEnd(const LineArray& lines, int start)
{
    BlockEnd end;
    const std::string_view opener = lines[start];
    end.header = firstWord(opener, opener.starts_with('}') ? 1 : 0);
    if (!lines.opensBlock(start)) {
        end.line = BlockEnd::noBlock;
        return end;
    }
    end.closeAt(lines, lines.closingLine(start));
    return end;
}

int findClosingLine(const LineArray& lines, int start)
{
    return lines.opensBlock(start) ? lines.closingLine(start) : BlockEnd::noBlock;
}

int findNextBlock(const LineArray& lines, int from)
{
    for (int line = from < 1 ? 1 : from; line <= lines.upperBound(); ++line)
        if (lines.opensBlock(line))
            return line;
    return -1;
}

bool startsWith(std::string_view text, std::string_view prefix)
{
    return text.starts_with(prefix);
}

std::string_view nextWord(std::string_view text, std::size_t& position)
{
    const auto separates = [](const char* at) { return isSeparator[static_cast<unsigned char>(*at)]; };
    const char* at = text.data() + position;
    const char* const end = text.data() + text.size();
    while (at != end && separates(at))
        ++at;
    const char* const first = at;
    while (at != end && !separates(at))
        ++at;
    position = static_cast<std::size_t>(at - text.data());
    return {first, static_cast<std::size_t>(at - first)};
}
