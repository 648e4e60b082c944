// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBLStatement.h"

/// "if LEFT OPERATOR RIGHT {", the then-statements, "}" or "}else{", the else-statements, "}". The statements
/// of both blocks stand behind it in the sequence that holds it.
class ZBLIfExp final : public ZBLStatement
{
public:
    using Operator = TestOperator;

    ZBLIfExp()
        : ZBLStatement(Type::If)
    {
    }
    /// Reads the line of the if and finds the end of its then-block.
    bool Parse(const ParseInput& input, int line, Words words);
    /// Looks at the line that closes the then-block: finds the end of the else-block where one is opened
    /// there.
    bool ParseElse(const ParseInput& input);
    std::string toString() const;

    const ZBLSimpleExp& left() const { return m_left; }
    Operator op() const { return m_operator; }
    const ZBLSimpleExp& right() const { return m_right; }
    int thenEnd() const { return m_thenEnd; } ///< the line that closes the then-block
    int elseEnd() const { return m_elseEnd; } ///< the line that closes the else-block, 0 where there is none
    bool hasElse() const { return m_elseEnd != 0; }

private:
    bool parseOperator(const ParseInput& input, std::string_view word);

    ZBLSimpleExp m_left;
    ZBLSimpleExp m_right;
    Operator m_operator = Operator::Equal;
    int m_thenEnd = 0;
    int m_elseEnd = 0;
};
