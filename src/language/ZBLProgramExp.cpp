// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/ZBLProgramExp.h"

#include "platform/TextFile.h"

namespace
{

/// The block name of an opening line: all of it but the brace.
std::string_view blockName(std::string_view opener)
{
    return opener.substr(0, opener.empty() ? 0 : opener.size() - 1);
}

bool isBlock(std::string_view name, Block block)
{
    const auto* known = findWord<Block>(name);
    return known && *known == block;
}

std::string braces(std::string_view header, std::string_view footer)
{
    return upperCase(header) + "{ ... }" + upperCase(footer);
}

/// "... is named incorrectly. I expected to find A{ ... }A, but instead found A{ ... }B."
std::string misnamed(std::string_view what, std::string_view expected, std::string_view header,
                     std::string_view footer)
{
    return "You either have mismatched opening and closing braces or the end of " + std::string(what) +
           " is named incorrectly.  I expected to find " + braces(expected, expected) +
           ", but instead found " + braces(header, footer) + ".";
}

/// Reads the statements in a block that has no business here, for their faults alone. False where reading
/// ends.
bool readInVain(const ParseInput& input, int opening, const BlockEnd& block)
{
    return input.goesOn && block.behind > opening && ZBLExp().Parse(input, opening + 1, block.inner);
}

} // namespace

bool ZBLClassExp::Parse(const ParseInput& input, int& line)
{
    const int opening = line;
    const BlockEnd block = input.blockEnd(opening);
    m_className = block.header;
    if (block.line < 0 &&
        !input.failBlock("The " + upperCase(m_className) +
                             " class definition block does not have an ending! (No \"}CLASSES\" found.)",
                         opening, opening, block.header))
        return false;
    if (block.line > 0 && block.footer != block.header &&
        !input.failBlock(misnamed("this class definition block", m_className, m_className, block.footer),
                         opening, block.line, block.header))
        return false;
    for (line = opening + 1;;) {
        const int event = findNextBlock(input.lines, line);
        if (event < 0 || event > block.inner)
            break;
        line = event;
        if (!parseEvent(input, line))
            return false;
    }
    line = block.behind;
    return true;
}

bool ZBLClassExp::parseEvent(const ParseInput& input, int& line)
{
    const int opening = line;
    const BlockEnd block = input.blockEnd(opening);
    line = block.behind;
    const std::string_view name = block.header;
    if (block.line < 0 && !input.failBlock("I can't find the end of the " + upperCase(name) + " event block.",
                                           opening, opening, name))
        return false;
    if (block.line > 0 && block.footer != name &&
        !input.failBlock(misnamed("this event block", name, name, block.footer), opening, block.line, name))
        return false;
    const auto* event = findWord<EventName>(name);
    if (!event) {
        input.failLines(upperCase(name) +
                            " is not a valid event block.  Did you misspell one of the event names?",
                        opening, block.line > 0 ? block.line : opening, name);
        return readInVain(input, opening, block);
    }
    const auto index = static_cast<std::size_t>(*event);
    m_present[index] = true;
    return m_events[index].Parse(input, opening + 1, block.inner);
}

void ZBLClassExp::Display(std::string& listing, int indent) const
{
    displayLine(listing, indent, m_className + "{");
    for (std::size_t i = 0; i < eventNameCount; ++i) {
        if (!m_present[i])
            continue;
        const std::string event(wordFor(static_cast<EventName>(i)));
        displayLine(listing, indent + 2, event + "{");
        m_events[i].Display(listing, indent + 4);
        displayLine(listing, indent + 2, "}" + event);
    }
    displayLine(listing, indent, "}" + m_className);
}

bool ZBLStateExp::Parse(const ParseInput& input, int& line)
{
    const int opening = line;
    const BlockEnd block = input.blockEnd(opening);
    m_stateName = block.header;
    if (block.line < 0 &&
        !input.failBlock("I can't find the end of the state block named " + upperCase(m_stateName) + ".",
                         opening, opening, block.header))
        return false;
    if (block.line > 0 && block.footer != block.header &&
        !input.failBlock(misnamed("this state block", m_stateName, m_stateName, block.footer), opening,
                         block.line, block.header))
        return false;
    for (line = opening + 1;;) {
        const int part = findNextBlock(input.lines, line);
        if (part < 0 || part >= block.behind)
            break;
        line = part;
        if (!parsePart(input, block, line))
            return false;
    }
    line = block.behind;
    return true;
}

bool ZBLStateExp::parsePart(const ParseInput& input, const BlockEnd& state, int& line)
{
    const int opening = line;
    const std::string_view name = blockName(input.lines[opening]);
    const BlockEnd block = input.blockEnd(opening);
    line = block.behind;
    const auto* part = findWord<StatePart>(name);
    if (!part) {
        input.fail("While reading the definition of the state named " + upperCase(m_stateName) +
                       ", I found  " + std::string(name) +
                       " where only INITIALIZE and LOOP blocks are allowed.",
                   opening, name);
        return readInVain(input, opening, block);
    }
    if ((block.line < 0 || block.line >= state.behind) &&
        !input.failBlock(*part == StatePart::Initialize
                             ? "I can't find the end of the INITIALIZE block inside of state named " +
                                   upperCase(m_stateName) + "!"
                             : "I can't find the end of the LOOP block inside state named " +
                                   upperCase(m_stateName) + "!",
                         opening, opening, name))
        return false;
    const auto index = static_cast<std::size_t>(*part);
    m_present[index] = true;
    return m_parts[index].Parse(input, opening + 1, block.inner);
}

void ZBLStateExp::Display(std::string& listing, int indent) const
{
    displayLine(listing, indent, m_stateName + "{");
    for (std::size_t i = 0; i < statePartCount; ++i) {
        if (!m_present[i])
            continue;
        const std::string part(wordFor(static_cast<StatePart>(i)));
        displayLine(listing, indent + 2, part + "{");
        m_parts[i].Display(listing, indent + 4);
        displayLine(listing, indent + 2, "}" + part);
    }
    displayLine(listing, indent, "}" + m_stateName);
}

bool ZBLProgramExp::Parse(const LineArray& lines, ParseReporter& reporter, int line)
{
    return parseProgram({lines, reporter, m_pool, m_variables, m_arena}, line);
}

void ZBLProgramExp::parseAll(const LineArray& lines, ParseReporter& reporter, const MendedBlocks* mended)
{
    parseProgram({lines, reporter, m_pool, m_variables, m_arena, true, mended}, 1);
}

bool ZBLProgramExp::parseProgram(const ParseInput& input, int line)
{
    const LineArray& lines = input.lines;
    const int opening = findNextBlock(lines, line);
    if (!isBlock(blockName(lines[opening]), Block::Program))
        // Where there is no block at all, the search's own start is all there is to name.
        return input.fail("I could not find the beginning of the PROGRAM block (\"PROGRAM{\")!", line);
    const BlockEnd block = input.blockEnd(opening);
    if (block.line < 0 &&
        !input.failBlock(
            "Could not find a PROGRAM block ending (\"}PROGRAM\")!  This is usually caused by mismatched "
            "braces.",
            opening, opening, block.header))
        return false;
    if (block.line > 0 && !isBlock(block.footer, Block::Program) &&
        !input.failBlock(
            "You either have mismatched opening and closing braces or the end of the program block is "
            "named incorrectly.  I expected to find PROGRAM{ ... }PROGRAM, but instead found " +
                braces(block.header, block.footer) + ".",
            block.line, block.line, block.footer))
        return false;
    for (line = opening + 1;;) {
        line = findNextBlock(lines, line);
        if (line < 0 || line > block.inner)
            return true;
        if (!parseBlock(input, line))
            return false;
    }
}

bool ZBLProgramExp::parseBlock(const ParseInput& input, int& line)
{
    const std::string_view name = blockName(input.lines[line]);
    if (isBlock(name, Block::Classes))
        return parseClasses(input, line);
    if (isBlock(name, Block::States))
        return parseStates(input, line);
    input.fail("I found a block named " + upperCase(name) +
                   " where there only should have been blocks named STATES and CLASSES.",
               line, name);
    const int opening = line;
    line = input.blockEnd(opening).behind;
    return input.goesOn && line > opening;
}

bool ZBLProgramExp::parseClasses(const ParseInput& input, int& line)
{
    const int opening = line;
    const BlockEnd block = input.blockEnd(opening);
    if (block.line < 0 &&
        !input.failBlock("The CLASSES block does not have an ending! (No \"}CLASSES\" found.)", opening,
                         opening, block.header))
        return false;
    if (block.line > 0 && block.header != block.footer &&
        !input.failBlock(misnamed("this CLASSES block", block.header, block.header, block.footer), opening,
                         block.line, block.header))
        return false;
    for (line = opening + 1;;) {
        line = findNextBlock(input.lines, line);
        if (line < 0 || line >= block.behind)
            break;
        m_classOf.try_emplace(std::string(blockName(input.lines[line])), static_cast<int>(m_classes.size()));
        if (!m_classes.emplace_back().Parse(input, line))
            return false;
    }
    line = block.behind;
    return true;
}

bool ZBLProgramExp::parseStates(const ParseInput& input, int& line)
{
    const int opening = line;
    const BlockEnd block = input.blockEnd(opening);
    if (block.line < 0 &&
        !input.failBlock("The STATES block does not have an ending! (No \"}STATES\" found.)", opening,
                         opening, block.header))
        return false;
    for (line = opening + 1;;) {
        line = findNextBlock(input.lines, line);
        if (line < 0 || line >= block.behind)
            break;
        m_stateOf.try_emplace(std::string(blockName(input.lines[line])), static_cast<int>(m_states.size()));
        if (!m_states.emplace_back().Parse(input, line))
            return false;
    }
    line = block.behind;
    return true;
}

std::string ZBLProgramExp::Display() const
{
    std::string listing;
    displayLine(listing, 0, "program{");
    for (const ZBLClassExp& each : m_classes)
        each.Display(listing, 2);
    for (const ZBLStateExp& each : m_states)
        each.Display(listing, 2);
    displayLine(listing, 0, "}program");
    return listing;
}

std::optional<int> ZBLProgramExp::find(const Index& index, std::string_view name)
{
    const auto found = index.find(name);
    return found != index.end() ? std::optional(found->second) : std::nullopt;
}
