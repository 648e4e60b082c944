// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "play/spy/HistoryModel.h"

#include <QListView>

/// The list box that shows the history. It follows the end of the history unless the user has scrolled up;
/// what the user looks at then stays in place as long as it is not dropped.
class HistoryList : public QListView
{
    Q_OBJECT
public:
    explicit HistoryList(QWidget* parent = nullptr);

    HistoryModel& lines() { return *m_model; }
    /// Shows what has arrived since the last call.
    void refresh();
    void selectLastLine();
    /// Shows these lines, the last selected, in the place of the history; nothing: the history again.
    void showInstead(std::optional<std::deque<QString>> lines, std::deque<QString> explanations);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers held) override;

private:
    void scrolled(int value);
    void rangeChanged(int lowest, int highest);

    HistoryModel* m_model;
    bool m_followsEnd = true;
    bool m_moving = false; ///< it is us who scroll, not the user
};
