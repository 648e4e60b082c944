#include "language/ZBLProgramExp.h"

#include "platform/TextFile.h"

#include <algorithm>

namespace
{

// In the order of EventName; the order in which a listing shows them as well.
constexpr std::array<std::string_view, eventNameCount> eventNames = {"normal", "collision", "mapchange",
                                                                     "create", "destroy"};
constexpr std::array<std::string_view, 2> partNames = {"initialize", "loop"};

/// The block name of an opening line: all of it but the brace.
std::string_view blockName(std::string_view opener)
{
    return opener.substr(0, opener.size() - 1);
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

} // namespace

std::string_view toString(EventName event)
{
    return eventNames[static_cast<std::size_t>(event)];
}

bool ZBLClassExp::Parse(const ZBLReader& reader, int& line)
{
    const int opening = line;
    const BlockEnd block = findBlockEnd(reader.lines, opening);
    m_className = block.header;
    const std::string shown = upperCase(m_className);
    if (block.line < 0)
        return reader.fail("The " + shown +
                               " class definition block does not have an ending! (No \"}CLASSES\" found.)",
                           opening);
    if (block.footer != block.header)
        return reader.fail(misnamed("this class definition block", m_className, m_className, block.footer),
                           opening, block.line);
    for (line = opening + 1;;) {
        const int eventLine = findNextBlock(reader.lines, line);
        if (eventLine < 0 || eventLine >= block.line)
            break;
        const BlockEnd event = findBlockEnd(reader.lines, eventLine);
        if (event.line < 0)
            return reader.fail("I can't find the end of the " + upperCase(event.header) + " event block.",
                               eventLine);
        if (event.footer != event.header)
            return reader.fail(misnamed("this event block", event.header, event.header, event.footer),
                               eventLine, event.line);
        const auto name = std::ranges::find(eventNames, event.header);
        if (name == eventNames.end())
            return reader.fail(upperCase(event.header) +
                                   " is not a valid event block.  Did you misspell one of the event names?",
                               eventLine, event.line);
        const auto index = static_cast<std::size_t>(name - eventNames.begin());
        m_present[index] = true;
        if (!m_events[index].Parse(reader, eventLine + 1, event.line - 1))
            return false;
        line = event.line + 1;
    }
    line = block.line + 1;
    return true;
}

void ZBLClassExp::Display(std::string& listing, int indent) const
{
    displayLine(listing, indent, m_className + "{");
    for (std::size_t i = 0; i < eventNameCount; ++i) {
        if (!m_present[i])
            continue;
        displayLine(listing, indent + 2, std::string(eventNames[i]) + "{");
        m_events[i].Display(listing, indent + 4);
        displayLine(listing, indent + 2, "}" + std::string(eventNames[i]));
    }
    displayLine(listing, indent, "}" + m_className);
}

bool ZBLStateExp::Parse(const ZBLReader& reader, int& line)
{
    const int opening = line;
    const BlockEnd block = findBlockEnd(reader.lines, opening);
    m_stateName = block.header;
    const std::string shown = upperCase(m_stateName);
    if (block.line < 0)
        return reader.fail("I can't find the end of the state block named " + shown + ".", opening);
    if (block.footer != block.header)
        return reader.fail(misnamed("this state block", m_stateName, m_stateName, block.footer), opening,
                           block.line);
    for (line = opening + 1;;) {
        const int partLine = findNextBlock(reader.lines, line);
        if (partLine < 0 || partLine > block.line)
            break;
        const std::string_view name = blockName(reader.lines[partLine]);
        const auto part = std::ranges::find(partNames, name);
        if (part == partNames.end())
            return reader.fail("While reading the definition of the state named " + shown + ", I found  " +
                                   std::string(name) + " where only INITIALIZE and LOOP blocks are allowed.",
                               partLine);
        const auto index = static_cast<std::size_t>(part - partNames.begin());
        const BlockEnd end = findBlockEnd(reader.lines, partLine);
        if (end.line < 0 || end.line > block.line)
            return reader.fail(
                index == 0
                    ? "I can't find the end of the INITIALIZE block inside of state named " + shown + "!"
                    : "I can't find the end of the LOOP block inside state named " + shown + "!",
                partLine);
        if (!m_parts[index].Parse(reader, partLine + 1, end.line - 1))
            return false;
        m_present[index] = true;
        line = end.line + 1;
    }
    line = block.line + 1;
    return true;
}

void ZBLStateExp::Display(std::string& listing, int indent) const
{
    displayLine(listing, indent, m_stateName + "{");
    for (std::size_t i = 0; i < partNames.size(); ++i) {
        if (!m_present[i])
            continue;
        displayLine(listing, indent + 2, std::string(partNames[i]) + "{");
        m_parts[i].Display(listing, indent + 4);
        displayLine(listing, indent + 2, "}" + std::string(partNames[i]));
    }
    displayLine(listing, indent, "}" + m_stateName);
}

bool ZBLProgramExp::Parse(const LineArray& lines, ParseReporter& reporter, int line)
{
    const ZBLReader reader{lines, reporter, m_pool, m_variables};
    const int opening = findNextBlock(lines, line);
    if (opening < 0 || lines[opening] != "program{")
        // Where there is no block at all, the search's own start is all there is to name.
        return reader.fail("I could not find the beginning of the PROGRAM block (\"PROGRAM{\")!", line);
    const BlockEnd program = findBlockEnd(lines, opening);
    if (program.line < 0)
        return reader.fail(
            "Could not find a PROGRAM block ending (\"}PROGRAM\")!  This is usually caused by mismatched "
            "braces.",
            opening);
    if (program.header != "program" || program.footer != "program")
        return reader.fail(
            "You either have mismatched opening and closing braces or the end of the program block is "
            "named incorrectly.  I expected to find PROGRAM{ ... }PROGRAM, but instead found " +
                braces(program.header, program.footer) + ".",
            program.line);
    for (line = opening + 1;;) {
        const int block = findNextBlock(lines, line);
        if (block < 0 || block >= program.line)
            return true;
        line = block;
        const std::string_view name = blockName(lines[block]);
        if (name == "classes") {
            if (!parseClasses(reader, line))
                return false;
        } else if (name == "states") {
            if (!parseStates(reader, line))
                return false;
        } else {
            return reader.fail("I found a block named " + upperCase(name) +
                                   " where there only should have been blocks named STATES and CLASSES.",
                               block);
        }
    }
}

bool ZBLProgramExp::parseClasses(const ZBLReader& reader, int& line)
{
    const int opening = line;
    const BlockEnd block = findBlockEnd(reader.lines, opening);
    if (block.line < 0)
        return reader.fail("The CLASSES block does not have an ending! (No \"}CLASSES\" found.)", opening);
    if (block.header != block.footer)
        return reader.fail(misnamed("this CLASSES block", "classes", block.header, block.footer), opening,
                           block.line);
    for (int next = opening + 1;;) {
        next = findNextBlock(reader.lines, next);
        if (next < 0 || next > block.line)
            break;
        m_classOf.try_emplace(std::string(blockName(reader.lines[next])), static_cast<int>(m_classes.size()));
        if (!m_classes.emplace_back().Parse(reader, next))
            return false;
    }
    line = block.line + 1;
    return true;
}

bool ZBLProgramExp::parseStates(const ZBLReader& reader, int& line)
{
    const int opening = line;
    const BlockEnd block = findBlockEnd(reader.lines, opening);
    if (block.line < 0)
        return reader.fail("The STATES block does not have an ending! (No \"}STATES\" found.)", opening);
    for (int next = opening + 1;;) {
        next = findNextBlock(reader.lines, next);
        if (next < 0 || next > block.line)
            break;
        m_stateOf.try_emplace(std::string(blockName(reader.lines[next])), static_cast<int>(m_states.size()));
        if (!m_states.emplace_back().Parse(reader, next))
            return false;
    }
    line = block.line + 1;
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
