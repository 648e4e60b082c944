#include "language/ZBLMethodExp.h"

bool ZBLMethodExp::Parse(const ZBLReader& reader, int line)
{
    m_line = line;
    Words words(reader.lines[line]);
    const std::string word(words.next());
    if (word.empty())
        return reader.fail("[Internal error!] The name of the method is not specified in this instruction.",
                           line);
    m_word = findActionWord(word);
    if (!m_word)
        return reader.fail("I don't know of any method named \"" + word + "\"", line);

    const std::string missingObject = "You didn't specify what object to " + word + " in this instruction.";
    switch (m_word->operands) {
    case Operands::None:
        return true;
    case Operands::Sprite:
        return parseSprite(reader, words, missingObject);
    case Operands::SpriteAndValue:
        return parseSprite(reader, words, missingObject) &&
               parseValue(reader, words, "You didn't specify an amount to " + word + " by.", m_value);
    case Operands::SpriteAndPlace:
        m_yz = std::make_unique<std::array<ZBLSimpleExp, 2>>();
        return parseSprite(reader, words,
                           "You didn't specify what object to set the position of in this instruction.") &&
               parseValue(reader, words, "You didn't specify an x value in this instruction.", m_value) &&
               parseValue(reader, words, "You didn't specify a y value in this instruction.", (*m_yz)[0]) &&
               parseValue(reader, words, "You didn't specify a z value in this instruction.", (*m_yz)[1]);
    case Operands::TwoObjects:
        return parseObject(reader, words, missingObject, m_object) &&
               parseObject(reader, words,
                           "You didn't specify what object to rebound against in this instruction.",
                           m_otherObject);
    case Operands::GameAndValue:
        if (words.next() != "game")
            return reader.fail("You have to specify object game in a " + word + " instruction.", line);
        m_object = ZBLObjectExp(ZBLObjectExp::Name::Game);
        return parseValue(reader, words, "You didn't a value in this instruction.", m_value);
    }
    return false;
}

bool ZBLMethodExp::parseObject(const ZBLReader& reader, Words& words, const std::string& missing,
                               ZBLObjectExp& object) const
{
    const std::string_view word = words.next();
    if (word.empty())
        return reader.fail(missing, m_line);
    const auto read = ZBLObjectExp::Parse(word);
    if (!read)
        return reader.fail("When you called the " + std::string(m_word->word) +
                               " method, I expected it to be called on an object, but you called it on \"" +
                               std::string(word) + "\".",
                           m_line);
    object = *read;
    return true;
}

bool ZBLMethodExp::parseSprite(const ZBLReader& reader, Words& words, const std::string& missing)
{
    if (!parseObject(reader, words, missing, m_object))
        return false;
    return m_object.isSprite() ||
           reader.fail("Method " + std::string(m_word->word) + " can only be applied to ME or IT.", m_line);
}

bool ZBLMethodExp::parseValue(const ZBLReader& reader, Words& words, const std::string& missing,
                              ZBLSimpleExp& value) const
{
    const std::string_view word = words.next();
    if (word.empty())
        return reader.fail(missing, m_line);
    return value.Parse(word, reader) ||
           reader.fail("I don't understand the value (" + std::string(word) + ") in this " +
                           std::string(m_word->word) + " instruction.",
                       m_line);
}

std::string ZBLMethodExp::toString() const
{
    std::string text(m_word->word);
    const auto add = [&](std::string_view word) { text.append(" ").append(word); };
    if (m_word->operands != Operands::None)
        add(m_object.toString());
    switch (m_word->operands) {
    case Operands::None:
    case Operands::Sprite:
        break;
    case Operands::SpriteAndPlace:
        add(m_value.toString());
        add(valueY().toString());
        add(valueZ().toString());
        break;
    case Operands::TwoObjects:
        add(m_otherObject.toString());
        break;
    case Operands::SpriteAndValue:
    case Operands::GameAndValue:
        add(m_value.toString());
        break;
    }
    return text;
}
