// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/spy/HistoryList.h"

#include "play/spy/LineDelegate.h"

#include <QEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

HistoryList::HistoryList(QWidget* parent)
    : QListView(parent)
    , m_model(new HistoryModel(this))
{
    setModel(m_model);
    setUniformItemSizes(true);
    setItemDelegate(new LineDelegate(this));
    setHorizontalScrollMode(ScrollPerPixel);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerItem);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &HistoryList::scrolled);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, &HistoryList::rangeChanged);
}

void HistoryList::refresh()
{
    if (!m_model->hasNews())
        return;
    const QScopedValueRollback moving(m_moving, true);
    const int dropped = m_model->rowsToDrop();
    // A selected line that goes takes its selection along; left to itself, the selection would walk on and
    // the list would scroll after it.
    if (currentIndex().isValid() && currentIndex().row() < dropped) {
        clearSelection();
        setCurrentIndex(QModelIndex());
    }
    const int first = verticalScrollBar()->value();
    m_model->publish();
    if (m_followsEnd) {
        scrollToBottom();
    } else {
        executeDelayedItemsLayout();
        verticalScrollBar()->setValue(std::max(first - dropped, 0));
    }
}

void HistoryList::selectLastLine()
{
    refresh();
    const QScopedValueRollback moving(m_moving, true);
    m_followsEnd = true;
    setCurrentIndex(m_model->index(m_model->rowCount() - 1));
    scrollToBottom();
}

void HistoryList::showInstead(std::optional<std::deque<QString>> lines, std::deque<QString> explanations)
{
    m_model->showInstead(std::move(lines), std::move(explanations));
    selectLastLine();
}

void HistoryList::resizeEvent(QResizeEvent* event)
{
    const QScopedValueRollback moving(m_moving, true);
    QListView::resizeEvent(event);
    if (m_followsEnd)
        scrollToBottom();
}

bool HistoryList::event(QEvent* event)
{
    if (event->type() != QEvent::Show)
        return QListView::event(event);
    // The toolkit scrolls to the selected line, which the run may have left far behind.
    const QScopedValueRollback moving(m_moving, true);
    const bool handled = QListView::event(event);
    if (m_followsEnd)
        scrollToBottom();
    return handled;
}

QModelIndex HistoryList::moveCursor(CursorAction action, Qt::KeyboardModifiers held)
{
    if (currentIndex().isValid() || action == MoveHome)
        return QListView::moveCursor(action, held);
    // Nothing is selected: begin where the user looks, not at the top.
    return action == MoveEnd ? m_model->index(m_model->rowCount() - 1) : indexAt(QPoint(1, 1));
}

void HistoryList::rangeChanged(int, int highest)
{
    const QScopedValueRollback moving(m_moving, true); // lines are laid out when there is time for it
    if (m_followsEnd)
        verticalScrollBar()->setValue(highest);
}

void HistoryList::scrolled(int value)
{
    if (!m_moving)
        m_followsEnd = value >= verticalScrollBar()->maximum();
}
