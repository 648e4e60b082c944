// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "mapeditor/MapPainting.h"

#include "platform/Rounding.h"

#include <cmath>

namespace
{

/// The square that covers pixel `at` of `extent`.
int squareAt(int at, int count, int extent)
{
    return roundToInt(std::floor(static_cast<double>(at) * count / extent));
}

} // namespace

void Brush::paint(ZBMap& map, int index) const
{
    if (!deletes)
        map.set_offset(index, color, true);
    else if (onlyColor)
        map.set_offset(index, color, false);
    else
        map.set_offset_all(index, false);
}

void MapPainting::create(int squares)
{
    m_map.Create(squares, squares);
    m_saved.Create(squares, squares);
}

bool MapPainting::load(std::string_view text)
{
    const bool isWhole = m_map.fromText(text);
    noteSaved();
    return isWhole;
}

GridPlace MapPainting::placeAt(int x, int y, int width, int height) const
{
    return {squareAt(x, m_map.columns, width), squareAt(y, m_map.rows, height)};
}

void MapPainting::beginStroke()
{
    m_mouseDown = true;
    m_lastColumn = -1;
}

bool MapPainting::strokeTo(GridPlace place, const Brush& brush)
{
    const bool changed = m_lastColumn == -1 ? drawOn(place.column, place.row, brush) : drawLine(place, brush);
    m_lastColumn = place.column;
    m_lastRow = place.row;
    return changed;
}

/// The mouse is told of only now and then, so two places may lie far apart. One step for each square of the
/// distance between them: no step leaves a square out.
bool MapPainting::drawLine(GridPlace to, const Brush& brush)
{
    const int columns = to.column - m_lastColumn;
    const int rows = to.row - m_lastRow;
    const double distance = std::hypot(columns, rows);
    bool changed = false;
    double x = m_lastColumn;
    double y = m_lastRow;
    for (int step = 0; distance > 0 && step <= distance; ++step) {
        changed |= drawOn(roundToInt(x), roundToInt(y), brush);
        x += columns / distance;
        y += rows / distance;
    }
    return changed;
}

bool MapPainting::drawOn(int column, int row, const Brush& brush)
{
    if (column < 0 || row < 0 || column >= m_map.columns || row >= m_map.rows)
        return false;
    const int index = row * m_map.columns + column;
    const MapSquare before = m_map.square(index);
    brush.paint(m_map, index);
    return !m_map.square(index).Same(before);
}
