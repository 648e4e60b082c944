// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBLProgramExp.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// A queued event: the sprite whose block runs, which block, and the other sprite (-1 for none).
struct ZBEvent {
    std::int32_t meIndex = 0;
    std::int32_t itIndex = -1;
    EventName eventName = EventName::Normal;
};

/// The events that wait, first in, first out: at most 1001 of them. Between frames there are none, and a copy
/// then costs nothing.
class EventQueue
{
public:
    static constexpr std::size_t slots = 1001;

    std::size_t eventCount() const { return m_events.size() - m_first; }
    bool isFull() const { return eventCount() >= slots; }
    void clear()
    {
        m_events.clear();
        m_first = 0;
    }
    void push(const ZBEvent& event)
    {
        if (m_first >= slots) // seldom enough that moving the rest up costs next to nothing each
            dropFired();
        m_events.push_back(event);
    }
    ZBEvent pop()
    {
        const ZBEvent event = m_events[m_first++];
        if (m_first == m_events.size())
            clear();
        return event;
    }

private:
    void dropFired()
    {
        m_events.erase(m_events.begin(), m_events.begin() + static_cast<std::ptrdiff_t>(m_first));
        m_first = 0;
    }

    std::vector<ZBEvent> m_events;
    std::size_t m_first = 0; ///< those before it have been fired
};
