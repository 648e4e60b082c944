#include "language/LineArray.h"

#include "platform/TextFile.h"

#include <algorithm>

namespace
{

std::string_view trimSpaces(std::string_view line)
{
    const auto first = line.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return line.substr(first, line.find_last_not_of(' ') - first + 1);
}

} // namespace

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
        m_lines.push_back(ascii ? line : std::string_view(m_foreign.emplace_back(lowerCase(line))));
        at += 2;
    }
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
