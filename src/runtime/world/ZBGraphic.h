// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "runtime/world/PixelRuns.h"
#include "runtime/world/SpriteSheet.h"

#include <cstdint>
#include <string>
#include <string_view>

/// The frames of the game for which an animated graphic shows one of its own.
inline constexpr std::int32_t framesPerAnimationStep = 3;

/// How often an animated graphic has changed its frame up to a frame of the game.
constexpr std::int32_t animationSteps(std::int32_t frameNumber)
{
    return frameNumber / framesPerAnimationStep;
}

/// A loaded sprite graphic. Never changed once loaded, so that all sprites and all copies of a run's state
/// may share it.
class ZBGraphic
{
public:
    ZBGraphic(std::string_view name, SpriteSheet sheet);

    const std::string& getName() const { return m_name; }
    const GraphicDescription& description() const { return m_sheet.description(); }
    const Surface& picture() const { return m_sheet.picture(); }
    const SpriteSheet& sheet() const { return m_sheet; }

    /// Whether it shows another frame as time goes by.
    bool isAnimated() const
    {
        return description().kind == GraphicKind::Animated && description().frameCount > 1;
    }
    /// The frame that a sprite shows: by time for animated graphics, by heading for rotating ones.
    int frameIndex(std::int32_t frameNumber, double direction) const;
    /// Draws a frame onto `target` centred at (centreX, centreY), clipped; the mask is ANDed, the image ORed.
    void Draw(Surface& target, int centreX, int centreY, int frame) const;

private:
    std::string m_name;
    SpriteSheet m_sheet;
    PixelRuns m_runs;
};
