#pragma once

#include "language/LineArray.h"

#include <string_view>

/// Where the parser puts what it finds wrong. It is told once per parse.
class ParseReporter
{
public:
    virtual ~ParseReporter() = default;
    /// `report` is the whole text for the parse-error window, `line` the line it is about.
    virtual void parseError(std::string_view report, int line) = 0;
    virtual void beep() = 0;
};

/// What the first word of a block's two lines say; both point into the lines.
struct BlockEnd {
    static constexpr int none = -1;    ///< no line closes the block
    static constexpr int noBlock = -2; ///< the start line does not open a block
    int line = none;                   ///< the closing line, or one of the above
    std::string_view header;
    std::string_view footer;
};

/// Matches the block that is opened on line `start`.
BlockEnd findBlockEnd(const LineArray& lines, int start);
/// The first line numbered `from` or later that opens a block, or -1.
int findNextBlock(const LineArray& lines, int from);
bool startsWith(std::string_view text, std::string_view prefix);
/// The next word at or after `position` (counted from 0), which moves behind it. Words are separated by
/// braces, tabs, line ends and spaces; an empty word means that there is none left.
std::string_view nextWord(std::string_view text, std::size_t& position);

/// Composes a parse error about line `line`, or about the lines up to `endLine` where that is above 0, and
/// hands it to the reporter. Always false, so that a parser can return it.
bool showParseError(ParseReporter& reporter, std::string_view message, const LineArray& lines, int line,
                    int endLine = -1);
