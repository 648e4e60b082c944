// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "forms/PictureArea.h"

#include "platform/qt/SurfaceImage.h"

#include <QPaintEvent>
#include <QPainter>

namespace forms
{

PictureArea::PictureArea(const char* objectName, QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QLatin1String(objectName));
    setAccessibleName(QLatin1String(objectName));
    setAttribute(Qt::WA_OpaquePaintEvent); // paintEvent covers every pixel, nothing has to be cleared before
}

void PictureArea::showSurface(const Surface* surface)
{
    m_surface = surface;
    update();
}

void PictureArea::paintEvent(QPaintEvent* event)
{
    const Surface* const shown = surface();
    const QRect picture = shown == nullptr ? QRect() : QRect(0, 0, shown->width(), shown->height());
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    const QRect part = event->rect().intersected(picture);
    if (!part.isEmpty())
        painter.drawImage(part, viewOfSurface(*shown), part);
    if (part == event->rect())
        return;
    for (const QRect& bare : QRegion(event->rect()).subtracted(part))
        painter.fillRect(bare, palette().window());
}

} // namespace forms
