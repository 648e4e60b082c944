// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/OperandShape.h"

#include "language/Vocabulary.h"

namespace
{

void cutRandom(OperandShape& shape, std::string_view bounds)
{
    const std::size_t comma = bounds.find(',');
    shape.hasComma = comma != std::string_view::npos;
    shape.first = bounds.substr(0, comma);
    if (!shape.hasComma)
        return;
    const std::size_t close = bounds.find(')', comma);
    shape.isComplete = close != std::string_view::npos;
    shape.second = bounds.substr(comma + 1, shape.isComplete ? close - comma - 1 : close);
}

} // namespace

OperandShape::OperandShape(std::string_view word)
    : first(word)
{
    if (word.empty() || cutNamed(word))
        return;
    const bool isText = word.front() == '"';
    kind = isText || ZBLValueExp::startsNumber(word) ? OperandKind::Literal : OperandKind::ClassName;
    isComplete = !isText || (word.size() >= 2 && word.back() == '"');
}

/// A variable, a property or a range: what stands behind their letters tells them apart. False where the word
/// is none of them.
bool OperandShape::cutNamed(std::string_view word)
{
    const auto isLetter = [](char c) { return c >= 'a' && c <= 'z'; };
    std::size_t letters = 0;
    while (letters < word.size() && isLetter(word[letters]))
        ++letters;
    if (letters == 0 || letters == word.size())
        return false;
    const std::string_view withSign = word.substr(0, letters + 1);
    const std::string_view behind = word.substr(letters + 1);
    const auto cut = [&](OperandKind which, std::string_view name) {
        kind = which;
        first = name;
        second = behind;
        return true;
    };
    switch (word[letters]) {
    case '$':
        isComplete = !behind.empty();
        return findWord<VariablePrefix>(withSign) && cut(OperandKind::Variable, withSign);
    case '.':
        isComplete = true;
        return findWord<ObjectWord>(word.substr(0, letters)) &&
               cut(OperandKind::Property, word.substr(0, letters));
    case '(':
        if (!findWord<RandomWord>(withSign))
            return false;
        kind = OperandKind::Random;
        cutRandom(*this, behind);
        return true;
    default:
        return false;
    }
}
