// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/MendedBlocks.h"

#include "language/Vocabulary.h"

namespace
{

constexpr std::size_t namedLevel = 2; ///< classes and states of the game
constexpr std::size_t codeLevel = 3;  ///< events, parts of a state
constexpr std::size_t innerLevel = 4; ///< blocks of ifs, one inside the other

/// The level at which a block of that name stands; nothing where the name is not the language's own.
std::optional<std::size_t> levelOf(std::string_view name)
{
    if (const Block* block = findWord<Block>(name)) {
        switch (*block) {
        case Block::Program:
            return 0;
        case Block::Classes:
        case Block::States:
            return 1;
        case Block::Else:
            return innerLevel;
        }
    }
    if (findWord<EventName>(name) || findWord<StatePart>(name))
        return codeLevel;
    const auto* statement = findWord<StatementWord>(name);
    return statement && statement->type == StatementType::If ? std::optional(innerLevel) : std::nullopt;
}

} // namespace

MendedBlocks::MendedBlocks(const LineArray& lines)
    : m_extents(static_cast<std::size_t>(lines.upperBound()) + 1)
{
    for (int line = 1; line <= lines.upperBound(); ++line) {
        if (!lines.closesBlock(line) && !lines.opensBlock(line))
            continue;
        std::size_t position = 0; // a brace in front of the word is passed over
        const std::string_view word = nextWord(lines[line], position);
        if (lines.closesBlock(line))
            close(line, word);
        if (lines.opensBlock(line))
            open(line, word);
    }
    endMissing(0, lines.upperBound() + 1);
}

BlockEnd MendedBlocks::blockEnd(const LineArray& lines, int start) const
{
    BlockEnd end = findBlockEnd(lines, start);
    if (end.line == BlockEnd::noBlock)
        return end;
    const Extent& extent = m_extents[static_cast<std::size_t>(start)];
    end.footer = {};
    end.inner = extent.behind - 1;
    end.behind = extent.behind;
    end.closeAt(lines, extent.closing);
    return end;
}

void MendedBlocks::open(int line, std::string_view header)
{
    const auto level = levelOf(header);
    if (level == codeLevel && m_open.size() == innerLevel && !levelOf(m_open[codeLevel].header)) {
        // An event inside of what stands where events do: that is a class, and the one around it has no end.
        extent(m_open[namedLevel].line).behind = m_open[codeLevel].line;
        m_open.erase(m_open.begin() + static_cast<std::ptrdiff_t>(namedLevel));
    } else if (level && *level < innerLevel) {
        endMissing(*level, line);
    }
    m_open.push_back({line, header});
}

void MendedBlocks::close(int line, std::string_view footer)
{
    const auto level = closedBy(footer);
    if (!level)
        return;
    endMissing(*level + 1, line);
    extent(m_open.back().line) = {line, line + 1};
    m_open.pop_back();
}

/// The level of the open block that a closing line means; nothing where it closes none.
std::optional<std::size_t> MendedBlocks::closedBy(std::string_view footer) const
{
    if (m_open.empty())
        return std::nullopt;
    const std::size_t top = m_open.size() - 1;
    if (footer.empty())
        return top;
    const auto level = levelOf(footer);
    if (level == innerLevel) // any block in code may end so, and an if at any depth has the same name
        return top >= innerLevel ? std::optional(top) : std::nullopt;
    for (std::size_t i = top + 1; i > 0; --i)
        if (m_open[i - 1].header == footer)
            return i - 1;
    return !level || *level == top ? std::optional(top) : std::nullopt;
}

/// The blocks from that level on have no end of their own.
void MendedBlocks::endMissing(std::size_t level, int behind)
{
    while (m_open.size() > level) {
        extent(m_open.back().line).behind = behind;
        m_open.pop_back();
    }
}
