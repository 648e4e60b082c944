// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "runtime/ProgramCode.h"

#include <vector>

/// Which statement stands on which line of a program, and in which block. Names nothing that outlives the
/// program.
class ProgramLines
{
public:
    /// An innermost block: an event's of a class or a part of a state.
    struct Block {
        int classIndex = -1; ///< -1: it is a state's
        EventName event = EventName::Normal;
        int stateIndex = -1; ///< -1: it is a class's
        StatePart part = StatePart::Initialize;
        int firstStatement = 0; ///< its line; 0 where the block is empty
    };
    struct Line {
        const ZBLStatement* statement = nullptr; ///< null: none stands there
        int block = -1;                          ///< index into blocks()
        int aroundIf = 0;                        ///< the line of the innermost if around it, 0 for none
        bool isInElse = false;                   ///< of that if
    };

    ProgramLines() = default;
    ProgramLines(const Program& program, int lineCount);

    /// Line `number`, counted from 1; a line without a statement outside of the program.
    const Line& line(int number) const
    {
        const auto index = static_cast<std::size_t>(number);
        return number > 0 && index < m_lines.size() ? m_lines[index] : m_lines[0];
    }
    int lineCount() const { return static_cast<int>(m_lines.size()) - 1; }
    const std::vector<Block>& blocks() const { return m_blocks; }

private:
    void addBlock(const ZBLExp& sequence, Block block);

    std::vector<Line> m_lines{1}; ///< by number; there is no line 0
    std::vector<Block> m_blocks;
};
