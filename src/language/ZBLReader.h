#pragma once

#include "language/TextPool.h"
#include "language/ZBLValueExp.h"
#include "language/ZBParse.h"

#include <unordered_map>
#include <vector>

/// The variables that a program names, each with its slot among those of its kind.
class VariableTable
{
public:
    /// Reads "counter$name" or "text$name"; nothing for any other word.
    std::optional<ZBLVarExp> Parse(std::string_view word, TextPool& pool);

    const std::vector<Text>& counters() const { return m_counters.names; }
    const std::vector<Text>& texts() const { return m_texts.names; }

private:
    struct Slots {
        std::vector<Text> names;
        std::unordered_map<std::string_view, std::int32_t> slotOf;
        std::int32_t slot(std::string_view name, TextPool& pool);
    };
    Slots m_counters;
    Slots m_texts;
};

/// What every Parse is handed: the lines, where to report, and what the program has named so far.
struct ZBLReader {
    const LineArray& lines;
    ParseReporter& reporter;
    TextPool& pool;
    VariableTable& variables;

    /// Reports a parse error about one line or a range; always false.
    bool fail(std::string_view message, int line, int endLine = -1) const
    {
        return showParseError(reporter, message, lines, line, endLine);
    }
};

/// The words of one line, one after the other.
class Words
{
public:
    explicit Words(std::string_view line)
        : m_line(line)
    {
    }
    std::string_view next() { return nextWord(m_line, m_position); }

private:
    std::string_view m_line;
    std::size_t m_position = 0;
};
