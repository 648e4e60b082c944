// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "library/TileArea.h"

#include "library/GamePictures.h"
#include "library/TrayLayout.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace
{

constexpr int iconOffset = 15;   // below the title
constexpr int authorOffset = 95; // below the icon
constexpr int lineHeight = 16;
constexpr int textSize = 13; // in pixels: the place above the icon does not grow with the desktop's font
constexpr int smallTextSize = 10;
constexpr int smallLineHeight = 11; // of two lines, which share the place of one and what is free beside it
constexpr double narrowest = 0.7;   // at the full size

/// How much narrower than it is a text must be drawn to find room.
double narrowingOf(const QFont& font, const QString& text, double room)
{
    return std::min(1.0, room / std::max(1, QFontMetrics(font).horizontalAdvance(text.trimmed())));
}

/// White letters with a black shadow.
void drawLine(QPainter& painter, const QString& text, QPoint at, const QFont& font, double room)
{
    // Long texts get narrow letters. A narrow font would look the same, but take its time to be found.
    const double narrow = narrowingOf(font, text, room);
    const QFontMetrics metrics(font);
    painter.save();
    painter.setClipRect(QRectF(at, QSizeF(room + 2, lineHeight + 1)));
    painter.setFont(font);
    painter.translate(at);
    painter.scale(narrow, 1);
    painter.setPen(Qt::black);
    painter.drawText(QPointF(1 / narrow, metrics.ascent() + 1), text);
    painter.setPen(Qt::white);
    painter.drawText(QPointF(0, metrics.ascent()), text);
    painter.restore();
}

} // namespace

TileArea::TileArea(const char* objectName, int slotWidth, QWidget* parent)
    : QWidget(parent)
    , m_slotWidth(slotWidth)
{
    setObjectName(QLatin1String(objectName));
    setMinimumSize(TileArea::sizeHint());
}

QSize TileArea::sizeHint() const
{
    return {firstTileLeft + iconSide + firstTileLeft, tileTop + authorOffset + lineHeight + tileTop};
}

void TileArea::setBackdrop(const QPixmap& backdrop, QPoint origin)
{
    m_backdrop = backdrop;
    m_origin = origin;
    update();
}

void TileArea::setSlotWidth(int width)
{
    m_slotWidth = width;
    update();
}

void TileArea::clear()
{
    m_tiles.clear();
    update();
}

void TileArea::addTile(Tile tile)
{
    m_tiles.push_back(std::move(tile));
    update();
}

void TileArea::setMarked(int slot)
{
    m_marked = slot;
    update();
}

void TileArea::drawText(QPainter& painter, const QString& text, QPoint at, Place place) const
{
    QFont plain = font();
    plain.setPixelSize(textSize);
    plain.setItalic(place == Place::BelowIcon);
    // Up to the frame of a marked tile; the last tile's slot ends early.
    const double room = std::min(m_slotWidth - 12, width() - at.x() - 4);
    if (narrowingOf(plain, text, room) < narrowest)
        plain.setPixelSize(smallTextSize);
    if (narrowingOf(plain, text, room) >= narrowest)
        return drawLine(painter, text, at, plain, room);
    const auto [first, second] = inTwoLines(text);
    at.ry() -= place == Place::AboveIcon ? smallLineHeight - 2 : 2;
    drawLine(painter, first, at, plain, room);
    drawLine(painter, second, at + QPoint(0, smallLineHeight), plain, room);
}

void TileArea::drawTile(QPainter& painter, const Tile& tile) const
{
    const QPoint at(tile.left, tile.top);
    drawText(painter, tile.title, at, Place::AboveIcon);
    painter.drawPixmap(at + QPoint(0, iconOffset), tile.icon);
    drawText(painter, tile.author, at + QPoint(0, authorOffset), Place::BelowIcon);
}

void TileArea::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, devicePixelRatioF() != 1);
    painter.drawPixmap(QRect(QPoint(), size()), m_backdrop,
                       QRectF(QPointF(m_origin) * m_backdrop.devicePixelRatio(),
                              QSizeF(size()) * m_backdrop.devicePixelRatio())
                           .toRect());
    for (int slot = 0; slot < count(); ++slot) {
        const Tile& tile = m_tiles[static_cast<std::size_t>(slot)];
        if (slot == m_marked) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(QPen(palette().highlight(), 3));
            painter.setBrush(QColor(255, 255, 255, 70));
            painter.drawRoundedRect(tile.left - 10, tile.top - 8, m_slotWidth, authorOffset + lineHeight + 15,
                                    8, 8);
        }
        drawTile(painter, tile);
    }
}

void TileArea::mousePressEvent(QMouseEvent* event)
{
    Q_EMIT pressed(event->position().toPoint().x());
}

void TileArea::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        Q_EMIT keyPressed(event->key());
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void TileArea::focusInEvent(QFocusEvent* event)
{
    const bool byKey = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (byKey && count() > 0)
        setMarked(0); // shows where the keys are now
    QWidget::focusInEvent(event);
}

void TileArea::focusOutEvent(QFocusEvent* event)
{
    setMarked(-1);
    QWidget::focusOutEvent(event);
}
