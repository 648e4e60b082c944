// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/NumberText.h"
#include "support/ProgramFile.h"
#include "support/TestGame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

// Plays every program of tests/programs and looks for what its comments expect.

namespace
{

namespace fs = std::filesystem;

const fs::path programsFolder = fs::path(ZB_SOURCE_DIR) / "tests" / "programs";

std::vector<std::string> allPrograms()
{
    std::vector<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(programsFolder))
        if (entry.path().extension() == ".zbl")
            names.push_back(fs::relative(entry.path(), programsFolder).string());
    std::ranges::sort(names);
    return names;
}

/// The messages among the lines of output, as "? text (line 3)".
std::vector<std::string> messagesIn(const std::vector<std::string>& output)
{
    std::vector<std::string> messages;
    for (std::size_t i = 0; i < output.size(); ++i) {
        if (!output[i].starts_with("! ") && !output[i].starts_with("? "))
            continue;
        std::string message(trimBlanks(output[i]));
        i += output[i].front() == '?' ? 4U : 1U; // between them a parse message shows the line itself
        message += " " + output.at(i).substr(2);
        messages.push_back(std::move(message));
    }
    return messages;
}

std::string location(const ProgramFile::Expectation& expectation)
{
    const std::string line = std::to_string(expectation.line);
    return expectation.lastLine == 0 ? " (line " + line + ")"
                                     : " (lines " + line + "..." + std::to_string(expectation.lastLine) + ")";
}

/// Whether a trace line carries the number of a program line.
bool carriesNumber(std::string_view traceLine, int number)
{
    std::string padded;
    appendPadded(padded, number, 4);
    return traceLine.starts_with(padded + " ");
}

void checkProgram(const ProgramFile& program)
{
    const auto& wanted = program.expectations;
    const auto hasMark = [&](std::string_view marks) {
        return std::ranges::any_of(wanted, [&](const auto& e) { return marks.find(e.mark) != marks.npos; });
    };
    HeadlessOptions options = program.options;
    if (hasMark(">-"))
        options.trace = options.boxes.code = true;

    TestGame game;
    game.play(program.text, options, program.keys);
    TestGame plain;
    plain.context().statements().usePlainSteps();
    plain.play(program.text, options, program.keys);
    EXPECT_EQ(plain.output, game.output) << "the plain steps do something else";

    std::vector<std::string> messages;
    std::vector<std::string> lines;
    for (const auto& expectation : wanted) {
        const auto isItsLine = [&](const std::string& line) { return carriesNumber(line, expectation.line); };
        switch (expectation.mark) {
        case '>':
            EXPECT_TRUE(std::ranges::any_of(game.output,
                                            [&](const std::string& line) {
                                                return isItsLine(line) &&
                                                       (expectation.text.empty() || line == expectation.text);
                                            }))
                << "line " << expectation.line << " has not run: " << expectation.text;
            break;
        case '-':
            EXPECT_TRUE(std::ranges::none_of(game.output, isItsLine))
                << "line " << expectation.line << " has run";
            break;
        case '=':
            lines.push_back(expectation.text);
            break;
        default:
            messages.push_back(std::string(1, expectation.mark) + " " + expectation.text +
                               location(expectation));
        }
    }
    if (!lines.empty()) {
        EXPECT_EQ(game.output, lines);
    }
    if (lines.empty() || !messages.empty()) {
        EXPECT_EQ(messagesIn(game.output), messages);
    }
}

class Programs : public testing::TestWithParam<std::string>
{
};

} // namespace

TEST_P(Programs, DoWhatTheirCommentsExpect)
{
    const auto programs = ProgramFile::read(programsFolder / GetParam());
    ASSERT_FALSE(programs.empty());
    for (const ProgramFile& program : programs) {
        SCOPED_TRACE(GetParam() + " " + program.title);
        checkProgram(program);
    }
}

INSTANTIATE_TEST_SUITE_P(All, Programs, testing::ValuesIn(allPrograms()), [](const auto& each) {
    std::string name = each.param.substr(0, each.param.rfind('.'));
    std::ranges::replace_if(
        name, [](unsigned char c) { return !std::isalnum(c); }, '_');
    return name;
});
