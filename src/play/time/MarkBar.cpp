// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/time/MarkBar.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPolygonF>
#include <QToolTip>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <set>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr int reach = 5; // pixels around a mark that belong to it
constexpr qreal half = 4.5;

struct Look {
    QRgb color;
    const char16_t* text;
};

Look lookOf(RunIndex::MarkKind kind)
{
    switch (kind) {
    case RunIndex::MarkKind::State:
        return {0xff2482e0, u"a new state"};
    case RunIndex::MarkKind::Creation:
        return {0xff35a636, u"something was created"};
    case RunIndex::MarkKind::Destruction:
        return {0xffe07020, u"something was destroyed"};
    case RunIndex::MarkKind::Collision:
        return {0xff7a49d6, u"something was hit"};
    case RunIndex::MarkKind::Pause:
        return {0xff808890, u"a pause"};
    case RunIndex::MarkKind::Mistake:
        return {0xffdd3d3d, u"the mistake"};
    }
    return {};
}

void drawMark(QPainter& painter, RunIndex::MarkKind kind, QPointF at)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(lookOf(kind).color));
    const QRectF box(at - QPointF(half, half), QSizeF(2 * half, 2 * half));
    switch (kind) {
    case RunIndex::MarkKind::State:
        painter.drawRect(box.adjusted(2.5, -1, -2.5, 1));
        break;
    case RunIndex::MarkKind::Creation:
        painter.drawEllipse(box);
        break;
    case RunIndex::MarkKind::Destruction:
    case RunIndex::MarkKind::Mistake:
        painter.setPen(QPen(painter.brush().color(), kind == RunIndex::MarkKind::Mistake ? 3.5 : 2.2));
        painter.drawLine(box.topLeft(), box.bottomRight());
        painter.drawLine(box.topRight(), box.bottomLeft());
        break;
    case RunIndex::MarkKind::Collision:
        painter.drawPolygon(QPolygonF(
            {at - QPointF(0, half), at + QPointF(half, 0), at + QPointF(0, half), at - QPointF(half, 0)}));
        break;
    case RunIndex::MarkKind::Pause:
        painter.drawRect(QRectF(box.left(), box.top(), 3, box.height()));
        painter.drawRect(QRectF(box.right() - 3, box.top(), 3, box.height()));
        break;
    }
}

} // namespace

MarkBar::MarkBar(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(u"Marks"_s);
    setAccessibleName(u"What happened when"_s);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void MarkBar::show(std::vector<RunIndex::Mark> marks, std::int64_t frames, int inset)
{
    m_marks = std::move(marks);
    m_frames = frames;
    m_inset = inset;
    update();
}

int MarkBar::placeOf(const RunIndex::Mark& mark) const
{
    const std::int64_t room = width() - 2 * m_inset;
    return m_inset + (m_frames > 0 ? static_cast<int>(room * mark.moment.frame / m_frames) : 0);
}

void MarkBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // A long run has thousands; more than one of a kind at a place would not be seen.
    std::set<std::pair<int, RunIndex::MarkKind>> drawn;
    for (const RunIndex::Mark& mark : m_marks) {
        const int x = placeOf(mark);
        if (drawn.insert({x, mark.kind}).second)
            drawMark(painter, mark.kind, QPointF(x, height() / 2.0));
    }
}

const RunIndex::Mark* MarkBar::nearest(int x) const
{
    const auto distance = [&](const RunIndex::Mark& mark) { return std::abs(placeOf(mark) - x); };
    const auto best = std::ranges::min_element(m_marks, {}, distance);
    return best != m_marks.end() && distance(*best) <= reach ? &*best : nullptr;
}

void MarkBar::mousePressEvent(QMouseEvent* event)
{
    if (const RunIndex::Mark* mark = nearest(event->position().toPoint().x()))
        Q_EMIT momentChosen(mark->moment);
}

bool MarkBar::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    if (const RunIndex::Mark* mark = nearest(help.pos().x()))
        QToolTip::showText(
            help.globalPos(),
            u"Frame %1: %2"_s.arg(mark->moment.frame + 1).arg(QString::fromUtf16(lookOf(mark->kind).text)),
            this);
    else
        QToolTip::hideText();
    return true;
}
