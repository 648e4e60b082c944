// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

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

bool ZBLCreateExp::Parse(const ParseInput& input, int line, Words words)
{
    m_line = line;
    for (std::size_t i = 0; i < m_operands.size(); ++i) {
        const std::string_view word = words.next();
        if (!m_operands[i].Parse(word, input))
            return input.fail(std::string(missing[i]), line, word);
    }
    return true;
}

std::string ZBLCreateExp::toString() const
{
    std::string text = "create";
    for (const ZBLSimpleExp& operand : m_operands)
        text += " " + operand.toString();
    return text;
}
