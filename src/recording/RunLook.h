// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "runtime/RunState.h"

#include <cstddef>
#include <span>

/// The sprite that ME, or IT, stands for; null where there is none.
inline const ZBSprite* boundSprite(const RunState& run, bool isIt)
{
    if (!(isIt ? run.itValid : run.meValid))
        return nullptr;
    const auto& detached = isIt ? run.detachedIt : run.detachedMe;
    return detached ? &*detached : &run.sprites[static_cast<std::size_t>(isIt ? run.it : run.me)];
}

/// In table order: later ones are drawn over those before.
inline std::span<const ZBSprite> liveSprites(const RunState& run)
{
    return {run.sprites.data(), static_cast<std::size_t>(run.spriteCount)};
}

/// The value of a variable; no kind where it has not been set.
inline ZBLValueExp valueOf(const RunState& run, const ZBLVarExp& variable)
{
    const auto slot = static_cast<std::size_t>(variable.slot);
    if (variable.type == ValueKind::Counter) {
        const double number = run.variables.counters[slot];
        return number == number ? ZBLValueExp::counter(number) : ZBLValueExp();
    }
    Text text = run.variables.texts[slot];
    return text ? ZBLValueExp::text(text) : ZBLValueExp();
}

/// The line that opens the block which the sprite's class has for the event; 0 for none.
inline int openingLineOf(const RunState& run, const ZBSprite& sprite, EventName event)
{
    if (sprite.classIndex < 0)
        return 0;
    const Program::ClassCode& owner = run.program->classes[static_cast<std::size_t>(sprite.classIndex)];
    return owner.events[static_cast<std::size_t>(event)].openingLine();
}
