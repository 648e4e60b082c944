// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "runtime/FaultList.h"
#include "runtime/Trace.h"
#include "runtime/world/CollisionGrid.h"

#include <cstdint>
#include <string>
#include <vector>

/// Queues what happens to sprites and binds ME and IT to each event's; collisions and map squares; the coming
/// and going of sprites.
class Events
{
public:
    Events(RunState& run, FaultList& faults, Trace& trace);

    /// What the events of one frame may do, counted in steps, before they are taken to have no end.
    void setMostWorkInPass(std::int64_t steps) { m_mostWorkInPass = steps; }

    /// Queues one event; an event that cannot be queued has put a fault on the list.
    Outcome TriggerEvent(std::int32_t meIndex, EventName event, std::int32_t itIndex);
    /// Queues a NORMAL event for every live sprite: the beginning of an event pass.
    Outcome beginPass();
    /// Takes the oldest event. Where its class has a block for it, that is the frame's block afterwards, with
    /// ME and IT bound.
    Outcome FireEvent();
    /// The block of the event that was fired has run to its end.
    void endEvent();
    /// The end of an event pass: the last live sprites take the places of destroyed ones.
    void removeDestroyed();

    /// Queues a COLLISION event for every sprite that the one at `index` touches, in table order.
    Outcome CheckForCollisions(std::int32_t index);
    /// Queue a MAPCHANGE event where the map square under a sprite is another one. A fault stops nobody: the
    /// statement goes on.
    void UpdateSpriteMapStates();
    void UpdateSpriteMapState(std::int32_t index);
    /// The sprite has moved: it is looked for where it is now.
    void placeInGrid(const ZBSprite& sprite);
    /// Puts `wanted` behind the live sprites. Without a graphic it is not counted.
    bool createSprite(const ZBSprite& wanted, std::shared_ptr<const ZBGraphic> graphic);
    /// A run begins or another state has been put back.
    void rebuildGrid();

private:
    const Program::ClassCode* classOf(std::int32_t spriteIndex) const;
    void bind(const ZBEvent& event);

    RunState& m_run;
    FaultList& m_faults;
    Trace& m_trace;
    CollisionGrid m_grid; ///< where the live sprites are; follows from the state
    std::int64_t m_mostWorkInPass;
    std::vector<int> m_hits; ///< scratch of the collision test
    std::string m_tagText;   ///< scratch of the event trace
};
