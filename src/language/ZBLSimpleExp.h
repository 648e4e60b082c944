// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/OperandShape.h"
#include "language/ZBLObjectExp.h"
#include "language/ZBLValueExp.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

struct ParseInput;

/// An operand of a statement: one word, read once, evaluated each time that its statement runs.
class ZBLSimpleExp
{
public:
    using Kind = OperandKind;

    /// Reads the word. Reports nothing (an unclosed text beeps): the statement words the message.
    bool Parse(std::string_view word, const ParseInput& input);
    /// The operand as written: a number, a text between quotes, a class name in upper case, "me.x",
    /// "random(1,6)".
    std::string toString() const;

    Kind kind() const { return m_kind; }
    // Each of these asks for an operand of its kind.
    ZBLVarExp variable() const { return {m_type, m_slot, m_text}; }
    ZBLValueExp value() const
    {
        return m_type == ValueKind::Counter ? ZBLValueExp::counter(m_number) : ZBLValueExp{m_type, 0, m_text};
    }
    ZBLObjectExp object() const { return ZBLObjectExp(m_object); }
    Property property() const { return m_property; }
    Text propertyName() const { return m_text; }
    /// Property Key: the key's code, and a second one that counts as well; -1 for none.
    std::array<int, 2> keyCodes() const { return {m_keys[0], m_keys[1]}; }
    const ZBLSimpleExp& low() const;
    const ZBLSimpleExp& high() const;

private:
    struct Range;

    bool parseLiteral(std::string_view word, const ParseInput& input);
    bool parseRandom(const OperandShape& shape, const ParseInput& input);
    void parseProperty(const OperandShape& shape, const ParseInput& input);
    void readKey(std::string_view key);

    // Programs consist of these, so each member stands for what the operand's kind needs there.
    Kind m_kind = Kind::None;
    union {
        ValueKind m_type = ValueKind::None; ///< of a variable or literal
        Property m_property;
    };
    ObjectWord m_object; ///< of a property
    union {
        std::int32_t m_slot = -1;           ///< of a variable
        std::array<std::int16_t, 2> m_keys; ///< of a property
    };
    union {
        Text m_text = nullptr; ///< the name of a variable or property, the text or class name of a literal
        double m_number;       ///< of a literal
        const Range* m_range;
    };
};
static_assert(sizeof(ZBLSimpleExp) <= 16);

struct ZBLSimpleExp::Range {
    ZBLSimpleExp low;
    ZBLSimpleExp high;
};
