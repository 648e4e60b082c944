// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "forms/WindowPlacement.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

namespace
{

using forms::Obstacle;
using forms::ObstacleArea;
using forms::WindowRole;
using forms::WindowSize;

/// The harm of one covered pixel, and of one that the window itself loses by shrinking.
struct Manners {
    int runButtons = 0;
    int cursorLine = 0;
    int gameEditor = 0;
    int codeEditor = 0;
    int gameWindow = 0;
    int spyWindow = 0;
    int other = 0;
    int lost = 1;
    bool below = false; ///< below the others rather than beside them
};

constexpr int never = 1'000'000;
constexpr int offScreen = 100;

constexpr Manners mannersOf(WindowRole role)
{
    switch (role) {
    case WindowRole::GameEditor:
        return {.below = true}; // the first to come: the others mind it
    case WindowRole::CodeEditor:
        return {.runButtons = never, .gameEditor = 2, .gameWindow = 1};
    case WindowRole::GameWindow:
        return {.runButtons = never, .gameEditor = 10, .codeEditor = 1, .spyWindow = 4, .other = 1};
    case WindowRole::SpyWindow:
        return {.runButtons = never,
                .gameEditor = 6,
                .codeEditor = 3,
                .gameWindow = 8,
                .other = 1,
                .below = true};
    case WindowRole::TimeWindow: // used together with game, spy and code
        return {.runButtons = never,
                .gameEditor = 8,
                .codeEditor = 3,
                .gameWindow = 12,
                .spyWindow = 4,
                .other = 1,
                .below = true};
    case WindowRole::ParseError:
        return {.runButtons = never,
                .cursorLine = never,
                .gameEditor = 6,
                .codeEditor = 3,
                .spyWindow = 1,
                .below = true};
    case WindowRole::GamePanel: // for a moment, so it may cover the program rather than be small
        return {.runButtons = never,
                .gameEditor = 24,
                .codeEditor = 1,
                .gameWindow = 32,
                .spyWindow = 4,
                .other = 12,
                .lost = 4,
                .below = true};
    case WindowRole::Workshop:
        return {.runButtons = never,
                .gameEditor = 3,
                .codeEditor = 1,
                .gameWindow = 8,
                .spyWindow = 1,
                .other = 1};
    }
    return {};
}

constexpr int harmOf(Obstacle obstacle, const Manners& manners)
{
    switch (obstacle) {
    case Obstacle::RunButtons:
        return manners.runButtons;
    case Obstacle::CursorLine:
        return manners.cursorLine;
    case Obstacle::GameEditor:
        return manners.gameEditor;
    case Obstacle::CodeEditor:
        return manners.codeEditor;
    case Obstacle::GameWindow:
        return manners.gameWindow;
    case Obstacle::SpyWindow:
        return manners.spyWindow;
    case Obstacle::Other:
        return manners.other;
    }
    return 0;
}

std::int64_t areaOf(QSize size)
{
    return std::int64_t{size.width()} * size.height();
}

std::int64_t sharedArea(const QRect& a, const QRect& b)
{
    const QRect shared = a.intersected(b);
    return shared.isEmpty() ? 0 : areaOf(shared.size());
}

/// A stretch along one side of the screen, from `low` up to but without `high`.
struct Stretch {
    int low;
    int high;
    bool operator==(const Stretch&) const = default;
};

/// Where a window can lie along one side of the screen: at either end of every stretch between two edges of
/// what is there.
std::vector<Stretch> stretchesFor(int wanted, int smallest, Stretch screen, std::vector<int> edges)
{
    edges.push_back(screen.low);
    edges.push_back(screen.high);
    std::vector<Stretch> found;
    for (const int low : edges) {
        for (const int high : edges) {
            if (low >= high || low < screen.low || high > screen.high)
                continue;
            const int length = std::max(std::min(wanted, high - low), smallest);
            found.push_back({low, low + length});
            const int start = std::max(screen.low, high - length); // the title bar stays in reach
            found.push_back({start, start + length});
        }
    }
    std::ranges::sort(found, {}, [](const Stretch& stretch) { return std::pair(stretch.low, stretch.high); });
    // clang 14 cannot read that of std::ranges.
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

struct HarmedArea {
    QRect area;
    int harm; ///< of one pixel
};

/// What decides between two places; the smaller is the better.
using Rank = std::tuple<std::int64_t, int, int>;

struct Place {
    QRect area;
    Rank rank;
};

Place bestPlace(const Manners& manners, const WindowSize& size, const QRect& screen, int gap,
                std::span<const ObstacleArea> obstacles)
{
    std::vector<int> columns;
    std::vector<int> rows;
    std::vector<HarmedArea> harmed;
    for (const ObstacleArea& there : obstacles) {
        const int harm = harmOf(there.obstacle, manners);
        const QRect area = there.area.adjusted(-gap, -gap, gap, gap);
        if (harm == 0 || !area.isValid())
            continue;
        harmed.push_back({area, harm});
        columns.insert(columns.end(), {area.left(), area.right() + 1});
        rows.insert(rows.end(), {area.top(), area.bottom() + 1});
    }
    const QRect room = screen.adjusted(gap, gap, -gap, -gap);
    const auto across = stretchesFor(size.wanted.width(), size.smallest.width(),
                                     {room.left(), room.right() + 1}, std::move(columns));
    const auto down = stretchesFor(size.wanted.height(), size.smallest.height(),
                                   {room.top(), room.bottom() + 1}, std::move(rows));
    std::optional<Place> best;
    for (const Stretch& x : across) {
        for (const Stretch& y : down) {
            const QRect area(x.low, y.low, x.high - x.low, y.high - y.low);
            std::int64_t harm = manners.lost * (areaOf(size.wanted) - areaOf(area.size()));
            harm += offScreen * (areaOf(area.size()) - sharedArea(area, screen));
            for (const HarmedArea& there : harmed)
                harm += there.harm * sharedArea(area, there.area);
            const Rank rank = manners.below ? Rank{harm, x.low, y.low} : Rank{harm, y.low, x.low};
            if (!best || rank < best->rank)
                best = {area, rank};
        }
    }
    return best.value_or(Place{{screen.topLeft(), size.wanted}, {}});
}

} // namespace

namespace forms
{

QRect placeOfWindow(WindowRole role, const WindowSize& size, const QRect& screen,
                    std::span<const ObstacleArea> obstacles)
{
    const Manners manners = mannersOf(role);
    const Place airy = bestPlace(manners, size, screen, windowGap, obstacles);
    if (std::get<0>(airy.rank) == 0)
        return airy.area;
    const Place tight = bestPlace(manners, size, screen, 0, obstacles);
    // A few pixels gained are not worth windows that touch.
    const std::int64_t worth = std::int64_t{20'000} * manners.lost;
    return std::get<0>(tight.rank) + worth < std::get<0>(airy.rank) ? tight.area : airy.area;
}

bool fitBeside(int width, int otherWidth, const QRect& screen)
{
    return width + otherWidth + windowGap <= screen.width();
}

} // namespace forms
