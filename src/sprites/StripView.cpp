// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/StripView.h"

#include "sprites/FramePainting.h"
#include "sprites/SpriteModel.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr int gap = 10;
constexpr int margin = 6;

} // namespace

StripView::StripView(const SpriteModel& model, int side, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_side(side)
{
    setObjectName(u"Strip"_s);
    setAccessibleName(u"Frames"_s);
    setToolTip(u"Click a frame to draw on it; drag it to another place"_s);
    setFocusPolicy(Qt::StrongFocus);
    refresh();
}

int StripView::labelHeight() const
{
    return fontMetrics().height() + 2;
}

void StripView::refresh()
{
    setFixedSize(2 * margin + m_model.frameCount() * (m_side + gap) - gap,
                 2 * margin + m_side + labelHeight());
    update();
}

QRect StripView::frameRect(int index) const
{
    return {margin + index * (m_side + gap), margin, m_side, m_side};
}

void StripView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const int first = indexAt(QPointF(event->rect().topLeft()));
    for (int index = first; index < m_model.frameCount(); ++index) {
        const QRect area = frameRect(index);
        if (area.left() - gap > event->rect().right())
            break;
        const auto frame = m_model.frame(index);
        drawFrame(painter, fitFrame(area, frame->width(), frame->height()), *frame);
        const bool isCurrent = index == m_model.currentIndex();
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(isCurrent ? palette().highlight() : palette().mid(), isCurrent ? 4 : 1));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.drawRoundedRect(QRectF(area).adjusted(-2, -2, 2, 2), 5, 5);
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(palette().color(QPalette::WindowText));
        QFont font = painter.font();
        font.setBold(isCurrent);
        painter.setFont(font);
        painter.drawText(QRect(area.left(), area.bottom() + 4, m_side, labelHeight()), Qt::AlignCenter,
                         QString::number(index + 1));
    }
}

int StripView::indexAt(const QPointF& position) const
{
    const int index = (static_cast<int>(position.x()) - margin + gap / 2) / (m_side + gap);
    return std::clamp(index, 0, m_model.frameCount() - 1);
}

void StripView::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->position();
    m_isDragging = false;
    Q_EMIT picked(indexAt(event->position()));
}

void StripView::mouseMoveEvent(QMouseEvent* event)
{
    if (!event->buttons().testFlag(Qt::LeftButton))
        return;
    const bool isFar = (event->position() - m_pressed).manhattanLength() >= QApplication::startDragDistance();
    if (!m_isDragging && isFar) {
        m_isDragging = true;
        Q_EMIT dragStarted();
    }
    const int index = indexAt(event->position());
    if (m_isDragging && index != m_model.currentIndex())
        Q_EMIT dragged(index);
}

void StripView::mouseReleaseEvent(QMouseEvent* /*event*/)
{
    if (m_isDragging)
        Q_EMIT dragEnded();
    m_isDragging = false;
}

void StripView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right)
        Q_EMIT picked(m_model.currentIndex() + (event->key() == Qt::Key_Left ? -1 : 1));
    else
        QWidget::keyPressEvent(event);
}
