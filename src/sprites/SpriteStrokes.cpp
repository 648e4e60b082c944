// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/SpriteStrokes.h"

#include "sprites/SpriteModel.h"

#include <utility>

SpriteStrokes::SpriteStrokes(SpriteModel& model)
    : m_model(model)
{
}

void SpriteStrokes::setTool(SpriteTool tool)
{
    end();
    m_tool = tool;
}

void SpriteStrokes::hold(int x, int y, Pixel color)
{
    const bool begins = !std::exchange(m_isUnderWay, true);
    if (begins)
        m_model.beginStroke();
    if (m_tool == SpriteTool::Pencil)
        m_model.drawLine(begins ? x : lastX, begins ? y : lastY, x, y, color);
    else if (m_tool == SpriteTool::Fill)
        m_model.floodFill(x, y, color);
    if (begins || m_tool == SpriteTool::Pencil) {
        lastX = x;
        lastY = y;
    }
}

void SpriteStrokes::end()
{
    m_isUnderWay = false;
    m_model.endStroke();
}

std::optional<PixelDistance> SpriteStrokes::distanceTo(int x, int y) const
{
    if (m_tool != SpriteTool::Pointer || !m_isUnderWay)
        return std::nullopt;
    return PixelDistance{x - lastX, y - lastY};
}
