// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/SpriteModel.h"

#include "runtime/world/ZBGraphic.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace
{

constexpr FrameSize usualSize = {32, 32};

bool isColor(Pixel pixel)
{
    return (pixel & opaqueBits) == opaqueBits;
}

} // namespace

void BlendTable::clear()
{
    m_blends.clear();
    m_codes.clear();
}

Pixel BlendTable::codeOf(const MaskedPixel& pixel)
{
    if (pixel.isTransparent())
        return transparent;
    if (pixel.isOpaque())
        return pixel.image;
    const auto [entry, isNew] = m_codes.try_emplace(std::uint64_t{pixel.image} << 32U | pixel.mask, 0);
    if (isNew) {
        m_blends.push_back(pixel);
        entry->second = static_cast<Pixel>(m_blends.size()); // small, so that it is no opaque color
    }
    return entry->second;
}

MaskedPixel BlendTable::pixelOf(Pixel code) const
{
    if (code == transparent)
        return {};
    return isColor(code) ? MaskedPixel{code, black} : m_blends[code - 1];
}

bool SpriteModel::State::operator==(const State& other) const
{
    return kind == other.kind && size == other.size &&
           std::equal(frames.begin(), frames.end(), other.frames.begin(), other.frames.end(),
                      [](const auto& a, const auto& b) { return a == b || *a == *b; });
}

SpriteModel::SpriteModel()
{
    clear(usualSize);
}

void SpriteModel::clear(FrameSize size)
{
    m_now = State{
        GraphicKind::Simple, size, {std::make_shared<Surface>(size.width, size.height, transparent)}, 0};
    m_saved = m_now;
    m_past.clear();
    m_future.clear();
    m_blends.clear();
    m_header = "Zorbino sprite";
    m_inStroke = false;
}

bool SpriteModel::canHold(const GraphicDescription& description)
{
    const auto isSide = [](int side) { return side >= smallestSide && side <= largestSide; };
    return isSide(description.frameWidth) && isSide(description.frameHeight) &&
           description.frameCount <= mostFrames &&
           std::int64_t{description.frameWidth} * description.frameHeight *
                   std::max(description.frameCount, 1) <=
               mostPixels;
}

bool SpriteModel::load(const SpriteSheet& sheet)
{
    const GraphicDescription& description = sheet.description();
    if (!canHold(description))
        return false;
    const FrameSize size = {description.frameWidth, description.frameHeight};
    clear(size);
    m_now.kind = description.kind;
    m_now.frames.clear();
    for (int index = 0; index < std::max(description.frameCount, 1); ++index) {
        auto frame = std::make_shared<Surface>(size.width, size.height, transparent);
        for (int y = 0; y < size.height; ++y)
            for (int x = 0; x < size.width; ++x)
                frame->set(x, y, m_blends.codeOf(sheet.at(index, x, y)));
        m_now.frames.push_back(std::move(frame));
    }
    m_header = description.header;
    m_saved = m_now;
    return true;
}

GraphicDescription SpriteModel::description() const
{
    return {m_header, m_now.kind, m_now.size.width, m_now.size.height, frameCount()};
}

SpriteSheet SpriteModel::sheet() const
{
    const auto [width, height] = m_now.size;
    Surface picture(2 * width, frameCount() * height);
    for (int index = 0; index < frameCount(); ++index)
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const MaskedPixel pixel = m_blends.pixelOf(stored(index).at(x, y));
                picture.set(x, index * height + y, pixel.image);
                picture.set(width + x, index * height + y, pixel.mask);
            }
    return {description(), std::move(picture)};
}

std::shared_ptr<const Surface> SpriteModel::frame(int index) const
{
    const auto& frame = m_now.frames[static_cast<std::size_t>(index)];
    if (m_blends.isEmpty())
        return frame;
    auto look = std::make_shared<Surface>(*frame);
    std::ranges::transform(look->pixels(), look->pixels().begin(),
                           [this](Pixel code) { return m_blends.pixelOf(code).look(); });
    return look;
}

Pixel SpriteModel::pixel(int x, int y) const
{
    const MaskedPixel pixel = m_blends.pixelOf(stored(m_now.current).at(x, y));
    return pixel.isTransparent() ? transparent : pixel.image;
}

void SpriteModel::setKind(GraphicKind kind)
{
    if (kind == m_now.kind)
        return;
    remember();
    m_now.kind = kind;
}

void SpriteModel::setFrameSize(FrameSize size)
{
    GraphicDescription wanted = description();
    wanted.frameWidth = size.width;
    wanted.frameHeight = size.height;
    if (size == m_now.size || !canHold(wanted))
        return;
    remember();
    // Halves go to the left and up in both directions, so that there and back again changes nothing.
    const auto shift = [](int now, int before) {
        return now >= before ? (now - before) / 2 : -((before - now) / 2);
    };
    const int shiftX = shift(size.width, m_now.size.width);
    const int shiftY = shift(size.height, m_now.size.height);
    for (std::shared_ptr<Surface>& old : m_now.frames) {
        auto frame = std::make_shared<Surface>(size.width, size.height, transparent);
        for (int y = std::max(0, shiftY); y < std::min(size.height, shiftY + old->height()); ++y)
            for (int x = std::max(0, shiftX); x < std::min(size.width, shiftX + old->width()); ++x)
                frame->set(x, y, old->at(x - shiftX, y - shiftY));
        old = std::move(frame);
    }
    m_now.size = size;
}

void SpriteModel::setCurrent(int index)
{
    endStroke();
    m_now.current = std::clamp(index, 0, frameCount() - 1);
}

bool SpriteModel::canAddFrame() const
{
    GraphicDescription wanted = description();
    ++wanted.frameCount;
    return canHold(wanted);
}

void SpriteModel::insertFrame(const Surface& frame)
{
    if (!canAddFrame())
        return;
    remember();
    ++m_now.current;
    m_now.frames.insert(m_now.frames.begin() + m_now.current, std::make_shared<Surface>(frame));
}

void SpriteModel::addFrame()
{
    insertFrame(Surface(m_now.size.width, m_now.size.height, transparent));
}

void SpriteModel::duplicateFrame()
{
    insertFrame(stored(m_now.current));
}

void SpriteModel::removeFrame()
{
    remember();
    if (frameCount() == 1) {
        writable().fill(transparent);
        return;
    }
    m_now.frames.erase(m_now.frames.begin() + m_now.current);
    m_now.current = std::min(m_now.current, frameCount() - 1);
}

void SpriteModel::moveFrame(int by)
{
    const int target = std::clamp(m_now.current + by, 0, frameCount() - 1);
    if (target == m_now.current)
        return;
    remember();
    const auto frame = m_now.frames[static_cast<std::size_t>(m_now.current)];
    m_now.frames.erase(m_now.frames.begin() + m_now.current);
    m_now.frames.insert(m_now.frames.begin() + target, frame);
    m_now.current = target;
}

bool SpriteModel::contains(int x, int y) const
{
    return x >= 0 && y >= 0 && x < m_now.size.width && y < m_now.size.height;
}

void SpriteModel::setPixel(int x, int y, Pixel color)
{
    if (!contains(x, y) || stored(m_now.current).at(x, y) == color)
        return;
    remember();
    writable().set(x, y, color);
}

void SpriteModel::drawLine(int x1, int y1, int x2, int y2, Pixel color)
{
    // Bresenham's line; the stretch outside the frame is walked along, but not drawn.
    const int width = std::abs(x2 - x1);
    const int height = std::abs(y2 - y1);
    const int stepX = x1 < x2 ? 1 : -1;
    const int stepY = y1 < y2 ? 1 : -1;
    int error = width - height;
    setPixel(x1, y1, color);
    while (x1 != x2 || y1 != y2) {
        const int doubled = 2 * error;
        if (doubled > -height) {
            error -= height;
            x1 += stepX;
        }
        if (doubled < width) {
            error += width;
            y1 += stepY;
        }
        setPixel(x1, y1, color);
    }
}

void SpriteModel::floodFill(int x, int y, Pixel color)
{
    if (!contains(x, y) || stored(m_now.current).at(x, y) == color)
        return;
    remember();
    Surface& surface = writable();
    std::vector<std::pair<int, int>> open = {{x, y}};
    surface.set(x, y, color);
    while (!open.empty()) {
        const auto [px, py] = open.back();
        open.pop_back();
        for (const auto& [nx, ny] : {std::pair{px - 1, py}, {px + 1, py}, {px, py - 1}, {px, py + 1}})
            if (contains(nx, ny) && surface.at(nx, ny) != color) {
                surface.set(nx, ny, color);
                open.emplace_back(nx, ny);
            }
    }
}

void SpriteModel::beginStroke()
{
    m_inStroke = true;
    m_strokeRemembered = false;
}

void SpriteModel::endStroke()
{
    m_inStroke = false;
}

/// Keeps the state before a change, so that it can be undone.
void SpriteModel::remember()
{
    m_future.clear();
    if (m_inStroke && m_strokeRemembered)
        return;
    m_strokeRemembered = m_inStroke;
    m_past.push_back(m_now);
    if (m_past.size() > undoDepth())
        m_past.pop_front();
}

/// As many steps as fit into 64 MB, were each of them to change every frame.
std::size_t SpriteModel::undoDepth() const
{
    constexpr std::int64_t mostUndoPixels = 16LL << 20U;
    const std::int64_t pixels = std::int64_t{m_now.size.width} * m_now.size.height * frameCount();
    return static_cast<std::size_t>(std::clamp<std::int64_t>(mostUndoPixels / pixels, 4, mostUndoSteps));
}

Surface& SpriteModel::writable()
{
    std::shared_ptr<Surface>& frame = m_now.frames[static_cast<std::size_t>(m_now.current)];
    if (frame.use_count() > 1)
        frame = std::make_shared<Surface>(*frame);
    return *frame;
}

void SpriteModel::undo()
{
    if (m_past.empty())
        return;
    endStroke();
    m_future.push_back(std::exchange(m_now, m_past.back()));
    m_past.pop_back();
}

void SpriteModel::redo()
{
    if (m_future.empty())
        return;
    endStroke();
    m_past.push_back(std::exchange(m_now, m_future.back()));
    m_future.pop_back();
}

int SpriteModel::previewIndex(int frameNumber) const
{
    if (m_now.kind == GraphicKind::Simple)
        return 0;
    return animationSteps(frameNumber) % frameCount();
}
