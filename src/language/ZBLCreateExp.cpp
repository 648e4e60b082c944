#include "language/ZBLCreateExp.h"

namespace
{

// What is said when an operand is missing or cannot be read, in the order of the operands.
constexpr std::array<std::string_view, 8> missing = {
    "This create instruction does not contain a class name!",
    "This create instruction doesn't have a tag.",
    "This create instruction doesn't have a sprite graphic.",
    "This create instruction doesn't specify an initial direction.",
    "This create instruction doesn't specify an initial speed.",
    "This create instruction doesn't specify an initial x position.  "
    "(This might mean you forgot a different argument earlier on.)",
    "This create instruction doesn't specify an initial y position.  "
    "(This might mean you forgot a different argument earlier on.)",
    "This create instruction doesn't specify an initial z position.  "
    "(This might mean you forgot a different argument earlier on.)",
};

} // namespace

bool ZBLCreateExp::Parse(const ZBLReader& reader, int line)
{
    m_line = line;
    Words words(reader.lines[line]);
    if (words.next() != "create")
        return reader.fail("[Internal Error!] No create in create instruction.", line);
    for (std::size_t i = 0; i < m_operands.size(); ++i)
        if (!m_operands[i].Parse(words.next(), reader))
            return reader.fail(missing[i], line);
    return true;
}

std::string ZBLCreateExp::toString() const
{
    std::string text = "create";
    for (const ZBLSimpleExp& operand : m_operands)
        text += " " + operand.toString();
    return text;
}
