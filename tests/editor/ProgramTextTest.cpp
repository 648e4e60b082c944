// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "editor/ProgramText.h"

#include <QTextDocument>

#include <gtest/gtest.h>

#include <string>

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

} // namespace

TEST(ProgramText, TakesEveryKindOfLineEnd)
{
    struct {
        std::string file;
        const char* text;
    } const rows[] = {
        {"", ""},           {"a", "a\n"},   {"a\r\nb\r\n", "a\nb\n"}, {"a\nb", "a\nb\n"},
        {"a\rb", "a\nb\n"}, {"\r\n", "\n"}, {"\n\r", "\n\n"},         {"a\r\r\nb", "a\n\nb\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(shown(ProgramText::fromFile(row.file)), row.text) << row.file;
    EXPECT_EQ(ProgramText::toProgram(fromLatin("a\n\nb")), "a\r\n\r\nb");
    EXPECT_EQ(ProgramText::fromFile("a\u2029z\u2028"), fromLatin("a\nz\n\n"))
        << "the text box would break the line here";
    EXPECT_EQ(ProgramText::StripControlCharacters(QString::fromLatin1("a\0b\tc\x1b\x08z\x07", 9)),
              fromLatin("abcz\x07"));
    EXPECT_EQ(ProgramText::fromClipboard(fromLatin("\tmove\tme\r\nb\x1b\rc")), fromLatin("  move  me\nb\nc"));
}

TEST(ProgramText, LetsNoBlankInThatTheLanguageDoesNotKnow)
{
    struct {
        const char* file;
        const char* text;
    } const rows[] = {
        {"move\u00a0me\u2000x\u200b1", "move me x 1\n"},
        {"\u180e\u1680\u200a\u202f\u205f\u2060\u3000\ufeff.", "        .\n"},
        {"\u00e4\u00ad\u1fff\u200c\u200d\u2061\u3001",
         "\u00e4\u00ad\u1fff\u200c\u200d\u2061\u3001\n"}, // no blanks
        {"\ta\tb", "\ta\tb\n"}, // tabs go with the other control characters, when the text is indented
    };
    for (const auto& row : rows)
        EXPECT_EQ(shown(ProgramText::fromFile(row.file)), row.text) << row.file;
    EXPECT_EQ(shown(ProgramText::fromClipboard(QString::fromUtf8("a\u00a0\u200b\ufeff\tb\u2028c"))),
              "a     b\nc");
}

TEST(ProgramText, FindsThePlaceOfLineAndColumn)
{
    QTextDocument document(fromLatin("abcd\n\nefgh\nij")); // positions 0-4, 5, 6-10, 11-13
    struct {
        int line, column;
        bool wrap;
        int position;
    } const rows[] = {
        {1, 1, false, 0},          {1, 3, false, 2},          {1, 99, false, 4},  {2, 9, false, 5},
        {0, 2, false, 1},          {-7, 1, false, 0},         {4, 99, false, 13}, {5, 1, false, 13},
        {9, 1, true, 13},          {3, 0, false, 6},          {3, 0, true, 6},    {3, -1, true, 5},
        {3, -3, true, 3},          {1, -5, true, 0},          {1, 6, true, 5},    {3, 99, true, 13},
        {3, 6, true, 11},          {5, -1, true, 13},         {4, 1, false, 11},  {4, 2, true, 12},
        {1, -2147483647, true, 0}, {4, 2147483647, true, 13},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ProgramText::positionOf(document, row.line, row.column, row.wrap), row.position)
            << row.line << ", " << row.column << ", " << row.wrap;
    }
}

TEST(ProgramText, SearchesOnFromTheCursor)
{
    struct {
        const char* text;
        const char* wanted;
        int cursor;
        int found; ///< -1: not found
    } const rows[] = {
        {"a MOVELEFT b", "move", 0, 2},
        {"move move", "move", 0, 5},
        {"move move", "move", 5, 0},
        {"xx move", "move", 3, 3},
        {"abc", "d", 0, -1},
        {"abc", "", 1, 2},
        {"abc", "", 3, 0},
        {"a\nb", "", 1, 2},
        {"a\nb", "", 0, 1},
        {"ab\ncab\nab", "AB", 0, 4},
        {"ab\ncab\nab", "AB", 3, 4},
        {"ab\ncab\nab", "AB", 4, 7},
        {"ab\ncab\nab", "AB", 7, 0},
        {"ab\ncab\nab", "AB", 9, 0},
        {"ab\ncd", "bc", 0, -1},
        {"", "a", 0, -1},
    };
    for (const auto& row : rows) {
        const QTextDocument document(fromLatin(row.text));
        EXPECT_EQ(ProgramText::findNext(document, fromLatin(row.wanted), row.cursor).value_or(-1), row.found)
            << row.text << " from " << row.cursor;
    }
}

TEST(ProgramText, ReadsLineNumbersAndWords)
{
    struct {
        const char* typed;
        int line;
    } const numbers[] = {
        {"12", 12}, {"12.7", 13}, {" 3 ", 3},   {"2.5", 2}, {"-4", -4},
        {"", 0},    {"abc", 0},   {"12abc", 0}, {"nan", 0}, {"inf", 0},
    };
    for (const auto& row : numbers)
        EXPECT_EQ(ProgramText::lineNumberFrom(fromLatin(row.typed)), row.line) << row.typed;
    EXPECT_EQ(ProgramText::lineNumberFrom(fromLatin("1e300")), 2147483647);

    struct {
        const char* line;
        const char* word;
    } const words[] = {
        {"  moveleft me 3", "moveleft"}, {"if {", "if"}, {"a b c", "a b c"}, {"   ", ""}, {"}if", "}if"},
    };
    for (const auto& row : words) {
        const QString line = fromLatin(row.line);
        EXPECT_EQ(shown(ProgramText::statementWord(line).toString()), row.word) << row.line;
    }
}
