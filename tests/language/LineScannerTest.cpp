// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/LineScanner.h"

#include "language/Words.h"
#include "language/ZBLProgramExp.h"
#include "platform/NumberText.h"
#include "platform/Random.h"
#include "platform/TextFile.h"
#include "support/ProgramFile.h"

#include <gtest/gtest.h>

#include <optional>

namespace
{

class Silent : public ParseReporter
{
public:
    void parseError(const ParseFault& /*fault*/) override {}
    void beep() override {}
};

/// What is read from a program; nothing where it has a fault.
std::optional<std::string> listing(std::string_view text)
{
    const LineArray lines(text);
    Silent silent;
    ZBLProgramExp program;
    return program.Parse(lines, silent) ? std::optional(program.Display()) : std::nullopt;
}

std::string joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += line + "\r\n";
    return text;
}

std::vector<std::string> inLoop(const std::string& line)
{
    return {"program{", "states{", "begin{", "loop{", line, "}loop", "}begin", "}states", "}program"};
}

/// A line of words that statements may or may not understand.
std::string anyLine(Random& random)
{
    constexpr std::string_view first[] = {
        "move",   "SetPosition", "if",   "set",      "change",     "create", "setstate", "rebound",
        "setmap", "pause",       "moev", "moveleft", "destroyall", "if",     "movedown", "set"};
    constexpr std::string_view words[] = {"me",
                                          "it",
                                          "GAME",
                                          "Keyboard",
                                          "me.x",
                                          "game.map",
                                          "keyboard.a",
                                          "me.",
                                          "3",
                                          "-2.5",
                                          "3abc",
                                          "1e5",
                                          "1e",
                                          ".",
                                          "\"text\"",
                                          "\"ÄÖ\"",
                                          "\"open",
                                          "counter$x",
                                          "text$İẞ",
                                          "counter$",
                                          "ball",
                                          "größe",
                                          "=",
                                          "!=",
                                          "<=",
                                          "=>",
                                          "and",
                                          "or",
                                          "{",
                                          "}",
                                          "a{b",
                                          "\t",
                                          "random(1,6)",
                                          "random(me.x,2,3)more",
                                          "random(1,6",
                                          "random",
                                          "random(text$a,\"b\")",
                                          "Ⅷ",
                                          ";c d"};
    std::string line(random.below(3), ' ');
    line += first[random.below(std::size(first))];
    for (std::uint64_t count = random.below(10); count > 0; --count)
        line.append(random.below(8) == 0 ? "  " : " ").append(words[random.below(std::size(words))]);
    return random.below(3) == 0 ? line + " {" : line;
}

/// The line with one of its pieces replaced by a name that stands nowhere else.
std::string replaced(const std::string& line, const Token& token)
{
    const bool isComment = token.kind == TokenKind::Comment;
    const bool isBrace = token.ignored == Ignored::InnerBrace;
    return std::string(line).replace(token.from, token.length, isComment ? "" : isBrace ? "\t" : "zq");
}

constexpr std::string_view kindNames[] = {"statement", "block",    "event",   "part",   "name",     "object",
                                          "property",  "variable", "number",  "text",   "operator", "random",
                                          "sign",      "brace",    "comment", "unknown"};
constexpr std::string_view ignoredNames[] = {"",     "comment", "extra", "second", "inner",
                                             "tail", "tail",    "name",  "free",   "outside"};

std::string described(std::string_view line, const ScannedLine& scanned)
{
    std::string text;
    for (const Token& token : scanned.tokens) {
        text.append(text.empty() ? "" : " ").append(line.substr(token.from, token.length));
        text.append(":").append(kindNames[static_cast<std::size_t>(token.kind)]);
        if (token.ignored != Ignored::No)
            text.append("!").append(ignoredNames[static_cast<std::size_t>(token.ignored)]);
    }
    return text;
}

} // namespace

TEST(LineScanner, TellsWhatThePiecesOfALineAre)
{
    struct Case {
        const char* line;
        const char* tokens;
        int depth = statementDepth;
        int behind = statementDepth;
    };
    const Case cases[] = {
        {"  MoveLeft me 3 ; go", "MoveLeft:statement me:object 3:number ; go:comment!comment"},
        {"move me now please", "move:statement me:object now:unknown!extra please:unknown!extra"},
        {"if me.x > 3 and me.y > 3 {",
         "if:statement me:object .:sign x:property >:operator 3:number and:unknown!second "
         "me.y:unknown!second "
         ">:unknown!second 3:unknown!second {:brace",
         4, 5},
        {"if ball = 3 { move me",
         "if:statement ball:name =:operator 3:number {:brace!inner move:unknown!extra me:unknown!extra"},
        {"set text$a random(-1,me.x)z", "set:statement text$a:variable random:random (:sign -1:number ,:sign "
                                        "me:object .:sign x:property ):sign "
                                        "z:unknown!tail"},
        {"setstate loop", "setstate:statement loop:name"},
        {"set counter$a 3abc", "set:statement counter$a:variable 3:number abc:unknown!tail"},
        {"move\tme", "move\tme:unknown"},
        {"}if really", "}:brace if:statement!free really:unknown!name", 5, 4},
        {"}ELSE{", "}:brace ELSE:block {:brace", 5, 5},
        {"  Program{ ;p", "Program:block {:brace ;p:comment!comment", 0, 1},
        {"create{", "create:name {:brace", 2, 3},
        {"create first{", "create:event first:unknown!name {:brace", 3, 4},
        {"}loop", "}:brace loop:part!free", 4, 3},
        {"}normal", "}:brace normal:event", 4, 3},
        {"}ball", "}:brace ball:name", 3, 2},
        {"move me", "move:statement!outside me:object!outside", 3, 3},
        // Behind an if without an end.
        {"collision{", "collision:event {:brace", 5, 4},
        {"states{", "states:block {:brace", 3, 2},
        {"", "", 2, 2},
    };
    for (const Case& c : cases) {
        const ScannedLine scanned = scanLine(c.line, c.depth);
        EXPECT_EQ(described(c.line, scanned), c.tokens) << c.line;
        EXPECT_EQ(scanned.depth, c.behind) << c.line;
    }
}

TEST(LineScanner, AgreesWithTheReaderOnWordsAndStatements)
{
    Random random(5);
    int statements = 0;
    for (int round = 0; round < 20'000; ++round) {
        const std::string line = anyLine(random);
        const ScannedLine scanned = scanLine(line);
        const LineArray lines(line);
        const std::string_view code = lines[1];
        // The words behind the first, and what touches.
        Words words(code, std::min(code.find(' '), code.size()));
        std::size_t end = 0;
        std::string word;
        for (std::size_t i = 1; i <= scanned.tokens.size(); ++i) {
            const Token token = i < scanned.tokens.size() ? scanned.tokens[i] : Token{TokenKind::Comment};
            const bool isWord = token.kind != TokenKind::Brace && token.kind != TokenKind::Comment;
            if (!word.empty() && (!isWord || token.from != end)) {
                ASSERT_EQ(word, words.next()) << line;
                word.clear();
            }
            if (isWord)
                word += lowerCase(line.substr(token.from, token.length));
            end = token.from + token.length;
        }
        ASSERT_EQ(words.next(), "") << line;
        const bool isStatement = findWord<StatementWord>(code.substr(0, code.find(' '))) != nullptr;
        ASSERT_EQ(scanned.tokens.front().kind == TokenKind::Statement, isStatement) << line;
        statements += isStatement ? 1 : 0;
    }
    EXPECT_GT(statements, 10'000);
}

TEST(LineScanner, WhatIsIgnoredMayBeAnythingAndNothingElse)
{
    Random random(6);
    int ignored = 0;
    int read = 0;
    for (int round = 0; round < 20'000; ++round) {
        const std::string line = anyLine(random);
        std::vector<std::string> program = inLoop(line);
        const ScannedLine scanned = scanLine(line);
        if (scanned.depth > statementDepth)
            program.insert(program.begin() + 5, "}");
        const auto expected = listing(joined(program));
        if (!expected)
            continue;
        for (const Token& token : scanned.tokens) {
            program[4] = replaced(line, token);
            const auto found = listing(joined(program));
            ASSERT_EQ(found == expected, token.ignored != Ignored::No) << line << "\n" << program[4];
            ++(token.ignored != Ignored::No ? ignored : read);
        }
    }
    EXPECT_GT(ignored, 1000);
    EXPECT_GT(read, 1000);
}

TEST(LineScanner, KnowsWhatWholeProgramsIgnore)
{
    const auto folder = std::filesystem::path(ZB_SOURCE_DIR) / "tests" / "programs";
    int pieces = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.path().extension() != ".zbl")
            continue;
        for (const ProgramFile& program : ProgramFile::read(entry.path())) {
            std::vector<std::string> lines;
            for (const std::string_view line : splitLines(program.text))
                lines.emplace_back(line);
            const auto expected = listing(joined(lines));
            if (!expected || lines.size() > 200)
                continue;
            int depth = 0;
            for (std::string& line : lines) {
                const std::string original = line;
                const ScannedLine scanned = scanLine(original, depth);
                for (const Token& token : scanned.tokens) {
                    if (token.ignored == Ignored::No || token.ignored == Ignored::Comment)
                        continue;
                    line = replaced(original, token);
                    EXPECT_EQ(listing(joined(lines)), expected) << entry.path() << ": " << original;
                    ++pieces;
                }
                line = original;
                depth = scanned.depth;
                EXPECT_TRUE(depth == 0 || trimBlanks(original) != "}program") << entry.path();
            }
        }
    }
    EXPECT_GT(pieces, 100);
}
