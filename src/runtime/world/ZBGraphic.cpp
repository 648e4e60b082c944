// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/world/ZBGraphic.h"

#include "platform/Rounding.h"
#include "runtime/world/Blit.h"

#include <algorithm>
#include <cmath>
#include <utility>

ZBGraphic::ZBGraphic(std::string_view name, SpriteSheet sheet)
    : m_name(name)
    , m_sheet(std::move(sheet))
    , m_runs(m_sheet)
{
}

int ZBGraphic::frameIndex(std::int32_t frameNumber, double direction) const
{
    const std::int32_t count = std::max(description().frameCount, 1);
    switch (description().kind) {
    case GraphicKind::Simple:
        break;
    case GraphicKind::Animated:
        return animationSteps(frameNumber) % count;
    case GraphicKind::Rotating: {
        const double turn = std::fmod(roundHalfEven(direction / (360.0 / count)), count);
        if (!std::isfinite(turn))
            return 0;
        return static_cast<int>(turn < 0 ? turn + count : turn);
    }
    }
    return 0;
}

void ZBGraphic::Draw(Surface& target, int centreX, int centreY, int frame) const
{
    const auto [width, height] = std::pair(description().frameWidth, description().frameHeight);
    const std::int64_t left = static_cast<std::int64_t>(roundHalfEven(centreX - width / 2.0));
    const std::int64_t top = static_cast<std::int64_t>(roundHalfEven(centreY - height / 2.0));
    const std::int64_t firstRow = std::int64_t{frame} * height;

    const std::int64_t fromX = std::max<std::int64_t>(0, -left);
    const std::int64_t toX = std::min<std::int64_t>(m_sheet.columns(), target.width() - left);
    const std::int64_t fromY = std::max<std::int64_t>(0, -top);
    const std::int64_t toY = std::min({std::int64_t{height}, picture().height() - firstRow,
                                       static_cast<std::int64_t>(target.height()) - top});
    if (fromX >= toX || fromY >= toY)
        return;
    const Pixel* const image =
        &picture().row(static_cast<int>(firstRow + fromY))[static_cast<std::size_t>(fromX)];
    const BlitJob job = {
        .target = &target.row(static_cast<int>(top + fromY))[static_cast<std::size_t>(left + fromX)],
        .targetStride = static_cast<std::size_t>(target.width()),
        .mask = image + m_sheet.columns(),
        .image = image,
        .sourceStride = static_cast<std::size_t>(picture().width()),
        .width = static_cast<std::size_t>(toX - fromX),
        .height = static_cast<std::size_t>(toY - fromY)};
    if (m_runs.isEmpty())
        blit(job);
    else
        m_runs.draw(job, static_cast<std::size_t>(firstRow + fromY), static_cast<std::size_t>(fromX));
}
