// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/Events.h"

#include "platform/Rounding.h"

#include <functional>

namespace
{

// Events that cause events could keep one frame busy for ever. No game comes near it that is to be seen
// moving.
constexpr std::int64_t usualMostWorkInPass = 10'000'000;
constexpr std::int64_t workOfAnEvent = 40; // beside that of its block

} // namespace

Events::Events(RunState& run, FaultList& faults, Trace& trace)
    : m_run(run)
    , m_faults(faults)
    , m_trace(trace)
    , m_mostWorkInPass(usualMostWorkInPass)
{
}

const Program::ClassCode* Events::classOf(std::int32_t spriteIndex) const
{
    if (!m_run.programLoaded || spriteIndex < 0 ||
        spriteIndex >= static_cast<std::int32_t>(m_run.sprites.size()))
        return nullptr;
    const std::int32_t index = m_run.sprites[static_cast<std::size_t>(spriteIndex)].classIndex;
    return index >= 0 ? &m_run.program->classes[static_cast<std::size_t>(index)] : nullptr;
}

Outcome Events::TriggerEvent(std::int32_t meIndex, EventName event, std::int32_t itIndex)
{
    if (!classOf(meIndex))
        return m_faults.fail("[Internal Error!] Unable to trigger event " + std::to_string(meIndex) + "." +
                                 std::string(wordFor(event)),
                             1);
    if (m_run.events.isFull())
        return m_faults.fail("[Internal Error!] Too many simultaneous events! @@@", 1);
    m_run.events.push({meIndex, itIndex, event});
    return Outcome::Done;
}

Outcome Events::beginPass()
{
    m_run.workInPass = 0;
    for (std::int32_t i = 0; i < m_run.spriteCount; ++i)
        if (!m_run.sprites[static_cast<std::size_t>(i)].destroyed &&
            TriggerEvent(i, EventName::Normal, -1) != Outcome::Done)
            return Outcome::Told;
    return Outcome::Done;
}

Outcome Events::FireEvent()
{
    if (m_run.events.eventCount() == 0)
        return m_faults.fail("[Internal Error!] Tried to fire event when there were no events on the queue!",
                             1);
    const ZBEvent event = m_run.events.pop();
    const Program::ClassCode* owner = classOf(event.meIndex);
    if (!owner) {
        const bool known =
            event.meIndex >= 0 && event.meIndex < static_cast<std::int32_t>(m_run.sprites.size());
        const std::string className =
            known ? *m_run.sprites[static_cast<std::size_t>(event.meIndex)].className : std::string();
        return m_faults.fail("[Internal Error!] Unable to fire event " + className + "." +
                                 std::string(wordFor(event.eventName)),
                             1);
    }
    const SequenceCode& block = owner->events[static_cast<std::size_t>(event.eventName)];
    if (block.isEmpty())
        return Outcome::Done;
    m_run.workInPass += workOfAnEvent + block.stepCount();
    if (m_run.workInPass > m_mostWorkInPass)
        return m_faults.fail("The events of this frame never come to an end!  This block may be one of "
                             "those that cause each other.",
                             block.openingLine());
    bind(event);
    m_run.position.block = &block;
    m_run.position.cls = owner;
    m_run.position.event = event.eventName;
    return Outcome::Done;
}

void Events::bind(const ZBEvent& event)
{
    ZBSprite& me = m_run.sprites[static_cast<std::size_t>(event.meIndex)];
    m_run.me = event.meIndex;
    me.slot = event.meIndex;
    m_run.meValid = true;
    m_run.itValid = event.itIndex >= 0;
    m_run.detachedMe.reset();
    m_run.detachedIt.reset();
    if (m_run.itValid) {
        m_run.it = event.itIndex;
        m_run.sprites[static_cast<std::size_t>(event.itIndex)].slot = event.itIndex;
    }
    if (m_trace.boxes().events) {
        m_tagText.clear();
        me.tag.appendTo(m_tagText);
    }
    m_trace.TraceEventEntry(*me.className, event.eventName, m_tagText);
}

void Events::endEvent()
{
    m_trace.TraceEventExit(*m_run.position.cls->name, m_run.position.event);
    m_run.meValid = m_run.itValid = false;
}

void Events::removeDestroyed()
{
    for (std::int32_t i = 0; i < m_run.spriteCount;) {
        ZBSprite& sprite = m_run.sprites[static_cast<std::size_t>(i)];
        if (!sprite.destroyed) {
            ++i;
            continue;
        }
        const std::int32_t last = m_run.spriteCount - 1;
        if (i != last) {
            sprite.CopyFrom(m_run.sprites[static_cast<std::size_t>(last)]);
            m_grid.move(i, sprite.x, sprite.y);
        }
        m_grid.removeLast();
        m_run.sceneChanged = true;
        m_run.spriteCount = last;
    }
}

Outcome Events::CheckForCollisions(std::int32_t index)
{
    const ZBSprite& sprite = m_run.sprites[static_cast<std::size_t>(index)];
    m_grid.findHits(index, sprite.x, sprite.y, m_hits);
    for (const int other : m_hits)
        if (TriggerEvent(index, EventName::Collision, other) != Outcome::Done)
            return Outcome::Told;
    return Outcome::Done;
}

void Events::UpdateSpriteMapStates()
{
    for (std::int32_t i = 0; i < m_run.spriteCount; ++i)
        UpdateSpriteMapState(i);
}

void Events::UpdateSpriteMapState(std::int32_t index)
{
    ZBSprite& sprite = m_run.sprites[static_cast<std::size_t>(index)];
    const auto square = m_run.map->GetSquare(roundToInt(sprite.x), roundToInt(sprite.y));
    if (!square || square->Same(sprite.mapSquare))
        return;
    sprite.mapSquare = *square;
    static_cast<void>(TriggerEvent(sprite.slot, EventName::MapChange, -1));
}

void Events::placeInGrid(const ZBSprite& sprite)
{
    // Its slot may be an older one: it is the place in the table that counts.
    const auto* first = m_run.sprites.data();
    const std::less<const ZBSprite*> before;
    if (!before(&sprite, first) && before(&sprite, first + m_run.spriteCount))
        m_grid.move(static_cast<int>(&sprite - first), sprite.x, sprite.y);
}

bool Events::createSprite(const ZBSprite& wanted, std::shared_ptr<const ZBGraphic> graphic)
{
    const auto index = static_cast<std::size_t>(m_run.spriteCount);
    if (index == m_run.sprites.size())
        m_run.sprites.emplace_back();
    // A new sprite takes the place; what is bound stays the one that stood there.
    const auto detach = [&](bool valid, std::int32_t bound, std::optional<ZBSprite>& detached) {
        if (valid && !detached && bound == m_run.spriteCount)
            detached = m_run.sprites[index];
    };
    detach(m_run.meValid, m_run.me, m_run.detachedMe);
    detach(m_run.itValid, m_run.it, m_run.detachedIt);

    ZBSprite& sprite = m_run.sprites[index];
    sprite = wanted;
    sprite.moveTo(wanted.x, wanted.y, wanted.z); // twice, so that the previous position is the same
    sprite.moveTo(wanted.x, wanted.y, wanted.z);
    sprite.setSpeed(wanted.speed);
    sprite.uniqueId = ++m_run.lastID;
    sprite.graphic = std::move(graphic);
    if (!sprite.graphic)
        return false;
    static_cast<void>(
        TriggerEvent(m_run.spriteCount, EventName::Create, -1)); // the sprite is there all the same
    m_grid.add(sprite.x, sprite.y);
    ++m_run.spriteCount;
    return true;
}

void Events::rebuildGrid()
{
    m_grid.clear();
    for (std::int32_t i = 0; i < m_run.spriteCount; ++i) {
        const ZBSprite& sprite = m_run.sprites[static_cast<std::size_t>(i)];
        m_grid.add(sprite.x, sprite.y);
    }
}
