#include "editor/Indentation.h"

#include <QElapsedTimer>

#include <algorithm>

namespace
{

constexpr qint64 millisecondsBetweenReports = 17; // at most 60 a second

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

/// Reports by the clock, so that a long text is not slowed down by telling about it.
class Reporter
{
public:
    explicit Reporter(const Indentation::Progress& progress)
        : m_progress(progress)
    {
        m_clock.start();
    }
    bool isBelowZero() const { return m_belowZero; }
    void lineDone(bool belowZero)
    {
        ++m_line;
        m_belowZero |= belowZero;
        if (m_line % linesBetweenLooks == 0 && m_clock.elapsed() >= millisecondsBetweenReports) {
            m_progress(m_line, m_belowZero);
            m_belowZero = false;
            m_clock.restart();
        }
    }

private:
    static constexpr int linesBetweenLooks = 64;

    const Indentation::Progress& m_progress;
    QElapsedTimer m_clock;
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
