// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBLExp.h"

#include <array>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

/// One sprite class: a sequence for each event, empty where its block is missing.
class ZBLClassExp
{
public:
    /// Reads the class whose block opens on line `line`, which moves behind it. False where reading ends here
    /// because of a fault, which has then been reported.
    bool Parse(const ParseInput& input, int& line);
    const ZBLExp& getEventExp(EventName event) const { return m_events[static_cast<std::size_t>(event)]; }
    /// The first word of the opening line.
    const std::string& className() const { return m_className; }
    void Display(std::string& listing, int indent) const;

private:
    bool parseEvent(const ParseInput& input, int& line);

    std::string m_className;
    std::array<ZBLExp, eventNameCount> m_events;
    std::array<bool, eventNameCount> m_present{};
};

/// One state of the game: what runs when it is entered, and what runs in each frame.
class ZBLStateExp
{
public:
    using Part = StatePart;

    /// Reads the state whose block opens on line `line`, which moves behind it. False as for a class.
    bool Parse(const ParseInput& input, int& line);
    const ZBLExp& getSubStateExp(Part part) const { return m_parts[static_cast<std::size_t>(part)]; }
    const std::string& stateName() const { return m_stateName; }
    void Display(std::string& listing, int indent) const;

private:
    bool parsePart(const ParseInput& input, const BlockEnd& state, int& line);

    std::string m_stateName;
    std::array<ZBLExp, statePartCount> m_parts;
    std::array<bool, statePartCount> m_present{};
};

/// A whole program. Owns everything that its nodes point to but the lines.
class ZBLProgramExp
{
public:
    ZBLProgramExp() = default;
    ZBLProgramExp(const ZBLProgramExp&) = delete;
    ZBLProgramExp& operator=(const ZBLProgramExp&) = delete;

    /// Reads the program that begins at or behind line `line`. False on the first fault, which has been
    /// reported.
    bool Parse(const LineArray& lines, ParseReporter& reporter, int line = 1);
    /// Reads on behind faults and reports them all, block by block; what was read is of no use then. Where
    /// braces do not match, that ends reading, unless it is told how they were meant.
    void parseAll(const LineArray& lines, ParseReporter& reporter, const MendedBlocks* mended);
    /// A developer's listing of the whole tree, lines ended by CR LF.
    std::string Display() const;

    // Classes and states are found by their registered name, the opening line without its "{"; the first one
    // counts.
    std::optional<int> findClass(std::string_view name) const { return find(m_classOf, name); }
    std::optional<int> findState(std::string_view name) const { return find(m_stateOf, name); }
    const std::deque<ZBLClassExp>& classes() const { return m_classes; }
    const std::deque<ZBLStateExp>& states() const { return m_states; }

    TextPool& pool() const { return m_pool; }
    const VariableTable& variables() const { return m_variables; }

private:
    using Index = std::unordered_map<std::string, int, TextHash, std::equal_to<>>;
    static std::optional<int> find(const Index& index, std::string_view name);
    bool parseProgram(const ParseInput& input, int line);
    bool parseBlock(const ParseInput& input, int& line);
    bool parseClasses(const ParseInput& input, int& line);
    bool parseStates(const ParseInput& input, int& line);

    mutable TextPool m_pool; // a run may name new texts, which changes no text that is there
    VariableTable m_variables;
    Arena m_arena;
    std::deque<ZBLClassExp> m_classes;
    std::deque<ZBLStateExp> m_states;
    Index m_classOf;
    Index m_stateOf;
};
