// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/LineArray.h"

#include <string_view>

/// What the first word of a block's two lines say; both point into the lines.
struct BlockEnd {
    static constexpr int none = -1;    ///< no line closes the block
    static constexpr int noBlock = -2; ///< the start line does not open a block
    int line = none;                   ///< the closing line, or one of the above
    int inner = 0;                     ///< the last line inside, where the end is known or guessed
    int behind = 0;                    ///< the first line behind it, likewise
    std::string_view header;
    std::string_view footer;

    void closeAt(const LineArray& lines, int closingLine);
};

/// Matches the block that is opened on line `start`.
BlockEnd findBlockEnd(const LineArray& lines, int start);
/// Only the line that closes it, or one of BlockEnd's numbers.
int findClosingLine(const LineArray& lines, int start);
/// The first line numbered `from` or later that opens a block, or -1.
int findNextBlock(const LineArray& lines, int from);
bool startsWith(std::string_view text, std::string_view prefix);
/// The next word at or after `position` (counted from 0), which moves behind it. Words are separated by
/// braces, tabs, line ends and spaces; an empty word means that there is none left.
std::string_view nextWord(std::string_view text, std::size_t& position);
