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
    char* const begin = m_text.data();
    const std::string_view all = m_text;
    for (std::size_t start = 0; start < all.size();) {
        const std::size_t end = all.find("\r\n", start); // there is one behind every line
        std::string_view line = all.substr(start, end - start);
        line = trimSpaces(line.substr(0, line.find(';')));
        bool ascii = true;
        for (char* c = begin + (line.data() - begin); c != line.data() + line.size(); ++c) {
            ascii = ascii && static_cast<unsigned char>(*c) < 0x80;
            if (*c >= 'A' && *c <= 'Z')
                *c = static_cast<char>(*c - 'A' + 'a');
        }
        m_lines.push_back(ascii ? line : std::string_view(m_foreign.emplace_back(lowerCase(line))));
        start = end + 2;
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
