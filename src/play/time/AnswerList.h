// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "recording/Recording.h"

#include <QListView>

#include <optional>
#include <string>
#include <vector>

class QStringListModel;

/// Lines that lead to a moment of a run and to a line of its program: a click, or Enter, goes there.
class AnswerList : public QListView
{
    Q_OBJECT
public:
    struct Line {
        std::string text;
        int line = 0; ///< of the program; 0: none
        std::optional<Moment> moment;
    };

    explicit AnswerList(const char* name, const QString& accessibleName);

    void show(std::vector<Line> lines);
    const std::vector<Line>& lines() const { return m_lines; }

Q_SIGNALS:
    void chosen(const AnswerList::Line& line);

private:
    void choose(const QModelIndex& index);

    QStringListModel* m_model;
    std::vector<Line> m_lines;
};
