// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "editor/Indentation.h"
#include "editor/PlainIndentation.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>
#include <vector>

namespace
{

QString fromLatin(const char* text)
{
    return QString::fromLatin1(text);
}

std::string shown(const QString& text)
{
    return text.toStdString();
}

QString indented(const QString& text)
{
    return Indentation::AutoIndentAll(text, [](int, bool) {}).text;
}

QString plainAutoIndentAll(QString text)
{
    text.replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
    qsizetype p = 0;
    for (;;) {
        const qsizetype behind = std::max<qsizetype>(plainIndentLine(text, p), 1);
        const qsizetype lineBreak = text.indexOf(QStringLiteral("\r\n"), behind - 1);
        if (lineBreak < 0)
            return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        p = lineBreak + 1 + 2;
    }
}

} // namespace

TEST(Indentation, FollowsTheBraces)
{
    struct {
        const char* text;
        const char* expected;
    } const rows[] = {
        {"PROGRAM{\nCLASSES{\n}CLASSES\n", "PROGRAM{\n  CLASSES{\n  }CLASSES\n"},
        {"  a{\nb", "  a{\nb"},               // the end of the text stands behind its one character
        {"  a{\nbc", "  a{\n    bc"},         // the first line stays as it is
        {"   a\nbb\n", "   a\n  bb\n"},       // three blanks are one level and a half
        {"a ;{\nbb\n", "a ;{\nbb\n"},         // a brace in a comment opens nothing
        {"a{ ; b\ncc  \n", "a{ ; b\n  cc\n"}, // blanks at the end of a line go
        {"a{  \nb\n", "a{  \n  b\n"},         //
        {"p{\n}\nq\n", "p{\n}\nq\n"},         //
        {"if a {\nbb\n}ELSE{\ncc\n}IF\ndd\n", "if a {\n  bb\n}ELSE{\n  cc\n}IF\ndd\n"}, //
        {"a{\n\nbb\n", "a{\n\n  bb\n"},       // an empty line stays empty
        {"a{\n\n\nbb\n", "a{\n\n  \n  bb\n"}, // the second of two does not
        {"a{\n    \nbb\n", "a{\n  \n  bb\n"}, // blanks alone are a line
        {"a{\n\n", "a{\n\n  "},               //
        {"}\n}}\n", "}\n}}\n"},               // never below zero
        {"", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(shown(indented(fromLatin(row.text))), row.expected) << row.text;
}

TEST(Indentation, OfAWholeTextIsThatOfItsLinesOneByOne)
{
    std::mt19937 chance(11);
    const char* const parts[] = {"\n", "\n", " ", "  ", "a", "bb", "{", "}", ";", "x{\n", "}x\n"};
    for (int round = 0; round < 3000; ++round) {
        QString text;
        for (int i = std::uniform_int_distribution<int>(0, 25)(chance); i > 0; --i)
            text +=
                fromLatin(parts[std::uniform_int_distribution<std::size_t>(0, std::size(parts) - 1)(chance)]);
        ASSERT_EQ(shown(indented(text)), shown(plainAutoIndentAll(text))) << shown(text);
    }
}

TEST(Indentation, TellsOfBracesTooManyAndStopsBeforeMemoryIsFull)
{
    EXPECT_TRUE(Indentation::AutoIndentAll(fromLatin("a\n}b\n"), [](int, bool) {}).isBelowZero);
    EXPECT_FALSE(Indentation::AutoIndentAll(fromLatin("a{\n}b\n"), [](int, bool) {}).isBelowZero);
    // Every line one level deeper: all of it would be a hundred times the memory there is.
    int reports = 0;
    const QString deep = fromLatin("a{\n").repeated(200'000);
    const QString result = Indentation::AutoIndentAll(deep, [&reports](int line, bool belowZero) {
                               EXPECT_EQ(line, ++reports * Indentation::linesBetweenReports);
                               EXPECT_FALSE(belowZero);
                           }).text;
    EXPECT_LT(result.size(), 20'000'000);
    EXPECT_TRUE(result.endsWith(fromLatin("\na{\na{\n")));
    EXPECT_GT(reports, 10);
}

TEST(Indentation, TellsOnceOfEachBraceTooMany)
{
    const QString text = fromLatin("a\n").repeated(70) + fromLatin("}b\n") + fromLatin("a\n").repeated(100);
    std::vector<std::pair<int, bool>> reports;
    const auto report = [&reports](int line, bool belowZero) { reports.emplace_back(line, belowZero); };
    EXPECT_FALSE(Indentation::AutoIndentAll(text, report).isBelowZero) << "it was told";
    EXPECT_EQ(reports, (std::vector<std::pair<int, bool>>{{64, false}, {128, true}}));
}
