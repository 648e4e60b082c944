// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/pictures/FilmFile.h"

#include <algorithm>
#include <array>
#include <bit>
#include <new>
#include <stdexcept>
#include <unordered_map>
#include <utility>

#include <gif_lib.h>

namespace
{

constexpr std::size_t mostColors = 255; // and one that is see-through
constexpr int longestDelay = 0xffff;

int append(GifFileType* gif, const GifByteType* bytes, int size)
{
    try {
        static_cast<std::string*>(gif->UserData)
            ->append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
        return size;
    } catch (const std::bad_alloc&) { // there are frames of C above
        return 0;
    } catch (const std::length_error&) {
        return 0;
    }
}

unsigned part(Pixel color, unsigned shift)
{
    return (color >> shift) & 255U;
}

/// How often a color occurs.
struct ColorCount {
    Pixel color = 0;
    std::size_t count = 0;
};

std::vector<ColorCount> count(std::vector<Pixel> pixels)
{
    std::ranges::sort(pixels);
    std::vector<ColorCount> counts;
    for (const Pixel color : pixels) {
        if (counts.empty() || counts.back().color != color)
            counts.push_back({color, 0});
        ++counts.back().count;
    }
    return counts;
}

/// Colors beside each other, which may become one.
struct Box {
    std::size_t begin = 0;
    std::size_t end = 0;
    unsigned shift = 0;    ///< of the part in which they differ most
    std::size_t worth = 0; ///< what is gained by cutting it in two
};

Box boxOf(const std::vector<ColorCount>& colors, std::size_t begin, std::size_t end)
{
    Box box{begin, end};
    std::size_t pixels = 0;
    for (std::size_t i = begin; i < end; ++i)
        pixels += colors[i].count;
    unsigned widest = 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
        unsigned least = 255;
        unsigned most = 0;
        for (std::size_t i = begin; i < end; ++i) {
            least = std::min(least, part(colors[i].color, shift));
            most = std::max(most, part(colors[i].color, shift));
        }
        if (most - least > widest) {
            widest = most - least;
            box.shift = shift;
        }
    }
    box.worth = widest * pixels;
    return box;
}

/// Where a box is cut: as many pixels on the one side as on the other.
std::size_t middleOf(std::vector<ColorCount>& colors, const Box& box)
{
    const auto begin = colors.begin() + static_cast<std::ptrdiff_t>(box.begin);
    const auto end = colors.begin() + static_cast<std::ptrdiff_t>(box.end);
    std::sort(begin, end, [&](const ColorCount& one, const ColorCount& other) {
        return std::pair(part(one.color, box.shift), one.color) <
               std::pair(part(other.color, box.shift), other.color);
    });
    std::size_t pixels = 0;
    for (auto each = begin; each != end; ++each)
        pixels += each->count;
    std::size_t middle = box.begin;
    for (std::size_t before = 0; middle + 1 < box.end && before * 2 < pixels; ++middle)
        before += colors[middle].count;
    return std::max(middle, box.begin + 1);
}

/// The mean of the colors, each as often as it occurs.
Pixel meanOf(const std::vector<ColorCount>& colors, const Box& box)
{
    std::array<std::size_t, 3> sums{};
    std::size_t pixels = 0;
    for (std::size_t i = box.begin; i < box.end; ++i) {
        for (unsigned channel = 0; channel < 3; ++channel)
            sums.at(channel) += part(colors[i].color, channel * 8) * colors[i].count;
        pixels += colors[i].count;
    }
    const auto mean = [&](std::size_t sum) { return static_cast<unsigned>((sum + pixels / 2) / pixels); };
    return rgb(mean(sums[2]), mean(sums[1]), mean(sums[0]));
}

/// A few colors that stand for many: the box of colors is cut in two, again and again, where it gains most.
std::vector<Pixel> chooseColors(std::vector<ColorCount> colors,
                                std::unordered_map<Pixel, unsigned char>& indexOf)
{
    std::vector<Box> boxes = {boxOf(colors, 0, colors.size())};
    while (boxes.size() < mostColors) {
        const auto worthiest = std::ranges::max_element(boxes, {}, &Box::worth);
        const Box box = *worthiest;
        if (box.worth == 0)
            break;
        const std::size_t middle = middleOf(colors, box);
        *worthiest = boxOf(colors, box.begin, middle);
        boxes.push_back(boxOf(colors, middle, box.end));
    }
    std::vector<Pixel> chosen;
    for (const Box& box : boxes) {
        for (std::size_t i = box.begin; i < box.end; ++i)
            indexOf[colors[i].color] = static_cast<unsigned char>(chosen.size());
        chosen.push_back(meanOf(colors, box));
    }
    return chosen;
}

} // namespace

void FilmFile::Close::operator()(GifFileType* gif) const
{
    EGifCloseFile(gif, nullptr);
}

FilmFile::FilmFile() = default;
FilmFile::~FilmFile() = default;

void FilmFile::open(const Surface& frame)
{
    m_gif.reset(EGifOpen(&m_bytes, append, nullptr));
    m_isGood = m_gif != nullptr;
    if (!m_gif)
        return;
    EGifSetGifVersion(m_gif.get(), true);
    expect(EGifPutScreenDesc(m_gif.get(), frame.width(), frame.height(), 8, 0, nullptr) == GIF_OK);
    constexpr std::array<unsigned char, 3> forEver = {1, 0, 0};
    expect(EGifPutExtensionLeader(m_gif.get(), APPLICATION_EXT_FUNC_CODE) == GIF_OK);
    expect(EGifPutExtensionBlock(m_gif.get(), 11, "NETSCAPE2.0") == GIF_OK);
    expect(EGifPutExtensionBlock(m_gif.get(), forEver.size(), forEver.data()) == GIF_OK);
    expect(EGifPutExtensionTrailer(m_gif.get()) == GIF_OK);
}

void FilmFile::add(const Surface& frame)
{
    if (frame.isNull() || !m_isGood)
        return;
    if (!m_gif)
        open(frame);
    else if (frame.width() != m_last.width() || frame.height() != m_last.height())
        return;
    if (!m_last.isNull() && m_picture.delay + delay <= longestDelay && frame == m_last) {
        m_picture.delay += delay;
        return;
    }
    Picture picture = pictureOf(frame);
    writePicture();
    m_picture = std::move(picture);
    m_last = frame;
}

FilmFile::Picture FilmFile::pictureOf(const Surface& frame) const
{
    const auto hasChanged = [&](int x, int y) {
        return m_last.isNull() || frame.at(x, y) != m_last.at(x, y);
    };
    int left = frame.width();
    int right = 0;
    int top = frame.height();
    int bottom = 0;
    std::vector<Pixel> changed;
    for (int y = 0; y < frame.height(); ++y)
        for (int x = 0; x < frame.width(); ++x)
            if (hasChanged(x, y)) {
                left = std::min(left, x);
                right = std::max(right, x + 1);
                top = std::min(top, y);
                bottom = std::max(bottom, y + 1);
                changed.push_back(frame.at(x, y));
            }
    if (changed.empty()) { // it has stood too long for one picture
        left = top = 0;
        right = bottom = 1;
    }
    Picture picture;
    picture.left = left;
    picture.top = top;
    picture.width = right - left;
    picture.height = bottom - top;
    picture.delay = delay;
    std::unordered_map<Pixel, unsigned char> indexOf;
    if (!changed.empty())
        picture.colors = chooseColors(count(std::move(changed)), indexOf);
    const auto asBefore = static_cast<unsigned char>(picture.colors.size());
    for (int y = top; y < bottom; ++y)
        for (int x = left; x < right; ++x)
            picture.indices.push_back(hasChanged(x, y) ? indexOf[frame.at(x, y)] : asBefore);
    return picture;
}

void FilmFile::writePicture()
{
    if (m_picture.indices.empty() || !m_isGood)
        return;
    GifFileType* const gif = m_gif.get();
    GraphicsControlBlock control{};
    control.DisposalMode = DISPOSE_DO_NOT;
    control.DelayTime = m_picture.delay;
    control.TransparentColor = static_cast<int>(m_picture.colors.size());
    std::array<GifByteType, 4> bytes{};
    EGifGCBToExtension(&control, bytes.data());
    expect(EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, bytes.size(), bytes.data()) == GIF_OK);

    std::array<GifColorType, 256> colors{};
    for (std::size_t i = 0; i < m_picture.colors.size(); ++i) {
        const auto channel = [&](unsigned shift) {
            return static_cast<GifByteType>(part(m_picture.colors[i], shift));
        };
        colors.at(i) = {channel(16), channel(8), channel(0)};
    }
    const auto tableSize = std::max<std::size_t>(std::bit_ceil(m_picture.colors.size() + 1), 2);
    ColorMapObject* const table = GifMakeMapObject(static_cast<int>(tableSize), colors.data());
    expect(table != nullptr && EGifPutImageDesc(gif, m_picture.left, m_picture.top, m_picture.width,
                                                m_picture.height, false, table) == GIF_OK);
    GifFreeMapObject(table);
    const auto width = static_cast<std::size_t>(m_picture.width);
    for (std::size_t at = 0; at < m_picture.indices.size() && m_isGood; at += width)
        expect(EGifPutLine(gif, m_picture.indices.data() + at, m_picture.width) == GIF_OK);
}

std::string FilmFile::finish()
{
    writePicture();
    const bool isThere = m_gif != nullptr && m_isGood;
    if (GifFileType* const gif = m_gif.release())
        expect(EGifCloseFile(gif, nullptr) == GIF_OK);
    m_picture = {};
    m_isGood = m_isGood && isThere;
    return m_isGood ? std::exchange(m_bytes, {}) : std::string();
}
