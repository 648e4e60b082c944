// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBParse.h"

#include <optional>
#include <vector>

/// The blocks of a program whose braces do not match, as they were probably meant.
///
/// The language matches blocks by their depth alone, so one brace too few or too many shifts all that follow,
/// and what is reported is the outermost block. Here the names count: "}normal" closes the "normal{" above
/// it, and what was opened in between has no end; "collision{" cannot stand inside "normal{", which thus has
/// no end either; "}if" closes nothing where no if is open. Blocks of the language stand at a fixed level:
/// program 0, classes and states 1, classes and states of the game 2, events and parts of a state 3, the
/// blocks of ifs from 4 on.
class MendedBlocks
{
public:
    explicit MendedBlocks(const LineArray& lines);

    /// As findBlockEnd. Where a block has no end, `inner` and `behind` say how far it reaches.
    BlockEnd blockEnd(const LineArray& lines, int start) const;

private:
    struct Open {
        int line;
        std::string_view header;
    };
    struct Extent {
        int closing = BlockEnd::none;
        int behind = 0;
    };
    void open(int line, std::string_view header);
    void close(int line, std::string_view footer);
    std::optional<std::size_t> closedBy(std::string_view footer) const;
    void endMissing(std::size_t level, int behind);
    Extent& extent(int line) { return m_extents[static_cast<std::size_t>(line)]; }

    std::vector<Open> m_open;
    std::vector<Extent> m_extents; ///< by opening line
};
