// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"
#include "runtime/world/MapColors.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class MapReader;

/// One cell of a map: seven color flags, index 0 red to 6 purple.
class MapSquare
{
public:
    bool Same(const MapSquare& other) const { return m_flags == other.m_flags; }
    bool getField(int index) const { return ((m_flags >> index) & 1) != 0; }
    void setField(int index, bool value);
    /// The packed value of map files, bit i for color i.
    std::int32_t ToLong() const { return m_flags; }
    /// Takes bits 0 to 6; higher bits are ignored.
    void setFromLong(std::int32_t packed) { m_flags = static_cast<std::uint8_t>(packed & everyColor); }

    bool operator==(const MapSquare&) const = default;

private:
    static constexpr std::int32_t everyColor = (1 << mapColorCount) - 1;

    std::uint8_t m_flags = 0;
};

/// A grid of colored squares over the playfield (x and y from -100 to 100, y upwards; row 0 is the top row).
/// The map file: lines of name, background, columns, rows, 21 legend texts, then the packed squares row by
/// row.
class ZBMap
{
public:
    static constexpr int legendCount = 21;

    int columns = 0;
    int rows = 0;
    std::string name;

    /// A blank map; legend and background stay.
    void Create(int columnCount, int rowCount);
    /// The square under a world point, or nothing where the point lies off the map. Points beyond the left
    /// and top edge by less than one square still count as on it. Runs for every sprite after every move,
    /// hence inline.
    std::optional<MapSquare> GetSquare(std::int32_t x, std::int32_t y) const
    {
        // Truncated towards zero, as the quotient of 32-bit numbers; a product that would not fit is off the
        // map.
        const std::int64_t rowProduct = (std::int64_t{100} - y) * rows;
        const std::int64_t columnProduct = (std::int64_t{x} + 100) * columns;
        if (!fits32(rowProduct) || !fits32(columnProduct))
            return std::nullopt;
        const std::int32_t row = static_cast<std::int32_t>(rowProduct) / 200;
        const std::int32_t column = static_cast<std::int32_t>(columnProduct) / 200;
        if (column < 0 || column >= columns || row < 0 || row >= rows)
            return std::nullopt;
        return at(static_cast<std::uint64_t>(columns) * static_cast<std::uint64_t>(row) +
                  static_cast<std::uint64_t>(column));
    }
    /// The square at `index` = columns * row + column; a blank one where the index is not on the map.
    MapSquare square(int index) const
    {
        return index < 0 ? MapSquare() : at(static_cast<std::uint64_t>(index));
    }
    /// Whether the map has squares at all, and no more of them than a map file can hold. A map whose file
    /// could not be read to its end may be left without.
    bool hasGrid() const;
    /// Sets flag `color` of entry `index`. Entries that are not on the map are ignored.
    void set_offset(int index, int color, bool value);
    /// Clears all seven flags of entry `index`; `value` is not used.
    void set_offset_all(int index, bool value);
    void set_legend(int index, std::string_view text);
    std::string_view get_legend(int index) const;
    void set_background(std::string_view picture) { m_background = picture; }
    const std::string& get_background() const { return m_background; }

    /// The map as the text of its file, lines ended by CR LF, UTF-8.
    std::string toText() const;
    /// Reads a map from the text of its file. False on any fault; the map is then left as far as it was read.
    /// Squares are stored only as far as the text gives them, whatever size it claims.
    bool fromText(std::string_view text);

    /// Whether both hold the same; squares that are not stored are blank ones.
    bool operator==(const ZBMap& other) const;

    /// All colors as stripes (`layer` -1) or one color as filled squares (0 to 6), over the whole of
    /// `picture`.
    void Draw(Surface& picture, int layer) const;

private:
    static bool fits32(std::int64_t value) { return value == static_cast<std::int32_t>(value); }
    MapSquare at(std::uint64_t index) const
    {
        return index < m_squares.size() ? m_squares[static_cast<std::size_t>(index)] : MapSquare();
    }
    MapSquare* entry(int index);
    bool readHead(MapReader& reader);
    bool readSquares(MapReader& reader);

    std::string m_background;
    std::array<std::string, legendCount> m_legend;
    std::vector<MapSquare> m_squares; ///< may be shorter than columns * rows: what is missing is blank
};
