// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/pictures/BmpReader.h"

#include "platform/PictureReader.h"
#include "platform/pictures/Bytes.h"

#include <algorithm>
#include <array>
#include <bit>
#include <vector>

namespace
{

enum Compression : std::uint32_t {
    Plain = 0,
    RunLengths8 = 1,
    RunLengths4 = 2,
    Masks = 3,
    MasksWithAlpha = 6
};

constexpr std::size_t fileHead = 14;
constexpr std::uint32_t os2Head = 12;
constexpr std::uint32_t windowsHead = 40;
constexpr std::uint32_t longestHead = 124;

struct Head {
    std::uint32_t size = 0;
    int width = 0;
    int height = 0;
    bool fromTheTop = false;
    unsigned bitsPerPixel = 0;
    std::uint32_t compression = Plain;
    std::size_t colors = 0;
    std::size_t pixels = 0; ///< where they begin in the file
};

constexpr std::array<unsigned, 6> plainDepths = {1, 4, 8, 16, 24, 32};

bool fits(const Head& head)
{
    switch (head.compression) {
    case Plain:
        return std::ranges::find(plainDepths, head.bitsPerPixel) != plainDepths.end();
    case RunLengths8:
        return head.bitsPerPixel == 8 && !head.fromTheTop;
    case RunLengths4:
        return head.bitsPerPixel == 4 && !head.fromTheTop;
    case Masks:
    case MasksWithAlpha:
        return head.bitsPerPixel == 16 || head.bitsPerPixel == 32;
    default:
        return false;
    }
}

std::optional<Head> readHead(const Bytes& file)
{
    Head head;
    head.size = file.four(fileHead);
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::uint32_t colorsUsed = 0;
    if (head.size == os2Head) {
        width = file.two(18);
        height = file.two(20);
        head.bitsPerPixel = file.two(24);
    } else if (head.size >= windowsHead && head.size <= longestHead) {
        width = static_cast<std::int32_t>(file.four(18));
        height = static_cast<std::int32_t>(file.four(22));
        head.bitsPerPixel = file.two(28);
        head.compression = file.four(30);
        colorsUsed = file.four(46);
    } else {
        return std::nullopt;
    }
    head.fromTheTop = height < 0;
    height = std::max(height, -height);
    if (width <= 0 || height == 0 || width * height > PictureReader::maximumPixels || !fits(head))
        return std::nullopt;
    head.width = static_cast<int>(width);
    head.height = static_cast<int>(height);
    if (head.bitsPerPixel <= 8)
        head.colors = colorsUsed == 0 ? std::size_t{1} << head.bitsPerPixel : std::min(colorsUsed, 256U);
    const std::size_t behindColors = fileHead + head.size + head.colors * (head.size == os2Head ? 3 : 4);
    head.pixels = file.four(10) >= fileHead + head.size ? file.four(10) : behindColors;
    return head;
}

/// The table of colors, filled up with black.
std::array<Pixel, 256> readColors(const Bytes& file, const Head& head)
{
    std::array<Pixel, 256> colors;
    colors.fill(black);
    const std::size_t step = head.size == os2Head ? 3 : 4;
    for (std::size_t i = 0; i < head.colors; ++i)
        colors.at(i) = opaqueBits | (file.four(fileHead + head.size + i * step) & 0xffffffU);
    return colors;
}

/// One of the three parts of a color where the file says which bits it has: stretched from 0 to 255.
class Channel
{
public:
    explicit Channel(std::uint32_t mask)
        : m_mask(mask)
        , m_shift(mask == 0 ? 0U : static_cast<unsigned>(std::countr_zero(mask)))
        , m_bits(static_cast<unsigned>(std::popcount(mask)))
    {
    }

    unsigned of(std::uint32_t pixel) const
    {
        if (m_bits == 0)
            return 0;
        const std::uint32_t value = (pixel & m_mask) >> m_shift;
        if (m_bits >= 8)
            return value >> (m_bits - 8U);
        // Its own bits again and again, so that the largest value becomes 255.
        unsigned result = value << (8U - m_bits);
        for (unsigned filled = m_bits; filled < 8; filled *= 2)
            result |= result >> filled;
        return result;
    }

private:
    std::uint32_t m_mask;
    unsigned m_shift;
    unsigned m_bits;
};

/// The pixels of a file without run lengths.
class PlainRows
{
public:
    PlainRows(const Bytes& file, const Head& head)
        : m_file(file)
        , m_head(head)
        , m_colors(readColors(file, head))
        , m_red(mask(0, 0xff0000U, 0x7c00U))
        , m_green(mask(1, 0xff00U, 0x3e0U))
        , m_blue(mask(2, 0xffU, 0x1fU))
    {
    }

    /// Row `index` of the file.
    void read(std::size_t index, std::span<Pixel> row) const
    {
        const std::size_t bits = m_head.bitsPerPixel;
        const std::size_t start = m_head.pixels + index * ((row.size() * bits + 31) / 32 * 4);
        for (std::size_t x = 0; x < row.size(); ++x) {
            const std::size_t last = start + ((x + 1) * bits + 7) / 8 - 1;
            if (m_file.has(last))
                row[x] = pixel(start, x);
        }
    }

private:
    Channel mask(std::size_t index, std::uint32_t of32, std::uint32_t of16) const
    {
        if (m_head.compression != Plain)
            return Channel(m_file.four(fileHead + windowsHead + index * 4));
        return Channel(m_head.bitsPerPixel == 16 ? of16 : of32);
    }

    Pixel pixel(std::size_t start, std::size_t x) const
    {
        switch (m_head.bitsPerPixel) {
        case 1:
            return m_colors[(m_file.byte(start + x / 8) >> (7 - x % 8)) & 1U];
        case 4:
            return m_colors[(m_file.byte(start + x / 2) >> (x % 2 == 0 ? 4U : 0U)) & 15U];
        case 8:
            return m_colors[m_file.byte(start + x)];
        case 16:
            return mixed(m_file.two(start + x * 2));
        case 24:
            return opaqueBits | (m_file.four(start + x * 3) & 0xffffffU);
        default:
            return mixed(m_file.four(start + x * 4));
        }
    }

    Pixel mixed(std::uint32_t value) const
    {
        return rgb(m_red.of(value), m_green.of(value), m_blue.of(value));
    }

    const Bytes& m_file;
    const Head& m_head;
    std::array<Pixel, 256> m_colors;
    Channel m_red;
    Channel m_green;
    Channel m_blue;
};

/// The pixels of a file with run lengths. What they leave out has the first color.
class RunLengthRows
{
public:
    RunLengthRows(const Bytes& file, const Head& head, Surface& picture)
        : m_file(file)
        , m_colors(readColors(file, head))
        , m_picture(picture)
        , m_at(head.pixels)
        , m_halves(head.compression == RunLengths4)
    {
    }

    void read()
    {
        while (m_file.has(m_at + 1)) {
            const unsigned count = m_file.byte(m_at);
            const unsigned value = m_file.byte(m_at + 1);
            m_at += 2;
            if (count > 0) {
                for (unsigned i = 0; i < count; ++i)
                    put(m_halves ? half(value, i) : value);
            } else if (value == 0) {
                endRow(m_x, m_y + 1);
            } else if (value == 1) {
                endRow(m_x, m_picture.height());
                return;
            } else if (value == 2) {
                skip();
            } else {
                copy(value);
            }
        }
    }

private:
    static unsigned half(unsigned byte, unsigned index) { return index % 2 == 0 ? byte >> 4U : byte & 15U; }

    void put(unsigned color)
    {
        if (m_x < m_picture.width() && m_y < m_picture.height())
            m_picture.set(m_x, m_picture.height() - 1 - m_y, m_colors.at(color));
        ++m_x;
    }

    /// Fills with the first color up to the beginning of row `y`.
    void endRow(int x, int y)
    {
        for (; m_y < std::min(y, m_picture.height()); ++m_y, x = 0)
            for (m_x = x; m_x < m_picture.width();)
                put(0);
        m_x = 0;
    }

    void skip()
    {
        const int x = m_x + static_cast<int>(m_file.byte(m_at));
        const int y = m_y + static_cast<int>(m_file.byte(m_at + 1));
        m_at += 2;
        endRow(m_x, y);
        if (y >= m_picture.height())
            return;
        while (m_x < std::min(x, m_picture.width()))
            put(0);
    }

    void copy(unsigned count)
    {
        const std::size_t length = m_halves ? (count + 1) / 2 : count;
        for (unsigned i = 0; i < count && m_file.has(m_at + (m_halves ? i / 2 : i)); ++i)
            put(m_halves ? half(m_file.byte(m_at + i / 2), i) : m_file.byte(m_at + i));
        m_at += length + length % 2;
    }

    const Bytes& m_file;
    std::array<Pixel, 256> m_colors;
    Surface& m_picture;
    std::size_t m_at;
    bool m_halves; ///< two pixels in a byte
    int m_x = 0;
    int m_y = 0; ///< from the bottom
};

} // namespace

std::optional<Surface> readBmp(std::string_view bytes)
{
    if (!bytes.starts_with("BM"))
        return std::nullopt;
    const Bytes file(bytes);
    const auto head = readHead(file);
    if (!head || !file.has(head->pixels))
        return std::nullopt;
    Surface picture(head->width, head->height, 0);
    if (head->compression == RunLengths8 || head->compression == RunLengths4) {
        RunLengthRows(file, *head, picture).read();
        return picture;
    }
    const PlainRows rows(file, *head);
    for (int y = 0; y < head->height; ++y)
        rows.read(static_cast<std::size_t>(y), picture.row(head->fromTheTop ? y : head->height - 1 - y));
    return picture;
}
