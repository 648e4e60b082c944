// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ParseInput.h"
#include "language/Vocabulary.h"
#include "language/Words.h"
#include "language/ZBLSimpleExp.h"

#include <cstdint>
#include <string>

/// One statement of a program. After Parse it never changes; what changes in a run lives in the context.
class ZBLStatement
{
public:
    using Type = StatementType;

    virtual ~ZBLStatement() = default;
    ZBLStatement(const ZBLStatement&) = delete;
    ZBLStatement& operator=(const ZBLStatement&) = delete;

    /// Reads the statement on line `line`, of which `words` are those behind the statement's own. False where
    /// they make no such statement; that has then been reported. An if reads only its own line: its blocks
    /// are read by the sequence that holds it.
    virtual bool Parse(const ParseInput& input, int line, Words words) = 0;
    /// The statement as a line of the listing.
    virtual std::string toString() const = 0;

    Type type() const { return m_type; }
    int line() const { return m_line; }

protected:
    explicit ZBLStatement(Type type)
        : m_type(type)
    {
    }

    int m_line = 0;

private:
    Type m_type;
};
