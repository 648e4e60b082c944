#include "mapeditor/FramePainting.h"

#include "mapeditor/SpriteModel.h"

#include <QPainter>

#include <algorithm>

QImage imageOfFrame(const Surface& frame)
{
    const std::span<const Pixel> pixels = frame.pixels();
    return QImage(reinterpret_cast<const uchar*>(pixels.data()), frame.width(), frame.height(),
                  static_cast<qsizetype>(frame.width()) * static_cast<qsizetype>(sizeof(Pixel)),
                  QImage::Format_ARGB32_Premultiplied); // opaque or nothing at all: premultiplied either way
}

void drawCheckerboard(QPainter& painter, const QRect& area, int side)
{
    QImage tile(2 * side, 2 * side, QImage::Format_RGB32);
    tile.fill(0xfffdfdfd);
    QPainter tilePainter(&tile);
    for (const int at : {0, side})
        tilePainter.fillRect(at, at, side, side, QColor(0xcf, 0xd6, 0xe2));
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
    drawCheckerboard(painter, area, std::clamp(zoom / 2, 2, 16));
    painter.drawImage(area, imageOfFrame(frame));
}

void drawColour(QPainter& painter, const QRect& area, Pixel colour)
{
    if (colour == transparent)
        drawCheckerboard(painter, area, 6);
    else
        painter.fillRect(area, QColor::fromRgb(colour));
}

QRect fitFrame(const QRect& area, int width, int height)
{
    QSize size(width, height);
    const int zoom = std::min(area.width() / std::max(1, width), area.height() / std::max(1, height));
    size = zoom >= 1 ? size * zoom : size.scaled(area.size(), Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    return QRect(area.x() + (area.width() - size.width()) / 2, area.y() + (area.height() - size.height()) / 2,
                 size.width(), size.height());
}
