// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/ZBLSimpleExp.h"

#include "language/ParseInput.h"
#include "platform/Utf8.h"

#include <utility>

bool ZBLSimpleExp::Parse(std::string_view word, const ParseInput& input)
{
    const OperandShape shape(word);
    m_kind = shape.kind;
    switch (shape.kind) {
    case Kind::None:
        break;
    case Kind::Variable:
        if (shape.isComplete)
            m_content = input.variables.variable(shape, input.pool);
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
    if (literal)
        m_content = *literal;
    else
        input.reporter.beep(); // a text that is not closed
    return literal.has_value();
}

void ZBLSimpleExp::parseProperty(const OperandShape& shape, const ParseInput& input)
{
    PropertyOfObject read;
    read.object = *ZBLObjectExp::Parse(shape.first);
    read.property = findProperty(read.object.properties(), shape.second);
    read.name = input.pool.intern(shape.second);
    if (read.object.properties() == PropertyOwner::Keyboard && read.property == Property::Unknown)
        read.readKey(shape.second);
    m_content = read;
}

/// The keyboard's properties are keys: some have names, all others are named by their character.
void ZBLSimpleExp::PropertyOfObject::readKey(std::string_view key)
{
    const auto* const known = findWord<KeyWord>(key);
    if (!known && (key.empty() || firstCharacterLength(key) != key.size()))
        return;
    property = Property::Key;
    const auto c = static_cast<unsigned char>(key.front());
    if (known)
        keys[0] = known->code;
    else if (key.size() == 1 && c < 128)
        keys[0] = c;
    if (!known && key.size() == 1 && c >= 'a' && c <= 'z')
        keys[1] = static_cast<std::int16_t>(c - 'a' + 'A'); // the code that the letter's key sends
}

bool ZBLSimpleExp::parseRandom(const OperandShape& shape, const ParseInput& input)
{
    auto range = std::make_shared<Range>();
    if (!shape.hasComma || !range->low.Parse(shape.first, input) || !shape.isComplete ||
        !range->high.Parse(shape.second, input))
        return false;
    m_content = std::move(range);
    return true;
}

const ZBLSimpleExp& ZBLSimpleExp::low() const
{
    return (*std::get_if<std::shared_ptr<const Range>>(&m_content))->low;
}

const ZBLSimpleExp& ZBLSimpleExp::high() const
{
    return (*std::get_if<std::shared_ptr<const Range>>(&m_content))->high;
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
