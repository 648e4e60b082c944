// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/FrameView.h"

#include "sprites/FramePainting.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr int smallestZoomWithGrid = 6;

} // namespace

FrameView::FrameView(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(u"CurrentFrame"_s);
    setAccessibleName(u"Current frame"_s);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
}

void FrameView::showFrame(std::shared_ptr<const Surface> frame)
{
    m_frame = std::move(frame);
    update();
}

void FrameView::paintEvent(QPaintEvent* /*event*/)
{
    if (m_frame == nullptr)
        return;
    QPainter painter(this);
    drawFrame(painter, rect(), *m_frame);
    const int zoom = width() / std::max(1, m_frame->width());
    if (m_cursorShown && hasFocus()) {
        const int side = std::max(1, zoom); // a frame that is larger than the view is shrunk
        const QRect place(m_cursor.x() * width() / m_frame->width(),
                          m_cursor.y() * height() / m_frame->height(), side, side);
        painter.setPen(QPen(Qt::white, 3));
        painter.drawRect(place);
        painter.setPen(QPen(Qt::black, 1));
        painter.drawRect(place);
    }
    if (zoom < smallestZoomWithGrid)
        return;
    painter.setPen(QPen(QColor(90, 105, 130, 60), 0));
    for (int x = 1; x < m_frame->width(); ++x)
        painter.drawLine(x * zoom, 0, x * zoom, height());
    for (int y = 1; y < m_frame->height(); ++y)
        painter.drawLine(0, y * zoom, width(), y * zoom);
}

QPoint FrameView::framePoint(const QMouseEvent& event) const
{
    if (m_frame == nullptr)
        return {};
    const auto scaled = [](double position, int frameSide, int side) {
        return static_cast<int>(std::floor(position * frameSide / std::max(1, side)));
    };
    return {scaled(event.position().x(), m_frame->width(), width()),
            scaled(event.position().y(), m_frame->height(), height())};
}

void FrameView::mousePressEvent(QMouseEvent* event)
{
    m_cursorShown = false;
    const QPoint point = framePoint(*event);
    Q_EMIT mouseDown(event->buttons(), event->modifiers(), point.x(), point.y());
}

void FrameView::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint point = framePoint(*event);
    Q_EMIT mouseMove(event->buttons(), event->modifiers(), point.x(), point.y());
}

void FrameView::mouseReleaseEvent(QMouseEvent* event)
{
    const QPoint point = framePoint(*event);
    Q_EMIT mouseUp(event->buttons(), event->modifiers(), point.x(), point.y());
}

void FrameView::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept(); // the right button picks colors
}

void FrameView::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    m_spacePressed = false;
    Q_EMIT lostFocus();
}

void FrameView::keyPressEvent(QKeyEvent* event)
{
    struct Step {
        int key, x, y;
    };
    static constexpr Step steps[] = {
        {Qt::Key_Left, -1, 0}, {Qt::Key_Right, 1, 0}, {Qt::Key_Up, 0, -1}, {Qt::Key_Down, 0, 1}};
    const auto* const step = std::find_if(std::begin(steps), std::end(steps),
                                          [event](const Step& s) { return s.key == event->key(); });
    const bool isSpace = event->key() == Qt::Key_Space;
    if (m_frame == nullptr || (step == std::end(steps) && !isSpace)) {
        QWidget::keyPressEvent(event);
        return;
    }
    const bool isStroke = m_spacePressed || isSpace;
    const bool begins = isSpace && !m_spacePressed;
    if (!isSpace)
        m_cursor += QPoint(step->x, step->y);
    m_cursor = {std::clamp(m_cursor.x(), 0, m_frame->width() - 1),
                std::clamp(m_cursor.y(), 0, m_frame->height() - 1)};
    m_cursorShown = true;
    m_spacePressed = isStroke;
    update();
    const Qt::MouseButtons buttons = isStroke ? Qt::LeftButton : Qt::NoButton;
    if (begins)
        Q_EMIT mouseDown(buttons, event->modifiers(), m_cursor.x(), m_cursor.y());
    else
        Q_EMIT mouseMove(buttons, event->modifiers(), m_cursor.x(), m_cursor.y());
}

void FrameView::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Space || event->isAutoRepeat()) {
        QWidget::keyReleaseEvent(event);
        return;
    }
    m_spacePressed = false;
    Q_EMIT mouseUp(Qt::NoButton, event->modifiers(), m_cursor.x(), m_cursor.y());
}
