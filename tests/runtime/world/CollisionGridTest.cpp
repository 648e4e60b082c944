// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/world/CollisionGrid.h"

#include "platform/Random.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{

/// Looks at every sprite: slow, and simple enough to trust.
class PlainScan
{
public:
    void add(double x, double y) { m_points.push_back({x, y}); }
    void move(int index, double x, double y) { m_points[static_cast<std::size_t>(index)] = {x, y}; }
    void removeLast() { m_points.pop_back(); }
    int count() const { return static_cast<int>(m_points.size()); }
    std::vector<int> hits(int index, double x, double y) const
    {
        std::vector<int> found;
        for (int other = 0; other < count(); ++other) {
            const Point& point = m_points[static_cast<std::size_t>(other)];
            if (other != index && std::abs(x - point.x) < 6 && std::abs(y - point.y) < 6)
                found.push_back(other);
        }
        return found;
    }

private:
    struct Point {
        double x, y;
    };
    std::vector<Point> m_points;
};

} // namespace

TEST(CollisionGrid, FindsWhatAPlainScanFinds)
{
    // In a crowd, across the repeats of the lists, at the bounds of the squares' numbers, and beyond all
    // sense.
    const double middles[] = {0, 256, -512, 1e5, -3e7, 8e9, -8e9, 1e17, -1e300};
    Random random(3);
    std::vector<int> found;
    for (const double spread : {20.0, 200.0, 3000.0}) {
        CollisionGrid grid;
        PlainScan scan;
        const auto coordinate = [&] {
            const double middle = random.below(3) == 0 ? middles[random.below(std::size(middles))] : 0;
            const double offset = (random.nextReal() - 0.5) * spread;
            return middle +
                   (random.below(2) == 0 ? offset : std::round(offset)); // whole ones meet the bounds
        };
        for (int step = 0; step < 6000; ++step) {
            const double x = coordinate();
            const double y = coordinate();
            const auto choice = random.below(8);
            if (scan.count() < 20 || (choice == 0 && scan.count() < 300)) {
                grid.add(x, y);
                scan.add(x, y);
            } else if (choice == 1) {
                grid.removeLast();
                scan.removeLast();
            } else {
                const int index = static_cast<int>(random.below(static_cast<std::uint64_t>(scan.count())));
                grid.move(index, x, y);
                scan.move(index, x, y);
                grid.findHits(index, x, y, found);
                ASSERT_EQ(found, scan.hits(index, x, y)) << "at " << x << ", " << y;
            }
        }
        ASSERT_EQ(grid.count(), scan.count());
    }
}

TEST(CollisionGrid, ReachesJustShortOfSix)
{
    CollisionGrid grid;
    grid.add(0, 0);
    std::vector<int> hits;
    const double below = std::nextafter(6.0, 0.0);
    struct Case {
        double x, y;
        bool isHit;
    };
    const Case cases[] = {{below, -below, true}, {-below, below, true}, {6, 0, false},
                          {0, -6, false},        {-6, 6, false},        {below, 6, false}};
    for (const Case& c : cases) {
        grid.findHits(1, c.x, c.y, hits);
        EXPECT_EQ(!hits.empty(), c.isHit) << c.x << ", " << c.y;
    }
    grid.findHits(0, 0, 0, hits); // not itself
    EXPECT_TRUE(hits.empty());
}
