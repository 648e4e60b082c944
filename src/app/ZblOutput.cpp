// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "app/ZblOutput.h"

#include "headless/HeadlessPlayer.h"
#include "platform/DiskFile.h"

#include <cstdio>
#include <system_error>

int complain(const std::string& text)
{
    std::fflush(stdout);
    std::fprintf(stderr, "zbl: %s\n", text.c_str());
    return Unusable;
}

void printLine(std::string_view line)
{
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fputc('\n', stdout);
}

int finish(int status)
{
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0 ? status
                                                                : complain("the output could not be written");
}

bool writeOutput(const std::filesystem::path& file, std::string_view bytes)
{
    // A device or a pipe would be replaced by a plain file.
    std::error_code trouble;
    const auto status = std::filesystem::status(file, trouble);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
        return false;
    return writeFileWhole(file, bytes);
}

void PrintingReporter::parseError(const ParseFault& fault)
{
    writeMessage(printLine, "? ", reportText(fault, m_lines));
}
