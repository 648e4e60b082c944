// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <cstdint>
#include <optional>

class SpriteModel;

/// The drawing tools, numbered as in the core.
enum class SpriteTool { Pointer = 1, Pencil = 2, Fill = 3 };

struct PixelDistance {
    int across = 0;
    int down = 0;

    bool operator==(const PixelDistance&) const = default;
};

/// What a held button does on the current frame of a sprite. A stroke begins where the button is first held
/// and lasts until it is let go or the focus is lost; it is one step to undo.
class SpriteStrokes
{
public:
    explicit SpriteStrokes(SpriteModel& model);

    SpriteTool tool() const { return m_tool; }
    /// Ends a stroke that is under way.
    void setTool(SpriteTool tool);

    /// The button is held over a pixel, which may lie outside the frame.
    void hold(int x, int y, Pixel color);
    void end();

    /// How far a pixel is from where the pointer's stroke began; nothing where there is none.
    std::optional<PixelDistance> distanceTo(int x, int y) const;

private:
    SpriteModel& m_model;
    SpriteTool m_tool = SpriteTool::Pencil;
    bool m_isUnderWay = false;
    // Of the pencil's last point, or where the pointer began.
    std::int32_t lastX = 0;
    std::int32_t lastY = 0;
};
