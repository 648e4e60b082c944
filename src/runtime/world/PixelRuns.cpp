// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/world/PixelRuns.h"

namespace
{

enum class Kind : std::uint8_t { Transparent, Opaque, Mixed };

struct RunOfAKind {
    Kind kind;
    std::uint32_t start;
    std::uint32_t length;
};

Kind kindOf(Pixel image, Pixel mask)
{
    const MaskedPixel pixel{image, mask};
    if (pixel.isTransparent())
        return Kind::Transparent;
    return pixel.isOpaque() ? Kind::Opaque : Kind::Mixed;
}

/// Adds a run behind the others of its row. Where several follow each other that are too short to be worth
/// the jump from one to the next, they become one that is drawn pixel by pixel.
void add(std::vector<RunOfAKind>& runs, RunOfAKind run)
{
    constexpr std::uint32_t worthAJump = 8;
    const auto mayJoin = [](const RunOfAKind& each) {
        return each.kind == Kind::Mixed || each.length < worthAJump;
    };
    if (!runs.empty() && mayJoin(runs.back()) && mayJoin(run)) {
        runs.back().length += run.length;
        runs.back().kind = Kind::Mixed;
    } else {
        runs.push_back(run);
    }
}

} // namespace

PixelRuns::PixelRuns(const SpriteSheet& sheet)
{
    if (sheet.columns() < leastColumns)
        return;
    const int rows = sheet.picture().height();
    m_rowStarts.reserve(static_cast<std::size_t>(rows) + 1);
    for (int row = 0; row < rows; ++row) {
        m_rowStarts.push_back(static_cast<std::uint32_t>(m_runs.size()));
        addRow(sheet, row);
    }
    m_rowStarts.push_back(static_cast<std::uint32_t>(m_runs.size()));
    m_runs.shrink_to_fit();
}

void PixelRuns::addRow(const SpriteSheet& sheet, int row)
{
    const auto columns = static_cast<std::size_t>(sheet.columns());
    const auto images = sheet.picture().row(row).first(columns);
    const auto masks = sheet.picture().row(row).subspan(columns, columns);
    std::vector<RunOfAKind> found;
    for (std::size_t x = 0; x < columns;) {
        const Kind kind = kindOf(images[x], masks[x]);
        const std::size_t start = x;
        while (x < columns && kindOf(images[x], masks[x]) == kind)
            ++x;
        add(found, {kind, static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(x - start)});
    }
    for (const RunOfAKind& run : found)
        if (run.kind != Kind::Transparent)
            m_runs.push_back({run.start, run.length, run.kind == Kind::Opaque});
}

void PixelRuns::draw(const BlitJob& job, std::size_t firstRow, std::size_t firstColumn) const
{
    blitRuns(job, m_runs.data(), &m_rowStarts[firstRow], firstColumn);
}
