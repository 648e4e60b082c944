// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/LineArray.h"
#include "platform/Sum.h"
#include "runtime/RunState.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The sums by which a kept play is known again. Those over a program see what the language sees: comments,
// case and indentation do not count.

/// A sum as 16 hexadecimal digits.
void appendSum(std::string& text, std::uint64_t value);

std::uint64_t programSum(const LineArray& lines);
/// Two letters for each line: enough to find out which lines another program does not have.
std::string lineSums(const LineArray& lines);
/// The lines, in their order, that are not among those whose sums these are; where some of those are only
/// missing, the line that stands in their place.
std::vector<int> changedLines(const LineArray& lines, std::string_view older);

/// The variables that a program names, "counter$score" and the like, in alphabetical order.
std::vector<std::string> variableNames(const Program& program);

/// Letters of a way: A to Z, a to z, 0 to 9, + and /.
bool isWayLetter(char c);

/// The way of a play, one letter a frame: what somebody notices who plays the game. State and sub-state,
/// sprites with their class, tag, place, direction and graphic, hidden or not, background and map, and the
/// variables that the program had when the play was kept. A statement more or a line moved does not change
/// it, a variable more does not either. A letter tells all frames up to its own from any others; one in 64
/// times it does not, and a later one does.
class PlayWay
{
public:
    PlayWay(const Program& program, const std::vector<std::string>& variables);

    /// The letter of the frame that has come to its end.
    char next(const RunState& run);

private:
    void addVariables(const RunState& run);

    struct Variable {
        bool isCounter = false;
        std::size_t slot = 0;
        bool isThere = false; ///< this program has it
    };
    std::vector<Variable> m_variables;
    Sum m_sum;
};
