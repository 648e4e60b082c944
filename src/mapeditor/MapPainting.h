// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "runtime/world/ZBMap.h"

#include <cstdint>
#include <string_view>

/// A square of the grid, or a place beside it.
struct GridPlace {
    int column = 0;
    int row = 0;

    bool operator==(const GridPlace&) const = default;
};

/// What the brush does to a square.
struct Brush {
    int color = 0;
    bool deletes = false;
    bool onlyColor = false; ///< the other colors of a square are left alone

    void paint(ZBMap& map, int index) const;
};

/// The map in the map editor, and the strokes that paint it.
class MapPainting
{
public:
    const ZBMap& map() const { return m_map; }
    /// Whether there is something to lose. A blank new map is no loss.
    bool isModified() const { return m_map != m_saved; }

    /// A blank square map; legend and background stay.
    void create(int squares);
    /// Takes a map from the text of its file. False where it is damaged: what could be read is kept.
    bool load(std::string_view text);
    void noteSaved() { m_saved = m_map; }
    void setLegend(int index, std::string_view text) { m_map.set_legend(index, text); }
    void setBackground(std::string_view picture) { m_map.set_background(picture); }

    /// The place under a pixel of a display of `width` x `height`; also of a pixel beside the display.
    GridPlace placeAt(int x, int y, int width, int height) const;

    void beginStroke();
    bool isPainting() const { return m_mouseDown; }
    /// Paints from the last place to this one without gaps. True where that changed a square.
    bool strokeTo(GridPlace place, const Brush& brush);
    void endStroke() { m_mouseDown = false; }

private:
    bool drawLine(GridPlace to, const Brush& brush);
    bool drawOn(int column, int row, const Brush& brush);

    ZBMap m_map;
    ZBMap m_saved; ///< what the file of the map holds
    bool m_mouseDown = false;
    std::int32_t m_lastColumn = -1; ///< -1 when the stroke has just begun
    std::int32_t m_lastRow = -1;
};
