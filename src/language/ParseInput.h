// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/Arena.h"
#include "language/MendedBlocks.h"
#include "language/ParseFault.h"
#include "language/VariableTable.h"
#include "language/ZBParse.h"

/// What every Parse is handed: the lines, whom to tell what is wrong, and what the program has named so far.
struct ParseInput {
    const LineArray& lines;
    ParseReporter& reporter;
    TextPool& pool;
    VariableTable& variables;
    Arena& arena;
    /// Reading goes on with the next statement or block where one cannot be read.
    bool goesOn = false;
    /// The blocks as they were meant, where reading goes on even after braces that do not match.
    const MendedBlocks* mended = nullptr;

    /// Reports a fault of line `line`, whose part `where` is to blame (an empty one: something is missing
    /// there). Always false, so that a parser can return it.
    bool fail(std::string message, int line, std::string_view where = {}) const;
    /// Reports a fault of the lines up to `lastLine`; always false.
    bool failLines(std::string message, int line, int lastLine, std::string_view where = {}) const;
    /// Reports that a block and its end do not match. True where reading goes on nevertheless.
    bool failBlock(std::string message, int line, int lastLine, std::string_view where = {}) const;

    BlockEnd blockEnd(int start) const;
    int closingLine(int start) const;
};
