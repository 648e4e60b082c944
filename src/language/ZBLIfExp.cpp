#include "language/ZBLIfExp.h"

#include <algorithm>
#include <array>

namespace
{

constexpr std::array<std::string_view, 6> operators = {"=", "!=", "<",
                                                       ">", "<=", ">="}; // in the order of Operator

} // namespace

bool ZBLIfExp::Parse(const ZBLReader& reader, int line)
{
    m_line = line;
    Words words(reader.lines[line]);
    if (words.next() != "if")
        return reader.fail("[Internal error!] This if statement doesn't begin with if!", line);

    const std::string left(words.next());
    if (left.empty())
        return reader.fail("I can't find the first part of the test in this if statement!", line);
    if (!m_left.Parse(left, reader))
        return reader.fail(
            "I don't understand the first part of the test (" + left + ") in this if statement.", line);

    const std::string op(words.next());
    if (op.empty())
        return reader.fail("You didn't specify an operator (e.g. =, !=, >, etc.) in this if statement.",
                           line);
    const auto known = std::ranges::find(operators, op);
    if (known == operators.end()) {
        const std::string start = "I don't understand the operator (" + op + ") in this if statement";
        const bool glued = std::string_view("><=!").find(op.front()) != std::string_view::npos;
        return reader.fail(start + (glued ? "-- are you missing a space after the operator?" : "."), line);
    }
    m_operator = static_cast<Operator>(known - operators.begin());

    const std::string right(words.next());
    if (right.empty())
        return reader.fail("I can't find the second part of the test in this if statement!", line);
    if (!m_right.Parse(right, reader))
        return reader.fail(
            "I don't understand the second part of the test (" + right + ") in this if statement!", line);

    const BlockEnd end = findBlockEnd(reader.lines, line);
    if (end.header != "if")
        return reader.fail("[Internal error!] This if statement doesn't begin correctly.", line);
    if (end.line == BlockEnd::noBlock)
        return reader.fail("This if statement doesn't start a block (is the brace missing?)", line);
    if (end.line == BlockEnd::none)
        return reader.fail("I can't find the end of this if statement!  You probably have unmatched braces.",
                           line);
    m_thenEnd = end.line;
    return true;
}

bool ZBLIfExp::ParseElse(const ZBLReader& reader)
{
    if (findBlockEnd(reader.lines, m_line).footer != "else")
        return true;
    const BlockEnd end = findBlockEnd(reader.lines, m_thenEnd);
    if (end.header != "else")
        return reader.fail("[Internal error!] This if statement doesn't begin its else clause correctly.",
                           m_thenEnd);
    if (end.line == BlockEnd::noBlock)
        return reader.fail("This else clause doesn't start a block (is the brace missing?)", m_thenEnd);
    if (end.line == BlockEnd::none)
        return reader.fail("I can't find the end of this else clause!  You probably have unmatched braces.",
                           m_thenEnd);
    m_elseEnd = end.line;
    return true;
}

std::string_view ZBLIfExp::operatorText() const
{
    return operators[static_cast<std::size_t>(m_operator)];
}

std::string ZBLIfExp::toString() const
{
    return "if " + m_left.toString() + " " + std::string(operatorText()) + " " + m_right.toString() + " {";
}
