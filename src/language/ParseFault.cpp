// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/ParseFault.h"

std::string reportText(const ParseFault& fault, const LineArray& lines)
{
    std::string text = fault.message;
    text += "\r\n\r\n   ";
    text += lines[fault.line];
    text += "\r\n\r\n";
    text += fault.lastLine == fault.line
                ? "(line " + std::to_string(fault.line) + ")"
                : "(lines " + std::to_string(fault.line) + "..." + std::to_string(fault.lastLine) + ")";
    return text;
}
