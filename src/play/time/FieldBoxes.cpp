// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/time/FieldBoxes.h"

#include "forms/Texts.h"
#include "runtime/world/CollisionGrid.h"
#include "runtime/world/Field.h"

#include <cmath>

namespace
{

constexpr double pixelsPerUnit = fieldSize / 200.0;
constexpr double side = CollisionGrid::reach * pixelsPerUnit;

/// Not rounded to whole pixels: what overlaps by a hair is seen to.
QRectF boxOf(const ZBSprite& sprite)
{
    const QPointF centre((sprite.x + 100) * pixelsPerUnit, (100 - sprite.y) * pixelsPerUnit);
    return {centre - QPointF(side / 2, side / 2), QSizeF(side, side)};
}

bool isOnField(const ZBSprite& sprite)
{
    constexpr double edge = 100 + CollisionGrid::reach / 2;
    return std::abs(sprite.x) < edge && std::abs(sprite.y) < edge;
}

QString nameOf(const ZBSprite& sprite)
{
    std::string name = sprite.className ? *sprite.className : std::string();
    if (const auto tag = sprite.tag.toString())
        name += ' ' + *tag;
    return forms::fromUtf8(name);
}

} // namespace

std::vector<FieldBox> fieldBoxes(const RunState& run)
{
    CollisionGrid grid;
    for (std::int32_t i = 0; i < run.spriteCount; ++i) {
        const ZBSprite& sprite = run.sprites[static_cast<std::size_t>(i)];
        grid.add(sprite.x, sprite.y);
    }
    std::vector<FieldBox> boxes;
    std::vector<int> hits;
    for (std::int32_t i = 0; i < run.spriteCount; ++i) {
        const ZBSprite& sprite = run.sprites[static_cast<std::size_t>(i)];
        if (sprite.hidden || !isOnField(sprite))
            continue;
        grid.findHits(i, sprite.x, sprite.y, hits);
        boxes.push_back({boxOf(sprite), nameOf(sprite), !hits.empty()});
    }
    return boxes;
}
