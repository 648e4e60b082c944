// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"
#include "runtime/world/ZBMap.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <span>
#include <vector>

/// Draws one picture of a map, row by row. A row is composed as one line of pixels, which is then laid over
/// all picture lines that the row covers. Rows and columns that are too fine to tell apart are composed
/// together, so that the time depends on the picture and only in one quick pass on the number of squares.
///
/// Rectangles of neighbouring squares share their edge, and what is drawn later covers what was drawn before.
/// A line is therefore composed backwards, and only where nothing stands yet: each pixel is written once.
class MapPainter
{
public:
    /// `squares` may be fewer than the columns and rows; `layer` is a color, or -1 for all as stripes.
    MapPainter(Surface& picture, std::span<const MapSquare> squares, int columns, int rows, int layer);
    void paint();

private:
    int rowEdge(std::uint64_t row) const;
    std::uint64_t paintBand(std::uint64_t first, std::uint64_t storedRows);
    void composeRow(std::uint64_t row);
    void composeStripe(int left, int right, int color, int step, unsigned flag);
    void layOver(int top, int bottom);

    Surface& m_picture;
    std::span<const MapSquare> m_squares;
    int m_columns;
    int m_rows;
    int m_layer;
    // A frame of a game must not allocate: a map and a field of ordinary size find their room right here.
    std::array<std::byte, 8192> m_room;
    std::pmr::monotonic_buffer_resource m_memory;
    std::pmr::vector<int> m_edges;          ///< left edges of the columns
    std::pmr::vector<Pixel> m_line;         ///< the composed line
    std::pmr::vector<std::uint8_t> m_drawn; ///< flags that a later row of the band has drawn
};
