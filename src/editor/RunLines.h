// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "forms/LineMarks.h"

#include <QList>
#include <QObject>
#include <QTextBlock>

#include <functional>
#include <vector>

class QTextDocument;

/// Knows how a run went through the lines of its program, and where in a document these lines stand while it
/// is written on. Lines of the run count from 1. A line has its mark only as long as it reads as it did when
/// the run began; blanks around it do not count.
class RunLines : public QObject
{
    Q_OBJECT

public:
    explicit RunLines(const QTextDocument& document, QObject* parent = nullptr);

    /// The document is what is about to run. What is known of the run before goes.
    void begin();
    /// There has been no run.
    void forget();
    void setMarks(std::vector<LineMark> marks);
    bool hasMarks() const { return !m_marks.empty(); }
    void setMoment(int runLine);
    bool hasMoment() const { return m_moment > 0; }

    /// The line of the run that stands here as it was; 0 for none.
    int lineAt(const QTextBlock& block) const;
    const LineMark& markAt(const QTextBlock& block) const;
    bool isMomentAt(const QTextBlock& block) const;
    /// Where the moment that is shown stands, changed or not. Invalid where there is none, or its line is
    /// gone.
    QTextBlock momentBlock() const;

    /// Gives the document a new text whose lines are those that it has, but for their indentation.
    void keepLinesWhile(const std::function<void()>& setText);

private:
    /// A part of the document's lines, before and after a change.
    struct Change {
        qsizetype first;
        qsizetype before;
        qsizetype after;
    };

    void follow(int position, int removed, int added);
    void realign(const Change& change);
    qsizetype countUnchangedAtEnd(const Change& change) const;
    int placedAt(const QTextBlock& block) const;
    bool isUnchanged(int runLine, const QTextBlock& block) const;

    const QTextDocument& m_document;
    QList<int> m_placed;     ///< for each block of the document its line of the run, 0 for none
    QList<size_t> m_content; ///< of each line of the run, hashed
    std::vector<LineMark> m_marks;
    int m_moment = 0;
};
