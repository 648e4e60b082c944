// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <memory_resource>
#include <type_traits>
#include <utility>

/// Where a program's nodes live: one behind the other, in the order in which they were read, until all of
/// them go at once.
class Arena
{
public:
    /// A new node. Nothing is destroyed with the arena, so a node must own nothing.
    template<typename Node, typename... Arguments> Node* make(Arguments&&... arguments)
    {
        static_assert(std::is_trivially_destructible_v<Node>);
        return new (m_memory.allocate(sizeof(Node), alignof(Node)))
            Node(std::forward<Arguments>(arguments)...);
    }

private:
    std::pmr::monotonic_buffer_resource m_memory;
};
