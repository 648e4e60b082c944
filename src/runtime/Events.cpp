#include "runtime/ZBContext.h"

#include "platform/Rounding.h"

#include <functional>

// Queued events, collisions and map squares.

namespace
{

// Events that cause events could keep one frame busy for ever. What the blocks of a frame may do, counted in
// steps; no game comes near it that is to be seen moving.
#ifdef FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION
constexpr std::int64_t mostWorkInAPass = 100'000; // fuzzers want many games, not long ones
#else
constexpr std::int64_t mostWorkInAPass = 10'000'000;
#endif
constexpr std::int64_t workOfAnEvent = 40; // beside that of its block

} // namespace

const Program::ClassCode* ZBContext::classOf(std::int32_t spriteIndex) const
{
    if (!m_run.programLoaded || spriteIndex < 0 ||
        spriteIndex >= static_cast<std::int32_t>(m_run.sprites.size()))
        return nullptr;
    const std::int32_t index = m_run.sprites[static_cast<std::size_t>(spriteIndex)].classIndex;
    return index >= 0 ? &m_run.program->classes[static_cast<std::size_t>(index)] : nullptr;
}

bool ZBContext::TriggerEvent(std::int32_t meIndex, EventName event, std::int32_t itIndex)
{
    if (!classOf(meIndex))
        return fail("[Internal Error!] Unable to trigger event " + std::to_string(meIndex) + "." +
                        std::string(toString(event)),
                    1);
    if (m_run.events.isFull())
        return fail("[Internal Error!] Too many simultaneous events! @@@", 1);
    m_run.events.push({meIndex, itIndex, event});
    return true;
}

bool ZBContext::FireEvent()
{
    if (m_run.events.eventCount() == 0)
        return fail("[Internal Error!] Tried to fire event when there were no events on the queue!", 1);
    const ZBEvent event = m_run.events.pop();
    const Program::ClassCode* owner = classOf(event.meIndex);
    const std::string_view name = toString(event.eventName);
    if (!owner) {
        const bool known =
            event.meIndex >= 0 && event.meIndex < static_cast<std::int32_t>(m_run.sprites.size());
        const std::string className =
            known ? *m_run.sprites[static_cast<std::size_t>(event.meIndex)].className : std::string();
        return fail("[Internal Error!] Unable to fire event " + className + "." + std::string(name), 1);
    }
    const SequenceCode& block = owner->events[static_cast<std::size_t>(event.eventName)];
    if (block.isEmpty())
        return true;

    m_workInPass += workOfAnEvent + block.stepCount();
    if (m_workInPass > mostWorkInAPass)
        return fail(
            "The events of this frame never come to an end!  This block may be one of those that cause each "
            "other.",
            block.openingLine());

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
    Text className = me.className;
    m_tagText.clear();
    if (m_interpreter.traceBoxes().events)
        me.tag.appendTo(m_tagText);
    m_interpreter.TraceEventEntry(*className, name, m_tagText);
    if (!Interpret(block))
        return false;
    m_interpreter.TraceEventExit(*className, name);
    m_run.meValid = m_run.itValid = false;
    return true;
}

bool ZBContext::DoSpriteEvents()
{
    m_workInPass = 0;
    for (std::int32_t i = 0; i < m_run.spriteCount; ++i)
        if (!m_run.sprites[static_cast<std::size_t>(i)].destroyed && !TriggerEvent(i, EventName::Normal, -1))
            return false;
    while (m_run.events.eventCount() > 0)
        if (!FireEvent())
            return false;
    removeDestroyed();
    return true;
}

void ZBContext::removeDestroyed()
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
            m_run.grid.move(i, sprite.x, sprite.y);
        }
        m_run.grid.removeLast();
        m_sceneChanged = true;
        m_run.spriteCount = last;
    }
}

bool ZBContext::CheckForCollisions(std::int32_t index)
{
    const ZBSprite& sprite = m_run.sprites[static_cast<std::size_t>(index)];
    m_run.grid.findHits(index, sprite.x, sprite.y, m_hits);
    for (const int other : m_hits)
        if (!TriggerEvent(index, EventName::Collision, other))
            return false;
    return true;
}

void ZBContext::UpdateSpriteMapStates()
{
    for (std::int32_t i = 0; i < m_run.spriteCount; ++i)
        UpdateSpriteMapState(i);
}

void ZBContext::UpdateSpriteMapState(std::int32_t index)
{
    ZBSprite& sprite = m_run.sprites[static_cast<std::size_t>(index)];
    const auto square = m_run.map.GetSquare(roundToInt(sprite.x), roundToInt(sprite.y));
    if (!square || square->Same(sprite.mapSquare))
        return;
    sprite.mapSquare = *square;
    TriggerEvent(sprite.slot, EventName::MapChange, -1);
}

ZBSprite* ZBContext::boundSprite(std::int32_t index, std::optional<ZBSprite>& detached)
{
    return detached ? &*detached : &m_run.sprites[static_cast<std::size_t>(index)];
}

ZBSprite* ZBContext::getMePtr(int line)
{
    if (m_run.meValid)
        return boundSprite(m_run.me, m_run.detachedMe);
    fail("You can't use ME if you aren't in an event!", line);
    return nullptr;
}

ZBSprite* ZBContext::getItPtr(int line)
{
    if (m_run.itValid)
        return boundSprite(m_run.it, m_run.detachedIt);
    fail("@@@You can't use IT if you aren't in an event!", line);
    return nullptr;
}

void ZBContext::placeInGrid(const ZBSprite& sprite)
{
    // Its slot may be an older one: it is the place in the table that counts.
    const auto* first = m_run.sprites.data();
    const std::less<const ZBSprite*> before;
    if (!before(&sprite, first) && before(&sprite, first + m_run.spriteCount))
        m_run.grid.move(static_cast<int>(&sprite - first), sprite.x, sprite.y);
}
