// The rules about a program text: its record, undo, indentation, places and searches.
#include "editor/CodeText.h"
#include "editor/Indentation.h"
#include "editor/TextRecord.h"
#include "editor/UndoRing.h"

#include <QElapsedTimer>
#include <QStringList>
#include <QTextDocument>

#include <gtest/gtest.h>

#include <random>

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

// The rule for one line as it is told: by positions in a text whose lines end with CR LF. Slow and plain.
qsizetype plainIndentLine(QString& text, qsizetype p)
{
    if (p == 0 || p >= text.size())
        return p;
    qsizetype start = p;
    if (text[p] == u'\n')
        start = p + 1; // within a line break: the line behind it
    while (start > 0 && text[start - 1] != u'\n')
        --start;
    qsizetype end = text.indexOf(u'\r', start);
    if (end < 0)
        end = text.size();
    QString above;
    const QStringList lines = text.left(start).split(QStringLiteral("\r\n"));
    for (const QString& line : lines) {
        if (!line.isEmpty())
            above = line;
    }
    const auto trimmed = [](QString line) {
        while (line.startsWith(u' '))
            line.remove(0, 1);
        while (line.endsWith(u' '))
            line.chop(1);
        return line;
    };
    qsizetype blanks = 0;
    while (blanks < above.size() && above[blanks] == u' ')
        ++blanks;
    qsizetype level = blanks / 2;
    if (trimmed(above.section(u';', 0, 0)).endsWith(u'{'))
        ++level;
    const QString line = trimmed(text.mid(start, end - start));
    if (line.startsWith(u'}'))
        --level;
    level = std::max<qsizetype>(level, 0);
    text.replace(start, end - start, QString(2 * level, u' ') + line);
    return start + 2 * level;
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

TEST(TextRecord, StaysEqualToATextThatGoesThroughTheSameChanges)
{
    std::mt19937 chance(7);
    const auto below = [&chance](qsizetype limit) {
        return std::uniform_int_distribution<qsizetype>(0, limit)(chance);
    };
    QString plain;
    TextRecord record;
    std::vector<std::pair<QString, TextRecord>> kept;
    for (int step = 0; step < 3000; ++step) {
        const qsizetype at = below(plain.size());
        const qsizetype removed = below(std::min<qsizetype>(plain.size() - at, step % 50 == 0 ? 9000 : 5));
        const QString inserted(below(step % 20 == 0 ? 12000 : 3),
                               QChar(static_cast<char16_t>(u'a' + below(3))));
        plain.replace(at, removed, inserted);
        record.replace(at, removed, inserted);
        ASSERT_EQ(record.length(), plain.size());
        if (step % 100 == 0) {
            ASSERT_EQ(record.toString(), plain) << "step " << step;
            kept.emplace_back(plain, record);
        }
    }
    for (const auto& [text, old] : kept) {
        EXPECT_EQ(old.toString(), text) << "a kept version must not follow";
        EXPECT_EQ(old == record, text == plain);
        EXPECT_TRUE(old == TextRecord(text)) << "equal texts may be cut differently";
        const TextDifference difference = record.differenceTo(old);
        QString changed = plain;
        changed.replace(difference.position, difference.removed, difference.inserted);
        EXPECT_EQ(changed, text);
    }
}

TEST(TextRecord, FindsTheSmallestDifference)
{
    struct {
        const char* from;
        const char* to;
        qsizetype position, removed;
        const char* inserted;
    } const rows[] = {
        {"", "", 0, 0, ""},         {"", "abc", 0, 0, "abc"}, {"abc", "", 0, 3, ""},
        {"aaa", "aa", 2, 1, ""},    {"aa", "aaa", 2, 0, "a"}, {"abcd", "abXd", 2, 1, "X"},
        {"same", "same", 4, 0, ""},
    };
    for (const auto& row : rows) {
        const TextDifference found =
            TextRecord(fromLatin(row.from)).differenceTo(TextRecord(fromLatin(row.to)));
        EXPECT_EQ(found.position, row.position) << row.from;
        EXPECT_EQ(found.removed, row.removed) << row.from;
        EXPECT_EQ(shown(found.inserted), row.inserted) << row.from;
    }
}

TEST(UndoRing, GivesBackTheLastThirtyOneTexts)
{
    UndoRing ring;
    EXPECT_FALSE(ring.record(TextRecord())) << "an empty text is what it starts with";
    for (int i = 1; i <= 40; ++i)
        EXPECT_TRUE(ring.record(TextRecord(QString::number(i))));
    EXPECT_FALSE(ring.record(TextRecord(QStringLiteral("40")))) << "the newest is not kept twice";
    EXPECT_EQ(ring.count(), 31);
    for (int i = 40; i > 9; --i)
        EXPECT_EQ(shown(ring.undo().toString()), std::to_string(i));
    EXPECT_EQ(ring.count(), 0);
    // The ring has come round to its newest text, which is now compared with.
    EXPECT_FALSE(ring.record(TextRecord(QStringLiteral("40"))));
    EXPECT_TRUE(ring.record(TextRecord(QStringLiteral("10"))));
}

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
    QElapsedTimer clock;
    clock.start();
    const QString deep = fromLatin("a{\n").repeated(200'000);
    const QString result = Indentation::AutoIndentAll(deep, [&reports](int, bool) { ++reports; }).text;
    EXPECT_LT(result.size(), 20'000'000);
    EXPECT_TRUE(result.endsWith(fromLatin("\na{\na{\n")));
    EXPECT_LE(reports, clock.elapsed() / 16 + 1) << "told at most 60 times a second";
}

TEST(CodeText, TakesEveryKindOfLineEnd)
{
    struct {
        std::string file;
        const char* text;
    } const rows[] = {
        {"", ""},           {"a", "a\n"},   {"a\r\nb\r\n", "a\nb\n"}, {"a\nb", "a\nb\n"},
        {"a\rb", "a\nb\n"}, {"\r\n", "\n"}, {"\n\r", "\n\n"},         {"a\r\r\nb", "a\n\nb\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(shown(CodeText::fromFile(row.file)), row.text) << row.file;
    EXPECT_EQ(CodeText::toProgram(fromLatin("a\n\nb")), "a\r\n\r\nb");
    EXPECT_EQ(CodeText::toProgram(CodeText::fromFile("\xc3\xa4\xc2\xa0z")), "\xc3\xa4\xc2\xa0z\r\n");
    EXPECT_EQ(CodeText::fromFile("a\xe2\x80\xa9z"), fromLatin("a\nz\n"))
        << "the text box would break the line here";
    EXPECT_EQ(CodeText::StripControlCharacters(QString::fromLatin1("a\0b\tc\x1b\x08z\x07", 9)),
              fromLatin("abcz\x07"));
    EXPECT_EQ(CodeText::fromClipboard(fromLatin("\tmove\tme\r\nb\x1b\rc")), fromLatin("  move  me\nb\nc"));
}

TEST(CodeText, FindsThePlaceOfLineAndColumn)
{
    QTextDocument document(fromLatin("abcd\n\nefgh\nij")); // positions 0-4, 5, 6-10, 11-13
    struct {
        int line, column;
        bool wrap;
        int position;
    } const rows[] = {
        {1, 1, false, 0}, {1, 3, false, 2},  {1, 99, false, 4},         {2, 9, false, 5},
        {0, 2, false, 1}, {-7, 1, false, 0}, {4, 99, false, 13},        {5, 1, false, 13},
        {9, 1, true, 13}, {3, 0, false, 6},  {3, 0, true, 6},           {3, -1, true, 5},
        {3, -3, true, 3}, {1, -5, true, 0},  {1, 6, true, 5},           {3, 99, true, 13},
        {3, 6, true, 11}, {5, -1, true, 13}, {1, -2147483647, true, 0}, {4, 2147483647, true, 13},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(CodeText::positionOf(document, row.line, row.column, row.wrap), row.position)
            << row.line << ", " << row.column << ", " << row.wrap;
    }
}

TEST(CodeText, SearchesOnFromTheCursor)
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
        {"", "a", 0, -1},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(CodeText::findNext(fromLatin(row.text), fromLatin(row.wanted), row.cursor).value_or(-1),
                  row.found)
            << row.text << " from " << row.cursor;
    }
}

TEST(CodeText, ReadsLineNumbersAndWords)
{
    struct {
        const char* typed;
        int line;
    } const numbers[] = {
        {"12", 12}, {"12.7", 13}, {" 3 ", 3},   {"2.5", 2}, {"-4", -4},
        {"", 0},    {"abc", 0},   {"12abc", 0}, {"nan", 0}, {"inf", 0},
    };
    for (const auto& row : numbers)
        EXPECT_EQ(CodeText::lineNumberFrom(fromLatin(row.typed)), row.line) << row.typed;
    EXPECT_EQ(CodeText::lineNumberFrom(fromLatin("1e300")), 2147483647);

    struct {
        const char* line;
        const char* word;
    } const words[] = {
        {"  moveleft me 3", "moveleft"}, {"if {", "if"}, {"a b c", "a b c"}, {"   ", ""}, {"}if", "}if"},
    };
    for (const auto& row : words) {
        const QString line = fromLatin(row.line);
        EXPECT_EQ(shown(CodeText::statementWord(line).toString()), row.word) << row.line;
    }
}
