// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/LineArray.h"

#include <cstddef>
#include <string>

/// What is wrong with a program, and where. Lines and columns count from 1. Columns are bytes of the UTF-8
/// text as it was written, not of its lower-cased form.
struct ParseFault {
    std::string message;
    int line = 0;
    int lastLine = 0; ///< equals `line` unless a whole block is meant
    /// Where on `line` to look; 0 where the whole line is meant.
    std::size_t column = 0;
    /// 0 where something is missing at the column.
    std::size_t length = 0;
    /// A block and its end do not match, so what else is wrong can only be guessed.
    bool unmatchedBlock = false;

    bool operator==(const ParseFault&) const = default;
};

/// What the parse-error window shows: the message, the line, and where it is.
std::string reportText(const ParseFault& fault, const LineArray& lines);

/// Whoever is told what a parser finds wrong.
class ParseReporter
{
public:
    virtual ~ParseReporter() = default;
    virtual void parseError(const ParseFault& fault) = 0;
    virtual void beep() = 0;
};
