// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/ZBLIfExp.h"

bool ZBLIfExp::Parse(const ParseInput& input, int line, Words words)
{
    m_line = line;
    const std::string_view left = words.next();
    if (left.empty())
        return input.fail("I can't find the first part of the test in this if statement!", line, left);
    if (!m_left.Parse(left, input))
        return input.fail("I don't understand the first part of the test (" + std::string(left) +
                              ") in this if statement.",
                          line, left);
    if (!parseOperator(input, words.next()))
        return false;
    const std::string_view right = words.next();
    if (right.empty())
        return input.fail("I can't find the second part of the test in this if statement!", line, right);
    if (!m_right.Parse(right, input))
        return input.fail("I don't understand the second part of the test (" + std::string(right) +
                              ") in this if statement!",
                          line, right);

    m_thenEnd = input.closingLine(line);
    if (m_thenEnd == BlockEnd::noBlock)
        return input.fail("This if statement doesn't start a block (is the brace missing?)", line,
                          endOf(input.lines[line]));
    return m_thenEnd != BlockEnd::none ||
           input.failBlock("I can't find the end of this if statement!  You probably have unmatched braces.",
                           line, line);
}

bool ZBLIfExp::parseOperator(const ParseInput& input, std::string_view word)
{
    if (word.empty())
        return input.fail("You didn't specify an operator (e.g. =, !=, >, etc.) in this if statement.",
                          m_line, word);
    if (const auto* known = findWord<TestOperator>(word)) {
        m_operator = *known;
        return true;
    }
    const bool isGlued = std::string_view("><=!").find(word.front()) != std::string_view::npos;
    return input.fail("I don't understand the operator (" + std::string(word) + ") in this if statement" +
                          (isGlued ? "-- are you missing a space after the operator?" : "."),
                      m_line, word);
}

bool ZBLIfExp::ParseElse(const ParseInput& input)
{
    const auto* footer = findWord<Block>(input.blockEnd(m_line).footer);
    if (!footer || *footer != Block::Else)
        return true;
    const int end = input.closingLine(m_thenEnd);
    if (end == BlockEnd::noBlock)
        return input.fail("This else clause doesn't start a block (is the brace missing?)", m_thenEnd,
                          endOf(input.lines[m_thenEnd]));
    if (end == BlockEnd::none)
        return input.failBlock(
            "I can't find the end of this else clause!  You probably have unmatched braces.", m_thenEnd,
            m_thenEnd);
    m_elseEnd = end;
    return true;
}

std::string ZBLIfExp::toString() const
{
    return "if " + m_left.toString() + " " + std::string(wordFor(m_operator)) + " " + m_right.toString() +
           " {";
}
