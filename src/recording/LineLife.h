// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/LineArray.h"
#include "recording/RunIndex.h"

#include <cstdint>
#include <string>
#include <vector>

/// How the lines of a program have lived in a run, for the margin of the code editor.
class LineLife
{
public:
    enum class Life : std::uint8_t {
        NotAStatement, ///< nothing stands there but a comment, or a block begins or ends
        CannotRun,     ///< the language never comes there
        NeverRan,
        RanBefore,
        RanInLastFrame,
    };

    /// Of the program that the run is of. `index` must have been extended once.
    LineLife(const RunIndex& index, const LineArray& lines);

    /// Lines count from 1.
    Life lifeOf(int line) const;
    /// What there is to say about it; nothing for what is no statement.
    std::string tip(int line) const;

private:
    using Block = ProgramLines::Block;

    bool isShadowed(const Block& block) const;
    std::string shadowText(const Block& block) const;
    std::string waitingText(int line) const;
    std::string blockWaits(const Block& block) const;
    bool hasBranchRun(const ProgramLines::Line& here) const;
    std::string ifWaits(int line) const;
    const std::string& className(const Block& block) const;

    const RunIndex& m_index;
    std::vector<bool> m_isStray;    ///< by line: it stands outside of the blocks that hold statements
    std::vector<bool> m_isShadowed; ///< by block: another one of that name comes before its class or state
};
