// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBLStatement.h"

#include <vector>

class ZBLIfExp;

/// A statement sequence: all that stands in one innermost block of a program. Statements are kept flat, in
/// the order in which they are written; behind an if stand the statements of its blocks. So deep nesting
/// costs no stack.
class ZBLExp
{
public:
    /// Reads the lines from `from` to `to`, both included, behind the statements that are there already.
    /// False where reading ends here because of a fault, which has then been reported.
    bool Parse(const ParseInput& input, int from, int to);
    bool isempty() const { return statementCount() == 0; }
    /// Statements of the block itself, an if with all in it counting as one.
    int statementCount() const { return m_statementCount; }
    int firstLine() const { return m_firstLine; }
    /// The first item, null where there is none.
    const SequenceItem* first() const { return m_first; }

    /// Adds a developer's listing to `listing`: a line for each statement, two blanks for each level.
    void Display(std::string& listing, int indent) const;

private:
    /// A block of an if that is being read.
    struct OpenBlock {
        ZBLIfExp* owner; ///< null where the if could not be read
        int end;         ///< the line that closes it
        bool isElse;
    };
    bool parseStatement(const ParseInput& input, int line, std::vector<OpenBlock>& open);
    bool closeBlock(const ParseInput& input, int line, std::vector<OpenBlock>& open);

    void add(SequenceItem& item);

    const SequenceItem* m_first = nullptr;
    SequenceItem* m_last = nullptr;
    int m_statementCount = 0;
    int m_firstLine = 0;
};

/// Adds one line of a listing.
void displayLine(std::string& listing, int indent, std::string_view text);
