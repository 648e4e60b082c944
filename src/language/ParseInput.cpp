// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/ParseInput.h"

#include <utility>

namespace
{

ParseFault faultOf(const LineArray& lines, std::string message, int line, int lastLine,
                   std::string_view where)
{
    ParseFault fault;
    fault.message = std::move(message);
    fault.line = line;
    fault.lastLine = lastLine;
    if (where.data()) {
        const auto from = static_cast<std::size_t>(where.data() - lines[line].data());
        fault.column = lines.columnOf(line, from);
        fault.length = lines.columnOf(line, from + where.size()) - fault.column;
    }
    return fault;
}

} // namespace

bool ParseInput::fail(std::string message, int line, std::string_view where) const
{
    return failLines(std::move(message), line, line, where);
}

bool ParseInput::failLines(std::string message, int line, int lastLine, std::string_view where) const
{
    reporter.parseError(faultOf(lines, std::move(message), line, lastLine, where));
    return false;
}

bool ParseInput::failBlock(std::string message, int line, int lastLine, std::string_view where) const
{
    ParseFault fault = faultOf(lines, std::move(message), line, lastLine, where);
    fault.unmatchedBlock = true;
    reporter.parseError(fault);
    return mended != nullptr;
}

BlockEnd ParseInput::blockEnd(int start) const
{
    return mended ? mended->blockEnd(lines, start) : findBlockEnd(lines, start);
}

int ParseInput::closingLine(int start) const
{
    return mended ? mended->blockEnd(lines, start).line : findClosingLine(lines, start);
}
