// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/world/CollisionGrid.h"

#include <algorithm>
#include <cmath>

void CollisionGrid::clear()
{
    m_first.fill(-1);
    m_nodes.clear();
}

std::int64_t CollisionGrid::squareOf(double coordinate)
{
    // Beyond these bounds doubles are so far apart that everything may share a square.
    const double square = coordinate * squaresPerUnit;
    if (!(square > -1e9))
        return -1'000'000'000;
    if (square >= 1e9)
        return 1'000'000'000;
    const auto whole = static_cast<std::int64_t>(square); // towards zero
    return square < static_cast<double>(whole) ? whole - 1 : whole;
}

std::int32_t CollisionGrid::cellOf(double x, double y)
{
    return static_cast<std::int32_t>((squareOf(y) & (side - 1)) * side + (squareOf(x) & (side - 1)));
}

void CollisionGrid::link(std::int32_t index, std::int32_t cell)
{
    Node& node = m_nodes[static_cast<std::size_t>(index)];
    std::int32_t& first = m_first[static_cast<std::size_t>(cell)];
    node.cell = cell;
    node.previous = -1;
    node.next = first;
    if (first >= 0)
        m_nodes[static_cast<std::size_t>(first)].previous = index;
    first = index;
}

void CollisionGrid::unlink(std::int32_t index)
{
    const Node& node = m_nodes[static_cast<std::size_t>(index)];
    if (node.previous >= 0)
        m_nodes[static_cast<std::size_t>(node.previous)].next = node.next;
    else
        m_first[static_cast<std::size_t>(node.cell)] = node.next;
    if (node.next >= 0)
        m_nodes[static_cast<std::size_t>(node.next)].previous = node.previous;
}

void CollisionGrid::add(double x, double y)
{
    m_nodes.push_back({x, y, 0, -1, -1});
    link(static_cast<std::int32_t>(m_nodes.size()) - 1, cellOf(x, y));
}

void CollisionGrid::move(int index, double x, double y)
{
    Node& node = m_nodes[static_cast<std::size_t>(index)];
    node.x = x;
    node.y = y;
    const std::int32_t cell = cellOf(x, y);
    if (cell == node.cell)
        return;
    unlink(index);
    link(index, cell);
}

void CollisionGrid::removeLast()
{
    unlink(static_cast<std::int32_t>(m_nodes.size()) - 1);
    m_nodes.pop_back();
}

void CollisionGrid::findHits(int index, double x, double y, std::vector<int>& hits) const
{
    hits.clear();
    const std::int64_t left = squareOf(x - reach);
    const std::int64_t right = squareOf(x + reach);
    const std::int64_t bottom = squareOf(y - reach);
    const std::int64_t top = squareOf(y + reach);
    for (std::int64_t row = bottom; row <= top; ++row) {
        const auto* lists = &m_first[static_cast<std::size_t>((row & (side - 1)) * side)];
        for (std::int64_t column = left; column <= right; ++column) {
            for (std::int32_t at = lists[column & (side - 1)]; at >= 0;) {
                const Node& node = m_nodes[static_cast<std::size_t>(at)];
                if (std::abs(x - node.x) < reach && std::abs(y - node.y) < reach && at != index)
                    hits.push_back(at);
                at = node.next;
            }
        }
    }
    if (hits.size() > 1)
        std::ranges::sort(hits);
}
