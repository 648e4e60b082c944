// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <vector>

/// Finds the sprites near a point without looking at all of them: the plane is cut into squares of 8 x 8
/// units, and every sprite stands in the list of its square. Squares 512 units apart share a list, so that
/// the plane has no end.
class CollisionGrid
{
public:
    /// Two sprites collide when they are less than this apart in x and in y.
    static constexpr double reach = 6;

    CollisionGrid() { clear(); }
    void clear();
    /// Adds the sprite with the next number (sprites are numbered from 0 without gaps).
    void add(double x, double y);
    void move(int index, double x, double y);
    /// Drops the sprite with the highest number.
    void removeLast();
    int count() const { return static_cast<int>(m_nodes.size()); }

    /// Replaces `hits` by the numbers of all sprites but `index` that collide with one at (x, y), in rising
    /// order.
    void findHits(int index, double x, double y, std::vector<int>& hits) const;

private:
    static constexpr int side = 64;                 // squares across before the lists repeat
    static constexpr double squaresPerUnit = 0.125; // a power of two: exact at every magnitude

    struct Node {
        double x = 0;
        double y = 0;
        std::int32_t cell = 0;
        std::int32_t next = -1;
        std::int32_t previous = -1;
    };
    static std::int64_t squareOf(double coordinate);
    static std::int32_t cellOf(double x, double y);
    void link(std::int32_t index, std::int32_t cell);
    void unlink(std::int32_t index);

    std::array<std::int32_t, std::size_t{side} * side> m_first{};
    std::vector<Node> m_nodes;
};
