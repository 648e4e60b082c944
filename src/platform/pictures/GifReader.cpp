// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/pictures/GifReader.h"

#include "platform/PictureReader.h"
#include "platform/pictures/Bytes.h"

#include <algorithm>
#include <array>
#include <vector>

namespace
{

constexpr unsigned extension = 0x21;
constexpr unsigned graphicControl = 0xf9;
constexpr unsigned picture = 0x2c;
constexpr unsigned hasTable = 0x80;
constexpr unsigned isInterlaced = 0x40;

/// The compressed pixels of a picture: codes of 3 to 12 bits in blocks of up to 255 bytes.
class CodeReader
{
public:
    CodeReader(const Bytes& file, std::size_t at)
        : m_file(file)
        , m_at(at)
    {
    }

    /// The next code, or nothing at the end.
    std::optional<unsigned> next(unsigned bits)
    {
        while (m_bitCount < bits) {
            if (m_left == 0)
                m_left = m_file.byte(m_at++);
            if (m_left == 0 || !m_file.has(m_at))
                return std::nullopt;
            m_bits |= m_file.byte(m_at++) << m_bitCount;
            m_bitCount += 8;
            --m_left;
        }
        const unsigned code = m_bits & ((1U << bits) - 1);
        m_bits >>= bits;
        m_bitCount -= bits;
        return code;
    }

private:
    const Bytes& m_file;
    std::size_t m_at;
    unsigned m_left = 0; ///< bytes of the block
    unsigned m_bits = 0;
    unsigned m_bitCount = 0;
};

/// Lempel, Ziv and Welch's compression: each code stands for a text that was seen before, and each new text
/// is an older one with one letter more. `put` takes the letters and says whether it wants more.
template<typename Put> void unpack(CodeReader codes, unsigned letterBits, Put put)
{
    constexpr unsigned mostCodes = 4096;
    const unsigned clear = 1U << letterBits;
    const unsigned end = clear + 1;
    struct Text {
        unsigned before = 0;
        unsigned last = 0;
    };
    std::array<Text, mostCodes> texts;
    std::vector<unsigned> letters; // of one text, the last first
    unsigned bits = letterBits + 1;
    unsigned count = end + 1;
    unsigned previous = mostCodes; // none
    unsigned first = 0;

    while (const auto code = codes.next(bits)) {
        if (*code == end)
            return;
        if (*code == clear) {
            bits = letterBits + 1;
            count = end + 1;
            previous = mostCodes;
            continue;
        }
        const bool isNew = *code >= count; // the text that this very code completes
        if (isNew && (previous == mostCodes || *code > count))
            return;
        letters.clear();
        if (isNew)
            letters.push_back(first);
        unsigned at = isNew ? previous : *code;
        for (; at >= clear; at = texts.at(at).before)
            letters.push_back(texts.at(at).last);
        letters.push_back(at);
        first = at;
        for (auto letter = letters.rbegin(); letter != letters.rend(); ++letter)
            if (!put(*letter))
                return;
        if (previous != mostCodes && count < mostCodes) {
            texts.at(count++) = {previous, first};
            if (count == 1U << bits && bits < 12)
                ++bits;
        }
        previous = *code;
    }
}

class GifReader
{
public:
    explicit GifReader(std::string_view bytes)
        : m_file(bytes)
    {
    }

    std::optional<Surface> read()
    {
        std::size_t at = 13 + readTable(13, m_file.byte(10));
        while (m_file.has(at)) {
            const unsigned kind = m_file.byte(at);
            if (kind == picture)
                return readPicture(at + 1);
            if (kind != extension)
                return std::nullopt;
            if (m_file.byte(at + 1) == graphicControl && (m_file.byte(at + 3) & 1U) != 0)
                m_seeThrough = m_file.byte(at + 6);
            at = behindBlocks(at + 2);
        }
        return std::nullopt;
    }

private:
    /// Reads a table of colors where the flags announce one; how long it is.
    std::size_t readTable(std::size_t at, unsigned flags)
    {
        if ((flags & hasTable) == 0)
            return 0;
        const std::size_t count = std::size_t{2} << (flags & 7U);
        m_colors.fill(black);
        for (std::size_t i = 0; i < count; ++i)
            m_colors.at(i) =
                rgb(m_file.byte(at + i * 3), m_file.byte(at + i * 3 + 1), m_file.byte(at + i * 3 + 2));
        return count * 3;
    }

    std::size_t behindBlocks(std::size_t at) const
    {
        while (m_file.byte(at) != 0)
            at += m_file.byte(at) + 1;
        return at + 1;
    }

    std::optional<Surface> readPicture(std::size_t at)
    {
        const int left = static_cast<int>(m_file.two(at));
        const int top = static_cast<int>(m_file.two(at + 2));
        const int width = static_cast<int>(m_file.two(at + 4));
        const int height = static_cast<int>(m_file.two(at + 6));
        const unsigned flags = m_file.byte(at + 8);
        const std::size_t codes = at + 9 + readTable(at + 9, flags);
        const unsigned letterBits = m_file.byte(codes);
        if (width == 0 || height == 0 || letterBits < 1 || letterBits > 8 || !m_file.has(codes + 2))
            return std::nullopt;
        const int wholeWidth = side(m_file.two(6), left + width, width);
        const int wholeHeight = side(m_file.two(8), top + height, height);
        if (std::int64_t{wholeWidth} * wholeHeight > PictureReader::maximumPixels)
            return std::nullopt;

        Surface whole(wholeWidth, wholeHeight, 0);
        const std::vector<int> rows = rowOrder(height, (flags & isInterlaced) != 0);
        std::size_t row = 0;
        int x = 0;
        unpack(CodeReader(m_file, codes + 1), letterBits, [&](unsigned letter) {
            const int y = top + rows[row];
            if (left + x < wholeWidth && y < wholeHeight)
                whole.set(left + x, y, letter == m_seeThrough ? white : m_colors.at(letter));
            if (++x == width) {
                x = 0;
                ++row;
            }
            return row < rows.size();
        });
        return whole;
    }

    /// The screen's size; one that is missing, or ridiculous beside the picture, is not believed.
    static int side(unsigned screen, int needed, int size)
    {
        const int given = static_cast<int>(screen);
        return given == 0 || given / 10 > std::max(size, 200) ? needed : given;
    }

    static std::vector<int> rowOrder(int height, bool interlaced)
    {
        std::vector<int> rows;
        const auto each = [&](int from, int step) {
            for (int y = from; y < height; y += step)
                rows.push_back(y);
        };
        if (!interlaced) {
            each(0, 1);
            return rows;
        }
        each(0, 8);
        each(4, 8);
        each(2, 4);
        each(1, 2);
        return rows;
    }

    Bytes m_file;
    std::array<Pixel, 256> m_colors{};
    std::optional<unsigned> m_seeThrough;
};

} // namespace

std::optional<Surface> readGif(std::string_view bytes)
{
    if (!bytes.starts_with("GIF8"))
        return std::nullopt;
    return GifReader(bytes).read();
}
