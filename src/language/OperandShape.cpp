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
    if (word.empty())
        return;
    const bool mayBeNamed = word.front() >= 'a' && word.front() <= 'z'; // as all words of the language
    if (mayBeNamed && cutNamed(word))
        return;
    const bool isText = word.front() == '"';
    kind = isText || ZBLValueExp::startsNumber(word) ? OperandKind::Literal : OperandKind::ClassName;
    isComplete = !isText || (word.size() >= 2 && word.back() == '"');
}

/// A variable, a property or a range. False where the word is none of them.
bool OperandShape::cutNamed(std::string_view word)
{
    /// What stands up to a character, with it; nothing of a word without it.
    const auto upTo = [&](char c) { return word.substr(0, word.find(c) + 1); };
    const auto cut = [&](OperandKind which, std::size_t length, std::size_t separator) {
        kind = which;
        first = word.substr(0, length);
        second = word.substr(length + separator);
    };
    if (findWord<VariablePrefix>(upTo('$'))) {
        cut(OperandKind::Variable, upTo('$').size(), 0);
        isComplete = !second.empty();
        return true;
    }
    const std::size_t dot = word.find('.');
    if (dot != std::string_view::npos && findWord<ObjectWord>(word.substr(0, dot))) {
        cut(OperandKind::Property, dot, 1);
        isComplete = true;
        return true;
    }
    if (findWord<RandomWord>(upTo('('))) {
        kind = OperandKind::Random;
        cutRandom(*this, word.substr(upTo('(').size()));
        return true;
    }
    return false;
}
