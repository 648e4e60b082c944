// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/ZBLValueExp.h"

#include "platform/NumberText.h"
#include "platform/TextFile.h"
#include "platform/Utf8.h"

std::optional<ZBLValueExp> ZBLValueExp::Parse(std::string_view word, TextPool& pool)
{
    if (word.empty())
        return std::nullopt;
    if (startsNumber(word))
        return counter(leadingNumberToNinePlaces(word));
    if (word.front() != '"')
        return className(pool.intern(word));
    if (word.size() < 2 || word.back() != '"')
        return std::nullopt;
    return text(pool.intern(word.substr(1, word.size() - 2)));
}

bool ZBLValueExp::startsNumber(std::string_view word)
{
    const char first = word.empty() ? ' ' : word.front();
    return first == '+' || first == '-' || first == '.' || isDigit(first);
}

std::optional<std::string> ZBLValueExp::toString() const
{
    if (type == ValueKind::None)
        return std::nullopt;
    std::string text;
    appendTo(text);
    return text;
}

void ZBLValueExp::appendTo(std::string& out) const
{
    switch (type) {
    case ValueKind::Counter:
        appendGeneralNumber(out, realVal);
        break;
    case ValueKind::Text:
        out.append("\"").append(*stringVal).append("\"");
        break;
    case ValueKind::ClassName:
        appendUpperCase(out, *stringVal);
        break;
    case ValueKind::None:
        break;
    }
}

std::optional<std::string> ZBLValueExp::toBasicString() const
{
    if (type == ValueKind::Text)
        return *stringVal;
    if (type == ValueKind::ClassName)
        return upperCase(*stringVal);
    return std::nullopt;
}

std::string ZBLVarExp::toString() const
{
    return (type == ValueKind::Counter ? "counter$" : "text$") + *name;
}

std::string ZBVariable::toString() const
{
    std::string line = name.toString();
    const std::size_t length = characterCount(line);
    line.append(length < 19 ? 19 - length : 0, ' ');
    line += '=';
    line += value.toString().value_or(std::string());
    return line;
}
