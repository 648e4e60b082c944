// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/ZBLSimpleExp.h"

#include "language/ParseInput.h"
#include "platform/Utf8.h"

bool ZBLSimpleExp::Parse(std::string_view word, const ParseInput& input)
{
    const OperandShape shape(word);
    m_kind = shape.kind;
    switch (shape.kind) {
    case Kind::None:
        break;
    case Kind::Variable:
        if (shape.isComplete) {
            const ZBLVarExp variable = input.variables.variable(shape, input.pool);
            m_type = variable.type;
            m_slot = variable.slot;
            m_text = variable.name;
        }
        return shape.isComplete;
    case Kind::Property:
        parseProperty(shape, input);
        return true;
    case Kind::Random:
        return parseRandom(shape, input);
    case Kind::Literal:
    case Kind::ClassName:
        return parseLiteral(word, input);
    }
    return false;
}

bool ZBLSimpleExp::parseLiteral(std::string_view word, const ParseInput& input)
{
    const auto literal = ZBLValueExp::Parse(word, input.pool);
    if (!literal) {
        input.reporter.beep(); // a text that is not closed
        return false;
    }
    m_type = literal->type;
    if (literal->isCounter())
        m_number = literal->realVal;
    else
        m_text = literal->stringVal;
    return true;
}

void ZBLSimpleExp::parseProperty(const OperandShape& shape, const ParseInput& input)
{
    m_object = *findWord<ObjectWord>(shape.first);
    m_property = findProperty(m_object.properties, shape.second);
    m_keys = {-1, -1};
    m_text = input.pool.intern(shape.second);
    if (m_object.properties == PropertyOwner::Keyboard && m_property == Property::Unknown)
        readKey(shape.second);
}

/// The keyboard's properties are keys: some have names, all others are named by their character.
void ZBLSimpleExp::readKey(std::string_view key)
{
    const auto* const known = findWord<KeyWord>(key);
    if (!known && (key.empty() || firstCharacterLength(key) != key.size()))
        return;
    m_property = Property::Key;
    const auto c = static_cast<unsigned char>(key.front());
    if (known)
        m_keys[0] = known->code;
    else if (key.size() == 1 && c < 128)
        m_keys[0] = c;
    if (!known && key.size() == 1 && c >= 'a' && c <= 'z')
        m_keys[1] = static_cast<std::int16_t>(c - 'a' + 'A'); // the code that the letter's key sends
}

bool ZBLSimpleExp::parseRandom(const OperandShape& shape, const ParseInput& input)
{
    auto* range = input.arena.make<Range>();
    if (!shape.hasComma || !range->low.Parse(shape.first, input) || !shape.isComplete ||
        !range->high.Parse(shape.second, input))
        return false;
    m_range = range;
    return true;
}

const ZBLSimpleExp& ZBLSimpleExp::low() const
{
    return m_range->low;
}

const ZBLSimpleExp& ZBLSimpleExp::high() const
{
    return m_range->high;
}

std::string ZBLSimpleExp::toString() const
{
    switch (m_kind) {
    case Kind::Variable:
        return variable().toString();
    case Kind::Literal:
    case Kind::ClassName:
        return value().toString().value_or(std::string());
    case Kind::Property:
        return std::string(object().getName()) + "." + *propertyName();
    case Kind::Random:
        return "random(" + low().toString() + "," + high().toString() + ")";
    case Kind::None:
        break;
    }
    return {};
}
