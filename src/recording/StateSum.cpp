// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "recording/StateSum.h"

#include "platform/Sum.h"

namespace
{

void add(Sum& sum, std::int64_t number)
{
    sum.add(static_cast<std::uint64_t>(number));
}

void add(Sum& sum, Text text)
{
    add(sum, std::int64_t{text != nullptr});
    if (text)
        sum.add(std::string_view(*text));
}

void add(Sum& sum, const ZBLValueExp& value)
{
    add(sum, static_cast<std::int64_t>(value.type));
    sum.add(value.realVal);
    add(sum, value.stringVal);
}

void add(Sum& sum, const ZBSprite& sprite)
{
    add(sum, sprite.className);
    for (const double number : {sprite.x, sprite.y, sprite.z, sprite.previousX, sprite.previousY,
                                sprite.previousZ, sprite.direction, sprite.speed, sprite.stepX, sprite.stepY})
        sum.add(number);
    add(sum, sprite.tag);
    sum.add(sprite.graphic ? std::string_view(sprite.graphic->getName()) : std::string_view());
    for (const std::int64_t number :
         {std::int64_t{sprite.slot}, std::int64_t{sprite.uniqueId}, std::int64_t{sprite.mapSquare.ToLong()},
          std::int64_t{sprite.destroyed}, std::int64_t{sprite.hidden}})
        add(sum, number);
}

void addSprites(Sum& sum, const RunState& run)
{
    add(sum, run.spriteCount);
    for (const ZBSprite& sprite : run.sprites)
        add(sum, sprite);
    for (const auto* detached : {&run.detachedMe, &run.detachedIt}) {
        add(sum, std::int64_t{detached->has_value()});
        if (*detached)
            add(sum, **detached);
    }
    for (const std::int64_t number : {run.meValid ? run.me : -1, run.itValid ? run.it : -1, run.lastID})
        add(sum, number);
}

void addPosition(Sum& sum, const RunState& run)
{
    add(sum, static_cast<std::int64_t>(run.position.phase));
    if (!run.inFrame())
        return;
    // Steps are counted otherwise in each form of a block; lines are not.
    add(sum, run.position.block ? run.position.block->openingLine() : 0);
    add(sum, run.currentLine());
    add(sum, static_cast<std::int64_t>(run.position.event));
    add(sum, static_cast<std::int64_t>(run.events.eventCount()));
}

} // namespace

std::uint64_t stateSum(const RunState& run)
{
    Sum sum;
    for (const std::int64_t number :
         {std::int64_t{run.frameNumber}, std::int64_t{run.stateIndex}, std::int64_t{run.inLoop}, run.tick,
          std::int64_t{run.blocks}, std::int64_t{run.traceDepth}, std::int64_t{run.running}})
        add(sum, number);
    sum.add(run.state);
    add(sum, run.nextState);
    addPosition(sum, run);
    for (const double counter : run.variables.counters)
        sum.add(counter);
    for (Text text : run.variables.texts)
        add(sum, text);
    for (const std::int32_t slot : run.variables.order)
        add(sum, slot);
    addSprites(sum, run);
    for (int code = 0; code < ZBKeyboard::keyCount; ++code)
        sum.addByte(run.keyboard.isDown(code) ? 1 : 0);
    for (Text name : {run.game.backgroundName, run.game.musicName, run.game.mapName})
        add(sum, name);
    const int squares = run.map->hasGrid() ? run.map->columns * run.map->rows : 0;
    for (int index = 0; index < squares; ++index)
        sum.addByte(static_cast<unsigned char>(run.map->square(index).ToLong()));
    sum.add(run.random.state());
    return sum.value();
}
