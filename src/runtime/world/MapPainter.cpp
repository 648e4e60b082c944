// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/world/MapPainter.h"

#include "platform/Rounding.h"

#include <algorithm>

namespace
{

constexpr Pixel nothingHere = 0; // no color has this value: all of them are opaque

int edge(int extent, std::uint64_t index, int count)
{
    return static_cast<int>(roundHalfEven(extent * static_cast<double>(index) / count));
}

} // namespace

MapPainter::MapPainter(Surface& picture, std::span<const MapSquare> squares, int columns, int rows, int layer)
    : m_picture(picture)
    , m_squares(squares)
    , m_columns(columns)
    , m_rows(rows)
    , m_layer(layer)
    , m_memory(m_room.data(), m_room.size())
    , m_edges(&m_memory)
    , m_line(&m_memory)
    , m_drawn(&m_memory)
{
}

void MapPainter::paint()
{
    const std::uint64_t columns = static_cast<unsigned>(m_columns);
    const std::uint64_t storedColumns = std::min<std::uint64_t>(m_squares.size(), columns);
    const std::uint64_t storedRows =
        std::min<std::uint64_t>((m_squares.size() + columns - 1) / columns, static_cast<unsigned>(m_rows));
    m_edges.resize(storedColumns + 1);
    for (std::uint64_t column = 0; column <= storedColumns; ++column)
        m_edges[column] = edge(m_picture.width(), column, m_columns);
    for (std::uint64_t row = 0; row < storedRows;)
        row = paintBand(row, storedRows);
}

int MapPainter::rowEdge(std::uint64_t row) const
{
    return edge(m_picture.height(), row, m_rows);
}

/// Paints `first` and the rows after it that cover the same picture lines; returns the row after them.
std::uint64_t MapPainter::paintBand(std::uint64_t first, std::uint64_t storedRows)
{
    const int top = rowEdge(first);
    const int bottom = rowEdge(first + 1);
    std::uint64_t end = first + 1;
    while (end < storedRows && rowEdge(end) == top && rowEdge(end + 1) == bottom)
        ++end;

    m_line.assign(static_cast<std::size_t>(m_picture.width()), nothingHere);
    m_drawn.assign(m_edges.size(), 0);
    for (std::uint64_t row = end; row-- > first;) // backwards: what is drawn last is what is seen
        composeRow(row);
    layOver(top, bottom);
    return end;
}

void MapPainter::layOver(int top, int bottom)
{
    for (int y = top; y <= std::min(bottom, m_picture.height() - 1); ++y) {
        const std::span<Pixel> to = m_picture.row(y);
        for (std::size_t x = 0; x < to.size(); ++x)
            to[x] = m_line[x] == nothingHere ? to[x] : m_line[x];
    }
}

void MapPainter::composeRow(std::uint64_t row)
{
    const std::uint64_t start = row * static_cast<unsigned>(m_columns);
    std::uint64_t column = std::min<std::uint64_t>(m_squares.size() - start, m_edges.size() - 1);
    while (column > 0) {
        --column;
        const int left = m_edges[column];
        const int right = m_edges[column + 1];
        unsigned flags = static_cast<unsigned>(m_squares[start + column].ToLong());
        while (column > 0 && m_edges[column - 1] == left && m_edges[column] == right)
            flags |= static_cast<unsigned>(m_squares[start + --column].ToLong());
        flags &= ~static_cast<unsigned>(m_drawn[column]);
        m_drawn[column] = static_cast<std::uint8_t>(m_drawn[column] | flags);
        if (m_layer >= 0)
            composeStripe(left, right, m_layer, 1, flags >> static_cast<unsigned>(m_layer));
        else
            for (int color = 0; flags != 0; ++color, flags >>= 1U)
                composeStripe(left + color, right, color, mapColorCount, flags);
    }
}

void MapPainter::composeStripe(int left, int right, int color, int step, unsigned flag)
{
    if ((flag & 1U) == 0)
        return;
    const int last = std::min(right, m_picture.width() - 1);
    for (int x = left; x <= last; x += step) {
        Pixel& pixel = m_line[static_cast<std::size_t>(x)];
        if (pixel == nothingHere)
            pixel = ColorTable[static_cast<std::size_t>(color)];
    }
}
