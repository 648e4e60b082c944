// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBLStatement.h"

/// "set VARIABLE VALUE" and "change VARIABLE AMOUNT".
class ZBLMutateExp final : public ZBLStatement
{
public:
    using Verb = ::Verb;

    explicit ZBLMutateExp(Verb verb)
        : ZBLStatement(Type::Mutate)
        , m_verb(verb)
    {
    }
    bool Parse(const ParseInput& input, int line, Words words);
    std::string toString() const;

    Verb verb() const { return m_verb; }
    const ZBLVarExp& target() const { return m_target; }
    const ZBLSimpleExp& value() const { return m_value; }

private:
    Verb m_verb;
    ZBLVarExp m_target;
    ZBLSimpleExp m_value;
};
