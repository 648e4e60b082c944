// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "mapeditor/MapCanvas.h"

#include "platform/Rounding.h"
#include "runtime/world/Field.h"

#include <QPainter>

#include <algorithm>

namespace
{

using namespace Qt::StringLiterals;

constexpr int smallestSide = 160;
constexpr int ruler = 12;
constexpr int smallestStep = 3;

/// Draws the marks of `count` squares along `extent` pixels; `place` makes the rectangle from start and
/// length.
template<typename Place>
void drawRuler(QPainter& painter, const QPalette& colors, int extent, int count, int marked, Place place)
{
    if (count <= 0 || extent / count < smallestStep)
        return;
    int start = 0;
    for (int index = 0; index < count; ++index) {
        const int end = roundToInt(static_cast<double>(extent) * (index + 1) / count);
        const QBrush& brush = index == marked  ? colors.highlight()
                              : index % 2 == 0 ? colors.mid()
                                               : colors.midlight();
        painter.fillRect(place(start, end - start), brush);
        start = end;
    }
}

} // namespace

MapCanvas::MapCanvas(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(u"Canvas"_s);
}

QSize MapCanvas::sizeHint() const
{
    return {fieldSize + 2 * ruler, fieldSize + 2 * ruler}; // a map as large as in the game
}

QSize MapCanvas::minimumSizeHint() const
{
    return {smallestSide + 2 * ruler, smallestSide + 2 * ruler};
}

QRect MapCanvas::displayRect() const
{
    const int side = std::max(1, std::min(width(), height()) - 2 * ruler);
    return {(width() - side) / 2, (height() - side) / 2, side, side};
}

void MapCanvas::setGrid(int columns, int rows)
{
    m_columns = columns;
    m_rows = rows;
    update();
}

void MapCanvas::setMarked(int column, int row)
{
    if (column == m_column && row == m_row)
        return;
    m_column = column;
    m_row = row;
    update();
}

void MapCanvas::paintEvent(QPaintEvent* /*event*/)
{
    constexpr int thick = ruler - 4;
    QPainter painter(this);
    const QRect area = displayRect();
    drawRuler(painter, palette(), area.width(), m_columns, m_column, [&](int start, int length) {
        return QRect(area.left() + start, area.top() - ruler + 2, length, thick);
    });
    drawRuler(painter, palette(), area.width(), m_columns, m_column, [&](int start, int length) {
        return QRect(area.left() + start, area.bottom() + 3, length, thick);
    });
    drawRuler(painter, palette(), area.height(), m_rows, m_row, [&](int start, int length) {
        return QRect(area.left() - ruler + 2, area.top() + start, thick, length);
    });
    drawRuler(painter, palette(), area.height(), m_rows, m_row, [&](int start, int length) {
        return QRect(area.right() + 3, area.top() + start, thick, length);
    });
    painter.setPen(palette().color(QPalette::Shadow));
    painter.drawRect(area.adjusted(-1, -1, 0, 0));
}

void MapCanvas::resizeEvent(QResizeEvent* /*event*/)
{
    Q_EMIT resized();
}
