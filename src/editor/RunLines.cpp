// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "editor/RunLines.h"

#include <QTextDocument>

#include <algorithm>
#include <numeric>
#include <utility>

namespace
{

/// Indentation is no change: the language does not see it.
size_t contentOf(const QTextBlock& block)
{
    const QString text = block.text();
    return qHash(QStringView(text).trimmed());
}

} // namespace

RunLines::RunLines(const QTextDocument& document, QObject* parent)
    : QObject(parent)
    , m_document(document)
{
    connect(&document, &QTextDocument::contentsChange, this, &RunLines::follow);
}

void RunLines::begin()
{
    m_placed.resize(m_document.blockCount());
    std::iota(m_placed.begin(), m_placed.end(), 1);
    m_content.clear();
    m_content.reserve(m_placed.size());
    for (QTextBlock block = m_document.begin(); block.isValid(); block = block.next())
        m_content += contentOf(block);
    std::fill(m_marks.begin(), m_marks.end(), LineMark()); // where a margin is, it stays
    m_moment = 0;
}

void RunLines::forget()
{
    m_placed.clear();
    m_content.clear();
    m_marks.clear();
    m_moment = 0;
}

void RunLines::setMarks(std::vector<LineMark> marks)
{
    if (m_placed.isEmpty())
        begin();
    m_marks = std::move(marks);
}

void RunLines::setMoment(int runLine)
{
    if (m_placed.isEmpty())
        begin();
    m_moment = runLine;
}

int RunLines::placedAt(const QTextBlock& block) const
{
    return m_placed.value(block.blockNumber());
}

bool RunLines::isUnchanged(int runLine, const QTextBlock& block) const
{
    return runLine > 0 && m_content[runLine - 1] == contentOf(block);
}

int RunLines::lineAt(const QTextBlock& block) const
{
    const int runLine = placedAt(block);
    return isUnchanged(runLine, block) ? runLine : 0;
}

const LineMark& RunLines::markAt(const QTextBlock& block) const
{
    static const LineMark none;
    const auto line = static_cast<std::size_t>(lineAt(block));
    return line > 0 && line <= m_marks.size() ? m_marks[line - 1] : none;
}

bool RunLines::isMomentAt(const QTextBlock& block) const
{
    return m_moment > 0 && placedAt(block) == m_moment;
}

QTextBlock RunLines::momentBlock() const
{
    const qsizetype place = m_moment > 0 ? m_placed.indexOf(m_moment) : -1;
    return m_document.findBlockByNumber(static_cast<int>(place));
}

void RunLines::keepLinesWhile(const std::function<void()>& setText)
{
    const QList<int> before = m_placed;
    setText();
    if (before.size() == m_document.blockCount())
        m_placed = before;
}

void RunLines::follow(int position, int /*removed*/, int added)
{
    if (m_placed.isEmpty())
        return;
    const int end = m_document.characterCount() - 1; // the closing separator counts as added now and then
    const int first = m_document.findBlock(std::min(position, end)).blockNumber();
    const int last = m_document.findBlock(std::min(position + added, end)).blockNumber();
    const qsizetype after = last - first + 1;
    const qsizetype before = after + m_placed.size() - m_document.blockCount();
    if (before != after)
        realign({first, before, after});
}

/// Lines that read as before at the end of the change have moved with it; those before them stay in their
/// order, and if they read as before again one day, they have their marks again.
void RunLines::realign(const Change& change)
{
    const qsizetype moved = countUnchangedAtEnd(change);
    const qsizetype kept = std::min(change.before, change.after) - moved;
    const auto gap = m_placed.begin() + change.first + kept;
    const qsizetype grown = change.after - change.before;
    if (grown > 0)
        m_placed.insert(gap - m_placed.begin(), grown, 0);
    else
        m_placed.erase(gap, gap - grown);
}

qsizetype RunLines::countUnchangedAtEnd(const Change& change) const
{
    QTextBlock block = m_document.findBlockByNumber(static_cast<int>(change.first + change.after - 1));
    const qsizetype most = std::min(change.before, change.after);
    qsizetype count = 0;
    while (count < most && isUnchanged(m_placed[change.first + change.before - 1 - count], block)) {
        block = block.previous();
        ++count;
    }
    return count;
}
