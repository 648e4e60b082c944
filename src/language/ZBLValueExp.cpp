#include "language/ZBLValueExp.h"

#include "platform/NumberText.h"
#include "platform/TextFile.h"

std::optional<ZBLValueExp> ZBLValueExp::Parse(std::string_view word, TextPool& pool)
{
    if (word.empty())
        return std::nullopt;
    const char first = word.front();
    if (first == '+' || first == '-' || first == '.' || (first >= '0' && first <= '9'))
        return counter(leadingNumberToNinePlaces(word));
    if (first != '"')
        return className(pool.intern(word));
    if (word.size() < 2 || word.back() != '"')
        return std::nullopt;
    return text(pool.intern(word.substr(1, word.size() - 2)));
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
    // Counted in characters, not in bytes.
    std::size_t length = 0;
    for (const char c : line)
        length += (static_cast<unsigned char>(c) & 0xc0U) != 0x80U ? 1U : 0U;
    line.append(length < 19 ? 19 - length : 0, ' ');
    line += '=';
    line += value.toString().value_or(std::string());
    return line;
}
