// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <algorithm>

/// The rule for one line in its plainest form, to compare the editor with: `p` is a position in a text whose
/// lines end with CR LF. Returns the position behind the line's indentation.
inline qsizetype plainIndentLine(QString& text, qsizetype p)
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
