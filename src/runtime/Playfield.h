// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"
#include "runtime/Ports.h"
#include "runtime/RunState.h"

/// The picture of a run as the game window shows it, and how it is made.
class Playfield
{
public:
    explicit Playfield(GameScreen& screen);

    const Surface& Display() const { return m_display; }
    /// The Show Map box.
    void setShowMap(bool on);
    /// The next frame is drawn whether or not anything has changed: the picture is that of another run.
    void forget() { m_stale = true; }
    /// A white picture, as a run begins with.
    void clear();
    /// Draws the run unless the picture shows it already.
    void drawIfChanged(RunState& run);
    /// Background, map where it is wanted, sprites in table order. Nothing where nobody will ever look at it.
    void DrawFrame(RunState& run);

private:
    void drawSprites(const RunState& run);

    GameScreen& m_screen;
    Surface m_display;
    bool m_showMap = false;
    bool m_stale = true;
    bool m_isAnimated = false;         ///< the picture shows a graphic whose frames change by themselves
    std::int32_t m_drawnAnimation = 0; ///< the count of animation steps that it shows
};
