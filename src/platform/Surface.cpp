// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/Surface.h"

#include <algorithm>

Surface::Surface(int width, int height, Pixel color)
{
    reset(width, height, color);
}

void Surface::fill(Pixel color)
{
    std::ranges::fill(m_pixels, color);
}

void Surface::reset(int width, int height, Pixel color)
{
    m_width = std::max(width, 0);
    m_height = std::max(height, 0);
    m_pixels.assign(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height), color);
}

void stretch(Surface& to, const Surface& from)
{
    if (from.isNull() || to.isNull())
        return;
    std::vector<int> columns(static_cast<std::size_t>(to.width()));
    for (int x = 0; x < to.width(); ++x)
        columns[static_cast<std::size_t>(x)] =
            static_cast<int>(static_cast<std::int64_t>(x) * from.width() / to.width());
    for (int y = 0; y < to.height(); ++y) {
        const auto source =
            from.row(static_cast<int>(static_cast<std::int64_t>(y) * from.height() / to.height()));
        const auto target = to.row(y);
        for (std::size_t x = 0; x < target.size(); ++x)
            target[x] = source[static_cast<std::size_t>(columns[x])] | opaqueBits;
    }
}
