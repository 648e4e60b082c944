#pragma once

#include "language/ZBLProgramExp.h"

#include <array>
#include <cstdint>

/// A queued event: the sprite whose block runs, which block, and the other sprite (-1 for none).
struct ZBEvent {
    std::int32_t meIndex = 0;
    std::int32_t itIndex = -1;
    EventName eventName = EventName::Normal;
};

/// The events that wait, first in, first out: at most 1001 of them.
class EventQueue
{
public:
    static constexpr int slots = 1001;

    int eventCount() const { return m_count; }
    bool isFull() const { return m_count >= slots; }
    void clear() { m_count = 0; }
    void push(const ZBEvent& event)
    {
        m_ring[static_cast<std::size_t>((m_first + m_count) & mask)] = event;
        ++m_count;
    }
    ZBEvent pop()
    {
        const ZBEvent event = m_ring[static_cast<std::size_t>(m_first)];
        m_first = (m_first + 1) & mask;
        --m_count;
        return event;
    }

private:
    static constexpr int mask = 1023; // a power of two of places, so that going round is cheap

    std::array<ZBEvent, mask + 1> m_ring{};
    int m_first = 0;
    int m_count = 0;
};
