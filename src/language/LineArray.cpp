// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/LineArray.h"

#include "platform/NumberText.h"
#include "platform/TextFile.h"
#include "platform/Utf8.h"

#include <algorithm>
#include <functional>

LineArray::LineArray(std::string_view text)
{
    m_text.reserve(text.size() + 4);
    m_text = text;
    m_text += "\r\n\r\n";
    cutIntoLines();
    matchBlocks();
}

void LineArray::cutIntoLines()
{
    m_lines.reserve(static_cast<std::size_t>(std::ranges::count(m_text, '\n')));
    char* at = m_text.data();
    const char* const end = at + m_text.size();
    // One look at every character; a line end stands behind each line.
    while (at != end) {
        const char* const start = at;
        const char* codeEnd = nullptr; // where the comment begins
        bool ascii = true;
        for (; !(at[0] == '\r' && at[1] == '\n'); ++at) {
            const char c = *at;
            if (c >= 'A' && c <= 'Z')
                *at = static_cast<char>(c - 'A' + 'a');
            else if (c == ';' && !codeEnd)
                codeEnd = at;
            else if (static_cast<unsigned char>(c) >= 0x80)
                ascii = false;
        }
        const std::string_view line =
            trimSpaces({start, static_cast<std::size_t>((codeEnd ? codeEnd : at) - start)});
        m_lines.push_back(ascii ? line : lowerAside(line));
        at += 2;
    }
}

std::string_view LineArray::lowerAside(std::string_view line)
{
    m_nonAscii.push_back({lowerCase(line), line});
    return m_nonAscii.back().lower;
}

std::string_view LineArray::written(std::string_view line) const
{
    const std::less_equal<> isUpTo;
    const char* const text = m_text.data();
    if (isUpTo(text, line.data()) && isUpTo(line.data(), text + m_text.size()))
        return line;
    const auto found = std::ranges::find_if(
        m_nonAscii, [&](const NonAsciiLine& each) { return each.lower.data() == line.data(); });
    return found->written;
}

std::size_t LineArray::columnOf(int number, std::size_t position) const
{
    const std::string_view line = (*this)[number];
    const std::string_view original = written(line);
    std::size_t bytes = 0; // of as many characters as stand in front of the position
    for (std::size_t count = characterCount(line.substr(0, position)); count > 0; --count)
        bytes += firstCharacterLength(original.substr(bytes));
    const auto from = static_cast<std::size_t>(original.data() - m_text.data());
    const std::size_t lineEnd = from < 2 ? std::string::npos : m_text.rfind("\r\n", from - 2);
    return from + bytes - (lineEnd == std::string::npos ? 0 : lineEnd + 2) + 1;
}

void LineArray::matchBlocks()
{
    m_closingLines.assign(m_lines.size(), -1);
    std::vector<int> open;
    for (int number = 1; number <= upperBound(); ++number) {
        if (closesBlock(number) && !open.empty()) {
            m_closingLines[static_cast<std::size_t>(open.back()) - 1] = number;
            open.pop_back();
        }
        if (opensBlock(number))
            open.push_back(number);
    }
}
