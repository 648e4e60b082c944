// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/ZBLMutateExp.h"

bool ZBLMutateExp::Parse(const ParseInput& input, int line, Words words)
{
    m_line = line;
    const std::string verb(wordFor(m_verb));
    const std::string_view target = words.next();
    if (target.empty())
        return input.fail("You didn't specify a variable to " + verb + " in this statement.", line, target);
    const auto variable = input.variables.Parse(target, input.pool);
    if (!variable)
        return input.fail("I don't understand the variable name (" + std::string(target) + ") in this " +
                              verb + " statement.",
                          line, target);
    m_target = *variable;

    const std::string_view value = words.next();
    if (value.empty())
        return input.fail("You didn't specify a value in this " + verb + " statement.", line, value);
    return m_value.Parse(value, input) || input.fail("I don't understand the value (" + std::string(value) +
                                                         ") in this " + verb + " statement.",
                                                     line, value);
}

std::string ZBLMutateExp::toString() const
{
    return std::string(wordFor(m_verb)) + " " + m_target.toString() + " " + m_value.toString();
}
