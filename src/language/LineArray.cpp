// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/LineArray.h"

#include "platform/NumberText.h"
#include "platform/TextFile.h"
#include "platform/Utf8.h"

#include <algorithm>
#include <utility>

namespace
{

bool isAsciiText(std::string_view text)
{
    unsigned char bits = 0; // of all characters; without a way out in the middle it is many at a time
    for (const char c : text)
        bits |= static_cast<unsigned char>(c);
    return bits < 0x80;
}

std::size_t lineEnds(std::string_view text)
{
    std::size_t count = 0;
    for (std::size_t at = text.find('\n'); at != std::string_view::npos; at = text.find('\n', at + 1))
        ++count;
    return count;
}

} // namespace

LineArray::LineArray(std::string text)
    : m_text(std::move(text))
{
    m_text += "\r\n\r\n";
    for (char& c : m_text)
        c = static_cast<char>(c + (c >= 'A' && c <= 'Z' ? 'a' - 'A' : 0));
    cutIntoLines();
    matchBlocks();
}

void LineArray::cutIntoLines()
{
    m_lines.reserve(lineEnds(m_text));
    const bool isAscii = isAsciiText(m_text);
    std::size_t start = 0;
    for (std::size_t at = m_text.find('\n'); at != std::string::npos; at = m_text.find('\n', at + 1)) {
        if (at == start || m_text[at - 1] != '\r')
            continue;
        addLine(start, at - 1, isAscii);
        start = at + 1;
    }
}

void LineArray::addLine(std::size_t start, std::size_t end, bool isAscii)
{
    const std::string_view whole(m_text.data() + start, end - start);
    const std::string_view code = trimSpaces(whole.substr(0, whole.find(';')));
    const Part line = {static_cast<std::uint32_t>(code.data() - m_text.data()),
                       static_cast<std::uint32_t>(code.size())};
    m_lines.push_back(isAscii || isAsciiText(code) ? line : lowerAside(line));
}

LineArray::Part LineArray::lowerAside(Part line)
{
    const std::string lower = lowerCase(view(line));
    const Part aside = {static_cast<std::uint32_t>(m_text.size() + m_aside.size()),
                        static_cast<std::uint32_t>(lower.size())};
    m_aside += lower;
    m_nonAscii.push_back({aside.start, line});
    return aside;
}

LineArray::Part LineArray::written(Part line) const
{
    if (line.start < m_text.size())
        return line;
    return std::ranges::lower_bound(m_nonAscii, line.start, {}, &NonAsciiLine::lowerStart)->written;
}

std::size_t LineArray::columnOf(int number, std::size_t position) const
{
    const Part original = written(m_lines[static_cast<std::size_t>(number) - 1]);
    const std::string_view text = view(original);
    std::size_t bytes = 0; // of as many characters as stand in front of the position
    for (std::size_t count = characterCount((*this)[number].substr(0, position)); count > 0; --count)
        bytes += firstCharacterLength(text.substr(bytes));
    const std::size_t from = original.start;
    const std::size_t lineEnd = from < 2 ? std::string::npos : m_text.rfind("\r\n", from - 2);
    return from + bytes - (lineEnd == std::string::npos ? 0 : lineEnd + 2) + 1;
}

void LineArray::matchBlocks()
{
    m_closingLines.assign(m_lines.size(), -1);
    std::vector<std::size_t> open;
    for (std::size_t index = 0; index < m_lines.size(); ++index) {
        const std::string_view line = view(m_lines[index]);
        if (line.empty())
            continue;
        if (line.front() == '}' && !open.empty()) {
            m_closingLines[open.back()] = static_cast<std::int32_t>(index) + 1;
            open.pop_back();
        }
        if (line.back() == '{')
            open.push_back(index);
    }
}
