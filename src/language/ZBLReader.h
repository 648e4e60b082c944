#pragma once

#include "language/VariableTable.h"
#include "language/ZBParse.h"

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
