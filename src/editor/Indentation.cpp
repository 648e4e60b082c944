// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "editor/Indentation.h"

#include <algorithm>
#include <utility>

namespace
{

QStringView trimmedBlanks(QStringView text)
{
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

qsizetype leadingBlanks(QStringView line)
{
    const auto* end = std::find_if(line.cbegin(), line.cend(), [](QChar c) { return c != u' '; });
    return end - line.cbegin();
}

bool opensBlock(QStringView line)
{
    const qsizetype comment = line.indexOf(u';');
    return trimmedBlanks(comment < 0 ? line : line.first(comment)).endsWith(u'{');
}

/// Counts the lines that are done, and tells about them now and then.
class Reporter
{
public:
    explicit Reporter(const Indentation::Progress& progress)
        : m_progress(progress)
    {
    }
    bool isBelowZero() const { return m_belowZero; }
    void lineDone(bool belowZero)
    {
        ++m_line;
        m_belowZero |= belowZero;
        if (m_line % Indentation::linesBetweenReports == 0)
            m_progress(m_line, std::exchange(m_belowZero, false));
    }

private:
    const Indentation::Progress& m_progress;
    int m_line = 0;
    bool m_belowZero = false;
};

/// Goes through a text line by line.
class LineReader
{
public:
    explicit LineReader(QStringView text)
        : m_rest(text)
    {
    }
    QStringView line() const { return m_rest.first(lineLength()); }
    bool isLast() const { return m_break < 0; }
    QStringView rest() const { return m_rest; }
    void next()
    {
        m_rest = m_rest.sliced(m_break + 1);
        m_break = m_rest.indexOf(u'\n');
    }

private:
    qsizetype lineLength() const { return m_break < 0 ? m_rest.size() : m_break; }

    QStringView m_rest;
    qsizetype m_break = m_rest.indexOf(u'\n');
};

/// What a line means for the line below it.
struct Shape {
    int level = 0;
    bool opens = false;
};

Shape shapeOf(QStringView line)
{
    return {static_cast<int>(leadingBlanks(line) / Indentation::unit), opensBlock(line)};
}

Indentation::Level levelBelow(const Shape& above, QStringView trimmedLine)
{
    const int level = above.level + (above.opens ? 1 : 0) - (trimmedLine.startsWith(u'}') ? 1 : 0);
    return {std::max(level, 0), level < 0};
}

} // namespace

namespace Indentation
{

Blanks blanksAround(QStringView line)
{
    const qsizetype before = leadingBlanks(line);
    return {static_cast<int>(before), static_cast<int>(line.size() - before - trimmedBlanks(line).size())};
}

Level levelOf(QStringView line, QStringView above)
{
    return levelBelow(shapeOf(above), trimmedBlanks(line));
}

// Each line is indented by the line above it as that one stands *after* it was indented itself, so one pass
// from top to bottom does it: all that has to be kept of the lines above is the level of the last one that is
// not empty, and whether it opens a block. The text is read from `in` and written to `out`, never changed in
// the middle.
//
// Which lines have their turn follows from how the cursor steps when Tab is pressed line by line: it goes to
// the end of the line and then on by the two characters of a line break in a file, which lands it *behind*
// the first character of the next line. Where that line is empty this is already the line after it. So an
// empty line is passed over and stays as it is, and the line behind it is indented whatever it holds; and a
// last line of at most one character is not reached at all, for the text ends there.
IndentedText AutoIndentAll(const QString& text, const Progress& progress, qsizetype longest)
{
    Reporter reporter(progress);
    LineReader in(text);
    QString out;
    out.reserve(text.size() + text.size() / 4);
    out += in.line();
    Shape above = shapeOf(in.line());
    reporter.lineDone(false);
    while (!in.isLast()) {
        in.next();
        out += u'\n';
        if (in.line().isEmpty() && !in.isLast()) {
            in.next(); // passed over; the line behind it has its turn, empty or not
            out += u'\n';
        } else if (in.isLast() && in.line().size() <= 1) {
            out += in.line(); // nothing stands behind its first character: that is the end of the text
            break;
        }
        if (out.size() > longest) {
            out += in.rest();
            break;
        }
        const QStringView line = trimmedBlanks(in.line());
        const Level level = levelBelow(above, line);
        out.resize(out.size() + qsizetype(unit) * level.level, u' ');
        out += line;
        if (!line.isEmpty() || level.level > 0)
            above = {level.level, opensBlock(line)};
        reporter.lineDone(level.isBelowZero);
    }
    return {out, reporter.isBelowZero()};
}

} // namespace Indentation
