// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ParseInput.h"
#include "language/Vocabulary.h"
#include "language/Words.h"
#include "language/ZBLSimpleExp.h"

#include <cstdint>
#include <string>

/// One step through a sequence of statements, with the way to the next. A program may have a million of them,
/// so they are small: no table of virtual functions, the kind tells the class.
class SequenceItem
{
public:
    /// A statement, or a place between those of an if.
    enum class Role : std::uint8_t { Statement, Else, EndIf };

    explicit SequenceItem(Role role)
        : m_role(role)
    {
    }
    SequenceItem(const SequenceItem&) = delete;
    SequenceItem& operator=(const SequenceItem&) = delete;

    Role role() const { return m_role; }
    const SequenceItem* next() const { return m_next; }
    void append(const SequenceItem& next) { m_next = &next; }

protected:
    ~SequenceItem() = default;

private:
    const SequenceItem* m_next = nullptr;

protected:
    int m_line = 0; ///< of a statement

private:
    Role m_role;
};

/// One statement of a program. After its Parse it never changes; what changes in a run lives in the context.
///
/// Each class has a `bool Parse(const ParseInput& input, int line, Words words)`, which reads the statement
/// on line `line`, of which `words` are those behind the statement's own. False where they make no such
/// statement; that has then been reported. An if reads only its own line: its blocks are read by the sequence
/// that holds it.
class ZBLStatement : public SequenceItem
{
public:
    using Type = StatementType;

    Type type() const { return m_type; }
    int line() const { return m_line; }
    /// The statement as a line of the listing.
    std::string toString() const;

protected:
    explicit ZBLStatement(Type type)
        : SequenceItem(Role::Statement)
        , m_type(type)
    {
    }
    ~ZBLStatement() = default;

private:
    Type m_type;
};
static_assert(sizeof(ZBLStatement) <= 16);
