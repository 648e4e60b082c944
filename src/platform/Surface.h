// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <span>
#include <vector>

/// One pixel as 0xffRRGGBB, the layout that 32-bit RGB pictures have everywhere.
using Pixel = std::uint32_t;

inline constexpr Pixel opaqueBits = 0xff000000U;
inline constexpr Pixel black = opaqueBits;
inline constexpr Pixel white = 0xffffffffU;

/// A color from its red, green and blue parts, 0 to 255 each.
constexpr Pixel rgb(unsigned red, unsigned green, unsigned blue)
{
    return opaqueBits | (red << 16U) | (green << 8U) | blue;
}

/// A picture in memory: width x height pixels, row by row from the top, without padding.
class Surface
{
public:
    Surface() = default;
    /// A surface of `width` x `height` pixels in one color; negative sizes count as 0.
    Surface(int width, int height, Pixel color = white);

    int width() const { return m_width; }
    int height() const { return m_height; }
    bool isNull() const { return m_pixels.empty(); }

    Pixel at(int x, int y) const { return m_pixels[index(x, y)]; }
    void set(int x, int y, Pixel color) { m_pixels[index(x, y)] = color; }
    std::span<Pixel> row(int y) { return {m_pixels.data() + index(0, y), static_cast<std::size_t>(m_width)}; }
    std::span<const Pixel> row(int y) const
    {
        return {m_pixels.data() + index(0, y), static_cast<std::size_t>(m_width)};
    }
    std::span<Pixel> pixels() { return m_pixels; }
    std::span<const Pixel> pixels() const { return m_pixels; }

    /// Gives every pixel the same color.
    void fill(Pixel color);
    /// Takes a new size and clears to one color; memory is kept where it suffices.
    void reset(int width, int height, Pixel color = white);

    bool operator==(const Surface&) const = default;

private:
    std::size_t index(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) + static_cast<std::size_t>(x);
    }

    int m_width = 0;
    int m_height = 0;
    std::vector<Pixel> m_pixels;
};

/// Paints the whole of `from` onto the whole of `to`, each target pixel taken from the source pixel
/// that covers its top left corner (nearest neighbour). An empty source changes nothing.
void stretch(Surface& to, const Surface& from);
