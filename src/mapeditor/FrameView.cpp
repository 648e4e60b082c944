#include "mapeditor/FrameView.h"

#include "mapeditor/FramePainting.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace
{

constexpr int smallestZoomWithGrid = 6;
constexpr int farthest = 99; // how far beyond the left and top edge a stroke is followed

} // namespace

FrameView::FrameView(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("CurrentFrame"));
    setAccessibleName(QStringLiteral("Current frame"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
}

void FrameView::showFrame(const Surface* frame)
{
    m_frame = frame;
    update();
}

void FrameView::paintEvent(QPaintEvent* /*event*/)
{
    if (m_frame == nullptr)
        return;
    QPainter painter(this);
    drawFrame(painter, rect(), *m_frame);
    const int zoom = width() / std::max(1, m_frame->width());
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
        return std::max(-farthest, static_cast<int>(std::floor(position * frameSide / std::max(1, side))));
    };
    return {scaled(event.position().x(), m_frame->width(), width()),
            scaled(event.position().y(), m_frame->height(), height())};
}

void FrameView::mousePressEvent(QMouseEvent* event)
{
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
    event->accept(); // the right button picks colours
}

void FrameView::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    Q_EMIT lostFocus();
}
