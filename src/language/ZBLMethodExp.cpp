// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/ZBLMethodExp.h"

#include <array>
#include <utility>

namespace
{
constexpr std::string_view missingObject = "You didn't specify what object to % in this instruction.";
}

bool ZBLMethodExp::Parse(const ParseInput& input, int line, Words words)
{
    m_line = line;
    switch (operands()) {
    case Operands::None:
        return true;
    case Operands::Sprite:
        return parseSprite(input, words.next(), missingObject);
    case Operands::SpriteAndValue:
        return parseSprite(input, words.next(), missingObject) &&
               parseValue(input, words.next(), "You didn't specify an amount to % by.");
    case Operands::SpriteAndPlace:
        return parsePlace(input, words);
    case Operands::TwoObjects:
        return parseObject(input, words.next(), missingObject, m_object) &&
               parseObject(input, words.next(),
                           "You didn't specify what object to rebound against in this instruction.",
                           m_otherObject);
    case Operands::GameAndValue:
        return parseGame(input, words);
    }
    return false;
}

bool ZBLMethodExp::parsePlace(const ParseInput& input, Words& words)
{
    auto& values = *input.arena.make<std::array<ZBLSimpleExp, 3>>();
    m_values = values.data();
    return parseSprite(input, words.next(),
                       "You didn't specify what object to set the position of in this instruction.") &&
           parseValue(input, words.next(), "You didn't specify an x value in this instruction.", values[0]) &&
           parseValue(input, words.next(), "You didn't specify a y value in this instruction.", values[1]) &&
           parseValue(input, words.next(), "You didn't specify a z value in this instruction.", values[2]);
}

bool ZBLMethodExp::parseGame(const ParseInput& input, Words& words)
{
    const std::string_view word = words.next();
    const auto* object = findWord<ObjectWord>(word);
    if (!object || object->name != ObjectName::Game)
        return input.fail("You have to specify object game in a " + std::string(methodName()) +
                              " instruction.",
                          m_line, word);
    m_object = ZBLObjectExp(*object);
    return parseValue(input, words.next(), "You didn't a value in this instruction.");
}

bool ZBLMethodExp::parseObject(const ParseInput& input, std::string_view word, std::string_view missing,
                               ZBLObjectExp& object) const
{
    if (word.empty())
        return failMissing(input, word, missing);
    const auto read = ZBLObjectExp::Parse(word);
    if (!read)
        return input.fail("When you called the " + std::string(methodName()) +
                              " method, I expected it to be called on an object, but you called it on \"" +
                              std::string(word) + "\".",
                          m_line, word);
    object = *read;
    return true;
}

bool ZBLMethodExp::parseSprite(const ParseInput& input, std::string_view word, std::string_view missing)
{
    if (!parseObject(input, word, missing, m_object))
        return false;
    return m_object.isSprite() ||
           input.fail("Method " + std::string(methodName()) + " can only be applied to ME or IT.", m_line,
                      word);
}

bool ZBLMethodExp::parseValue(const ParseInput& input, std::string_view word, std::string_view missing,
                              ZBLSimpleExp& value) const
{
    if (word.empty())
        return failMissing(input, word, missing);
    return value.Parse(word, input) ||
           input.fail("I don't understand the value (" + std::string(word) + ") in this " +
                          std::string(methodName()) + " instruction.",
                      m_line, word);
}

bool ZBLMethodExp::parseValue(const ParseInput& input, std::string_view word, std::string_view missing)
{
    auto* value = input.arena.make<ZBLSimpleExp>();
    m_values = value;
    return parseValue(input, word, missing, *value);
}

bool ZBLMethodExp::failMissing(const ParseInput& input, std::string_view place,
                               std::string_view missing) const
{
    std::string message(missing);
    const std::size_t gap = message.find('%');
    if (gap != std::string::npos)
        message.replace(gap, 1, methodName());
    return input.fail(std::move(message), m_line, place);
}

std::string ZBLMethodExp::toString() const
{
    std::string text(methodName());
    const auto add = [&](std::string_view word) { text.append(" ").append(word); };
    if (operands() != Operands::None)
        add(m_object.toString());
    switch (operands()) {
    case Operands::None:
    case Operands::Sprite:
        break;
    case Operands::SpriteAndPlace:
        add(value().toString());
        add(valueY().toString());
        add(valueZ().toString());
        break;
    case Operands::TwoObjects:
        add(m_otherObject.toString());
        break;
    case Operands::SpriteAndValue:
    case Operands::GameAndValue:
        add(value().toString());
        break;
    }
    return text;
}
