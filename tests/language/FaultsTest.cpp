// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/Faults.h"

#include "language/ZBLProgramExp.h"
#include "platform/Random.h"
#include "platform/TextFile.h"
#include "support/ProgramFile.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

/// Keeps what one reading reports.
class Reported : public ParseReporter
{
public:
    void parseError(const ParseFault& fault) override { faults.push_back(fault); }
    void beep() override {}
    std::vector<ParseFault> faults;
};

/// A line of what is found: "7 This instruction".
struct Expected {
    int line;
    std::string_view beginning;
};

std::vector<std::string> programTexts()
{
    std::vector<std::string> texts;
    const auto folder = std::filesystem::path(ZB_SOURCE_DIR) / "tests" / "programs";
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (entry.path().extension() == ".zbl")
            for (const ProgramFile& program : ProgramFile::read(entry.path()))
                texts.push_back(program.text);
    std::ranges::sort(texts);
    return texts;
}

/// The text with some lines dropped, doubled, exchanged or overwritten.
std::string mutated(const std::string& text, Random& random)
{
    constexpr std::string_view lines[] = {"}",     "}if",     "}else{",     "if a = b {", "if a",
                                          "move",  "normal{", "}normal",    "loop{",      "bird{",
                                          "}ball", "states{", "}classes",   "}program",   "program{",
                                          "{",     "}{",      "collision{", "pause",      "set text$a \"b"};
    std::vector<std::string> cut;
    for (const std::string_view line : splitLines(text))
        cut.emplace_back(line);
    const auto anywhere = [&] { return cut.begin() + static_cast<std::ptrdiff_t>(random.below(cut.size())); };
    for (std::uint64_t change = random.below(4); change > 0 && cut.size() > 2; --change) {
        switch (random.below(4)) {
        case 0:
            cut.erase(anywhere());
            break;
        case 1:
            cut.insert(anywhere(), std::string(lines[random.below(std::size(lines))]));
            break;
        case 2:
            *anywhere() = lines[random.below(std::size(lines))];
            break;
        default:
            std::iter_swap(anywhere(), anywhere());
        }
    }
    std::string result;
    for (const std::string& line : cut)
        result += line + "\r\n";
    return result;
}

} // namespace

TEST(Faults, TheFirstIsTheOneThatReadingReports)
{
    const std::vector<std::string> texts = programTexts();
    ASSERT_GT(texts.size(), 100U);
    Random random(8);
    int several = 0;
    for (int round = 0; round < 3000; ++round) {
        const std::string text = mutated(texts[random.below(texts.size())], random);
        const LineArray lines(text);
        Reported reported;
        ZBLProgramExp program;
        const bool isFine = program.Parse(lines, reported);
        const std::vector<ParseFault> faults = findFaults(text);
        ASSERT_EQ(isFine, faults.empty()) << text;
        ASSERT_EQ(reported.faults.size(), isFine ? 0U : 1U) << text;
        if (isFine)
            continue;
        ASSERT_EQ(reported.faults.front(), faults.front()) << text;
        several += faults.size() > 1 ? 1 : 0;
        for (const ParseFault& fault : faults) {
            ASSERT_TRUE(fault.line >= 1 && fault.line <= fault.lastLine &&
                        fault.lastLine <= lines.upperBound())
                << text;
            ASSERT_EQ(std::ranges::count(faults, fault), 1) << reportText(fault, lines) << "\n" << text;
        }
    }
    EXPECT_GT(several, 500);
}

TEST(Faults, AreAllFound)
{
    struct Case {
        const char* name;
        std::vector<std::string_view> lines;
        std::vector<Expected> faults;
    };
    const std::string_view noEnd = "Could not find a PROGRAM block ending";
    const std::string_view misnamedEnd =
        "You either have mismatched opening and closing braces or the end of";
    const std::string_view unknown = "This instruction begins with \"";
    const Case cases[] = {
        {"statements",
         {"program{", "classes{", "ball{",    "normal{", "moev me", "move me",  "moveleft me",
          "}normal",  "create{",  "set",      "}create", "}ball",   "}classes", "states{",
          "begin{",   "loop{",    "setstate", "}loop",   "}begin",  "}states",  "}program"},
         {{5, unknown},
          {7, "You didn't specify an amount"},
          {10, "You didn't specify a variable"},
          {17, "This setstate instruction"}}},
        {"inside of ifs that cannot be read",
         {"program{", "classes{", "ball{", "normal{", "if me.x => 3 {", "moev me", "}else{", "moev it", "}if",
          "iff a = b {", "if a = b {", "unmoev me", "}if", "}if", "move it", "}normal", "}ball", "}classes",
          "}program"},
         {{5, "I don't understand the operator (=>)"},
          {6, unknown},
          {8, unknown},
          {10, unknown},
          {12, unknown}}},
        {"blocks that do not belong there",
         {"program{", "sprites{", "}sprites", "classes{", "ball{", "colision{", "moev me", "}colision",
          "}ball", "}classes", "states{", "begin{", "lop{", "moev it", "}lop", "}begin", "}states",
          "}program"},
         {{2, "I found a block named SPRITES"},
          {6, "COLISION is not a valid event block."},
          {7, unknown},
          {13, "While reading the definition"},
          {14, unknown}}},
        {"an if without an end",
         {"program{", "classes{", "ball{", "normal{", "if a = b {", "move me", "}normal", "collision{",
          "moev me", "}collision", "}ball", "}classes", "}program"},
         {{1, noEnd}, {5, "I can't find the end of this if statement!"}, {9, unknown}}},
        {"an if without a brace",
         {"program{", "classes{", "ball{", "normal{", "if a = b", "move me", "}if", "}normal", "}ball",
          "}classes", "}program"},
         {{10, misnamedEnd}, {5, "This if statement doesn't start a block"}, {7, unknown}}},
        {"an else without an end",
         {"program{", "states{", "begin{", "loop{", "if a = b {", "}else{", "}loop", "}begin", "}states",
          "}program"},
         {{1, noEnd}, {6, "I can't find the end of this else clause!"}}},
        {"an event without an end",
         {"program{", "classes{", "ball{", "normal{", "move me", "collision{", "moev me", "}collision",
          "}ball", "}classes", "}program"},
         {{1, noEnd}, {4, "I can't find the end of the NORMAL event block."}, {7, unknown}}},
        {"a class without an end",
         {"program{", "classes{", "ball{", "normal{", "move me", "}normal", "bird{", "normal{", "moev me",
          "}normal", "}bird", "}classes", "}program"},
         {{1, noEnd}, {3, "The BALL class definition block"}, {9, unknown}}},
        {"parts and a state without ends",
         {"program{", "states{", "begin{", "initialize{", "loop{", "pause", "states{", "next{", "loop{",
          "moev me", "}", "}next", "}states", "}program"},
         {{1, noEnd},
          {2, "The STATES block does not"},
          {3, "I can't find the end of the state block"},
          {4, "I can't find the end of the INITIALIZE"},
          {5, "I can't find the end of the LOOP"},
          {10, unknown}}},
        {"an end too many",
         {"program{", "states{", "begin{", "loop{", "move me", "}if", "}loop", "}begin", "}states",
          "}program"},
         {{9, misnamedEnd}, {6, unknown}}},
        {"ends with other names",
         {"program{", "classes{", "ball{", "normall{", "}normal", "destroy{", "moev me", "}destroyed", "}bal",
          "}class", "}program"},
         {{2, misnamedEnd},
          {3, misnamedEnd},
          {4, misnamedEnd},
          {4, "NORMALL is not a valid event block."},
          {6, misnamedEnd},
          {7, unknown}}},
        {"no program", {"states{", "}states"}, {{1, "I could not find the beginning"}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::string text;
        for (const std::string_view line : c.lines)
            text.append(line).append("\r\n");
        const std::vector<ParseFault> faults = findFaults(text);
        std::string found;
        for (const ParseFault& fault : faults)
            found += std::to_string(fault.line) + " " + fault.message + "\n";
        ASSERT_EQ(faults.size(), c.faults.size()) << found;
        for (std::size_t i = 0; i < faults.size(); ++i)
            EXPECT_TRUE(faults[i].line == c.faults[i].line &&
                        faults[i].message.starts_with(c.faults[i].beginning))
                << found;
    }
}

TEST(Faults, NameTheColumnsOfWhatIsWrong)
{
    struct Case {
        const char* line;
        const char* part; ///< what the columns cover
        std::size_t column;
    };
    const Case cases[] = {
        {"moev me", "moev", 1},
        {"   MOEV me ; comment", "MOEV", 4},
        {"\tmove me", "\tmove", 1},
        {"  If Me.x  =>  3 {", "=>", 12},
        {"if a = \"b {", "\"b", 8},
        {"  set counter$x   ; nothing", "", 16},
        {"  moveleft   Ball 3", "Ball", 14},
        {"moveleft game 3", "game", 10},
        {"if a = b", "", 9},
        {"create a b", "", 11},
        {"set ßẞİ äß", "ßẞİ", 5},
        {"set text$ẞİ \"ÄÖ", "\"ÄÖ", 16},
        {"  \xff\xfe\x84 x", "\xff\xfe\x84", 3},
    };
    for (const Case& c : cases) {
        const std::string line(c.line);
        const auto faults = findFaults("program{\r\nstates{\r\nbegin{\r\nloop{\r\n" + line +
                                       "\r\n}\r\n}begin\r\n}states\r\n}program");
        const auto fault = std::ranges::find(faults, 5, &ParseFault::line);
        ASSERT_NE(fault, faults.end()) << line;
        EXPECT_EQ(fault->column, c.column) << line;
        EXPECT_EQ(line.substr(fault->column - 1, fault->length), c.part) << line;
    }
}
