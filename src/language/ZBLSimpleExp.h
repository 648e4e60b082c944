// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/OperandShape.h"
#include "language/ZBLObjectExp.h"
#include "language/ZBLValueExp.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

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
    const ZBLVarExp& variable() const { return *std::get_if<ZBLVarExp>(&m_content); }
    const ZBLValueExp& value() const { return *std::get_if<ZBLValueExp>(&m_content); }
    const ZBLObjectExp& object() const { return ofObject().object; }
    Property property() const { return ofObject().property; }
    Text propertyName() const { return ofObject().name; }
    /// Property Key: the key's code, and a second one that counts as well; -1 for none.
    std::array<int, 2> keyCodes() const { return {ofObject().keys[0], ofObject().keys[1]}; }
    const ZBLSimpleExp& low() const;
    const ZBLSimpleExp& high() const;

private:
    struct PropertyOfObject {
        ZBLObjectExp object;
        Property property = Property::Unknown;
        std::array<std::int16_t, 2> keys = {-1, -1};
        Text name = nullptr;

        void readKey(std::string_view key);
    };
    struct Range;

    bool parseLiteral(std::string_view word, const ParseInput& input);
    bool parseRandom(const OperandShape& shape, const ParseInput& input);
    void parseProperty(const OperandShape& shape, const ParseInput& input);
    const PropertyOfObject& ofObject() const { return *std::get_if<PropertyOfObject>(&m_content); }

    Kind m_kind = Kind::None;
    std::variant<std::monostate, ZBLVarExp, ZBLValueExp, PropertyOfObject, std::shared_ptr<const Range>>
        m_content;
};

struct ZBLSimpleExp::Range {
    ZBLSimpleExp low;
    ZBLSimpleExp high;
};
