// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "mapeditor/MapDisplay.h"

#include <QMouseEvent>

#include <cmath>

namespace
{

using namespace Qt::StringLiterals;

QPoint pixelUnder(const QMouseEvent& event)
{
    return {static_cast<int>(std::floor(event.position().x())),
            static_cast<int>(std::floor(event.position().y()))};
}

} // namespace

MapDisplay::MapDisplay(QWidget* parent)
    : PictureArea("Display", parent)
{
    setAccessibleName(u"Map"_s);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
}

void MapDisplay::mousePressEvent(QMouseEvent* event)
{
    const QPoint point = pixelUnder(*event);
    Q_EMIT mouseDown(point.x(), point.y());
}

void MapDisplay::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint point = pixelUnder(*event);
    Q_EMIT mouseMove(point.x(), point.y());
}

void MapDisplay::mouseReleaseEvent(QMouseEvent* /*event*/)
{
    Q_EMIT mouseUp();
}

void MapDisplay::leaveEvent(QEvent* /*event*/)
{
    Q_EMIT mouseLeft();
}
