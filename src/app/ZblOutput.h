// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/LineArray.h"
#include "language/ParseFault.h"

#include <filesystem>
#include <string>
#include <string_view>

// What zbl writes, and its exit status.

enum ExitStatus { Fine = 0, ParseFailed = 1, PlayDiffers = 1, RunFailed = 2, Unusable = 3 };

/// Says in one line on standard error why zbl cannot do what it is asked for.
int complain(const std::string& text);

void printLine(std::string_view line);

/// Output that did not get through (a full disk, say) must not look like success.
int finish(int status);

/// Replaces a plain file whole or not at all. False where that failed.
[[nodiscard]] bool writeOutput(const std::filesystem::path& file, std::string_view bytes);

class PrintingReporter : public ParseReporter
{
public:
    explicit PrintingReporter(const LineArray& lines)
        : m_lines(lines)
    {
    }
    void parseError(const ParseFault& fault) override;
    void beep() override {}

private:
    const LineArray& m_lines;
};
