#include "library/TileArea.h"

#include "library/GamePictures.h"
#include "library/TrayMath.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace
{

constexpr int iconOffset = 15;   // below the title
constexpr int authorOffset = 95; // below the icon
constexpr int lineHeight = 16;
constexpr int largestText = 13; // in pixels: the place above the icon does not grow with the desktop's font
constexpr int smallestText = 10;
constexpr int narrowestText = 75; // percent

/// A font in which `text` fits into `width`: narrower letters first, then smaller ones.
QFont fittingFont(QFont font, const QString& text, int width)
{
    for (int pixels = largestText; pixels >= smallestText; --pixels) {
        font.setPixelSize(pixels);
        for (int percent = QFont::Unstretched; percent >= narrowestText; percent -= 5) {
            font.setStretch(percent);
            if (QFontMetrics(font).horizontalAdvance(text) <= width)
                return font;
        }
    }
    return font;
}

} // namespace

TileArea::TileArea(const char* objectName, int slotWidth, QWidget* parent)
    : QWidget(parent)
    , m_slotWidth(slotWidth)
{
    setObjectName(QLatin1String(objectName));
    setMinimumSize(sizeHint());
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

void TileArea::drawText(QPainter& painter, const QString& text, QPoint at, bool italic) const
{
    QFont plain = font();
    plain.setItalic(italic);
    plain = fittingFont(plain, text.trimmed(),
                        m_slotWidth - firstTileLeft - 4); // the last tile's slot ends early
    painter.setFont(plain);
    const QPoint baseline = at + QPoint(0, QFontMetrics(plain).ascent());
    painter.setPen(Qt::black);
    painter.drawText(baseline + QPoint(1, 1), text);
    painter.setPen(Qt::white);
    painter.drawText(baseline, text);
}

void TileArea::drawTile(QPainter& painter, const Tile& tile) const
{
    const QPoint at(tile.left, tile.top);
    drawText(painter, tile.title, at, false);
    painter.drawPixmap(at + QPoint(0, iconOffset), tile.icon);
    drawText(painter, tile.author, at + QPoint(0, authorOffset), true);
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
            painter.drawRoundedRect(tile.left - 10, tile.top - 6, m_slotWidth, authorOffset + lineHeight + 11,
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

void TileArea::focusOutEvent(QFocusEvent* event)
{
    setMarked(-1);
    QWidget::focusOutEvent(event);
}
