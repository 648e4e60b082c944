// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/Playfield.h"

#include "runtime/world/Field.h"

#include <cstring>

namespace
{

constexpr int marginAroundField = 50; // sprites this far outside are still drawn

} // namespace

Playfield::Playfield(GameScreen& screen)
    : m_screen(screen)
{
    clear();
}

void Playfield::setShowMap(bool on)
{
    m_showMap = on;
    m_stale = true;
}

void Playfield::clear()
{
    m_display.reset(fieldSize, fieldSize, white);
    m_stale = true;
}

void Playfield::drawIfChanged(RunState& run)
{
    // The frame begins with what the last one ended with, and many a picture stands still.
    const bool hasMoved = m_isAnimated && animationSteps(run.frameNumber) != m_drawnAnimation;
    if (run.sceneChanged || m_stale || hasMoved)
        DrawFrame(run);
}

void Playfield::DrawFrame(RunState& run)
{
    if (!m_screen.wantsFrames())
        return;
    run.sceneChanged = false;
    m_stale = false;
    m_isAnimated = false;
    m_drawnAnimation = animationSteps(run.frameNumber);
    std::memcpy(m_display.pixels().data(), run.background->pixels().data(), m_display.pixels().size_bytes());
    if (m_showMap)
        run.map->Draw(m_display, -1);
    drawSprites(run);
    m_screen.refreshDisplay();
}

void Playfield::drawSprites(const RunState& run)
{
    for (std::int32_t i = 0; i < run.spriteCount; ++i) {
        const ZBSprite& sprite = run.sprites[static_cast<std::size_t>(i)];
        if (sprite.hidden || !sprite.graphic)
            continue;
        const double x = WorldToScreenX(sprite.x, m_display.width());
        const double y = WorldToScreenY(sprite.y, m_display.height());
        if (x > -marginAroundField && y > -marginAroundField && x < m_display.width() + marginAroundField &&
            y < m_display.height() + marginAroundField) {
            m_isAnimated |= sprite.graphic->isAnimated();
            sprite.graphic->Draw(m_display, static_cast<int>(x), static_cast<int>(y),
                                 sprite.graphic->frameIndex(run.frameNumber, sprite.direction));
        }
    }
}
