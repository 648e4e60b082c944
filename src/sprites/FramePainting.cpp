// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/FramePainting.h"

#include "sprites/SpriteModel.h"

#include <QPainter>

#include <algorithm>

namespace
{

constexpr int smallestPeriod = 4;
constexpr int largestPeriod = 64;

} // namespace

QImage imageOfFrame(const Surface& frame)
{
    const std::span<const Pixel> pixels = frame.pixels();
    return QImage(reinterpret_cast<const uchar*>(pixels.data()), frame.width(), frame.height(),
                  static_cast<qsizetype>(frame.width()) * static_cast<qsizetype>(sizeof(Pixel)),
                  QImage::Format_ARGB32_Premultiplied);
}

void drawCheckerboard(QPainter& painter, const QRect& area, int period)
{
    QImage tile(period, period, QImage::Format_RGB32);
    tile.fill(0xfffdfdfd);
    QPainter tilePainter(&tile);
    const QRect first(0, 0, period / 2, period / 2);
    for (const QRect& square : {first, QRect(first.bottomRight() + QPoint(1, 1), tile.rect().bottomRight())})
        tilePainter.fillRect(square, QColor(0xcf, 0xd6, 0xe2));
    tilePainter.end();
    QBrush brush(tile);
    painter.save();
    painter.setBrushOrigin(area.topLeft());
    painter.fillRect(area, brush);
    painter.restore();
}

void drawFrame(QPainter& painter, const QRect& area, const Surface& frame)
{
    const int zoom = std::max(1, area.width() / std::max(1, frame.width()));
    // The same squares on every pixel, so that they stay in step with the grid between them.
    drawCheckerboard(painter, area, zoom <= largestPeriod ? std::max(zoom, smallestPeriod) : largestPeriod);
    painter.drawImage(area, imageOfFrame(frame));
}

void drawColor(QPainter& painter, const QRect& area, Pixel color)
{
    if (color == transparent)
        drawCheckerboard(painter, area, 12);
    else
        painter.fillRect(area, QColor::fromRgb(color));
}

QRect fitFrame(const QRect& area, int width, int height)
{
    QSize size(width, height);
    const int zoom = std::min(area.width() / std::max(1, width), area.height() / std::max(1, height));
    size = zoom >= 1 ? size * zoom : size.scaled(area.size(), Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    return QRect(area.x() + (area.width() - size.width()) / 2, area.y() + (area.height() - size.height()) / 2,
                 size.width(), size.height());
}
