// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/ZBParse.h"

#include "language/ZBLProgramExp.h"
#include "platform/Random.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

/// Takes what parsers report and counts the beeps.
class Reports : public ParseReporter
{
public:
    void parseError(const ParseFault& fault) override { text = fault.message; }
    void beep() override { ++beeps; }
    std::string text;
    int beeps = 0;
};

} // namespace

TEST(LineArray, CutsAndNormalises)
{
    const LineArray lines(
        "  Set Counter$X 5 ; add one\r\n;only a comment\r\n\tTab\t \r\nlone\rbreaks\nstay\r\n"
        "text \"a;b\" \r\nÄRGER İ\r\n\r\nLast");
    const char* const expected[] = {
        "set counter$x 5", "", "\ttab\t", "lone\rbreaks\nstay", "text \"a", "ärger i", "", "last", ""};
    for (int i = 0; i < 9; ++i)
        EXPECT_EQ(lines[i + 1], expected[i]) << i;
    EXPECT_EQ(lines.upperBound(), 9);
    EXPECT_EQ(lines[0], "");
    EXPECT_EQ(lines[10], "");
    EXPECT_EQ(LineArray("a\r\n").upperBound(), 3);
    EXPECT_EQ(LineArray("").upperBound(), 2);
}

TEST(NextWord, StopsAtBracesBlanksAndLineEnds)
{
    struct Case {
        std::string_view line;
        std::size_t position;
        std::vector<std::string_view> words;
    };
    const Case cases[] = {
        {"if counter$x = 3 {", 0, {"if", "counter$x", "=", "3"}},
        {"}else{", 1, {"else"}},
        {"}else{", 0, {"else"}},
        {"a{b}c\td\re\nf", 0, {"a", "b", "c", "d", "e", "f"}},
        {" {}\t ", 0, {}},
        {"", 0, {}},
        {"x", 1, {}},
    };
    for (const Case& c : cases) {
        std::size_t position = c.position;
        for (const std::string_view word : c.words)
            EXPECT_EQ(nextWord(c.line, position), word) << c.line;
        EXPECT_EQ(nextWord(c.line, position), "") << c.line;
        EXPECT_EQ(nextWord(c.line, position), "") << c.line;
    }
}

TEST(FindBlockEnd, AgreesWithAWalkOverTheLines)
{
    const auto walk = [](const LineArray& lines, int start) {
        int depth = 1;
        for (int number = start + 1; number <= lines.upperBound(); ++number) {
            if (lines[number].starts_with('}') && --depth == 0)
                return number;
            if (lines[number].ends_with('{'))
                ++depth;
        }
        return BlockEnd::none;
    };
    Random random(11);
    constexpr std::string_view kinds[] = {"a{", "a{", "}a", "}a", "}b{", "x",
                                          "",   "{",  "}",  "}{", "a{x", "x}"};
    for (int round = 0; round < 300; ++round) {
        std::string text;
        for (int i = 0; i < 30; ++i)
            text.append(kinds[random.below(std::size(kinds))]).append("\r\n");
        const LineArray lines(text);
        for (int start = 1; start <= 30; ++start) {
            const BlockEnd found = findBlockEnd(lines, start);
            const int expected = lines[start].ends_with('{') ? walk(lines, start) : BlockEnd::noBlock;
            ASSERT_EQ(found.line, expected) << text << " from line " << start;
            const bool isNamed = expected > 0 && lines[expected].find_first_of("abx") != std::string::npos;
            ASSERT_EQ(found.footer.empty(), !isNamed) << text << " from line " << start;
        }
    }
}

TEST(Operands, AreReadAsOneWordAndPrintedAsWritten)
{
    struct Case {
        const char* word;
        const char* printed; ///< null: cannot be read
        int beeps = 0;
    };
    const Case cases[] = {
        {"counter$lives", "counter$lives"},
        {"text$counter$x", "text$counter$x"},
        {"counter$", nullptr},
        {"text$", nullptr},
        {"counter", "COUNTER"},
        {"me.x", "me.x"},
        {"me.", "me."},
        {"me", "ME"},
        {"game.a.b", "game.a.b"},
        {"you.x", "YOU.X"},
        {"3.50", "3.5"},
        {"+.5e1", "5"},
        {"1e999", "INF"},
        {"\"two", nullptr, 1},
        {"\"", nullptr, 1},
        {"\"\"", "\"\""},
        {"\"a\"b\"", "\"a\"b\""},
        {"\"a\"b", nullptr, 1},
        {"random(1,6)", "random(1,6)"},
        {"random(me.x,counter$b)rest", "random(me.x,counter$b)"},
        {"random(1,6", nullptr},
        {"random(1)", nullptr},
        {"random(,6)", nullptr},
        {"random(1,)", nullptr},
        {"random(1,\"a)", nullptr, 1},
        {"random(1,2,3)", "random(1,2)"}, // "2,3" is the number that it begins with
        {"random(random(1,2),3)", nullptr},
        {"random", "RANDOM"},
        {"größe", "GRÖßE"},
    };
    for (const Case& c : cases) {
        const LineArray lines("program{\r\nstates{\r\nbegin{\r\nloop{\r\nset text$t " + std::string(c.word) +
                              "\r\n}loop\r\n}begin\r\n}states\r\n}program");
        Reports reports;
        ZBLProgramExp program;
        EXPECT_EQ(program.Parse(lines, reports), c.printed != nullptr) << c.word;
        EXPECT_EQ(reports.beeps, c.beeps) << c.word;
        EXPECT_EQ(reports.text.empty(), c.printed != nullptr) << c.word;
        if (c.printed) {
            const std::string line = "set text$t " + std::string(c.printed) + "\r\n";
            EXPECT_NE(program.Display().find(line), std::string::npos) << program.Display();
        }
    }
}
