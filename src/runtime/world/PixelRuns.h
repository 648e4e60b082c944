// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "runtime/world/Blit.h"
#include "runtime/world/SpriteSheet.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// The rows of a wide graphic cut into runs: opaque pixels are copied without a look at the mask, transparent
/// ones are passed over. It pays from about 64 pixels on, where the masks no longer stay in the cache.
class PixelRuns
{
public:
    static constexpr int leastColumns = 64;

    /// Empty where the graphic is narrower than leastColumns.
    explicit PixelRuns(const SpriteSheet& sheet);

    bool isEmpty() const { return m_rowStarts.empty(); }
    /// What blit() does, on an opaque target, with the part of the graphic that begins at that row and column
    /// of its picture.
    void draw(const BlitJob& job, std::size_t firstRow, std::size_t firstColumn) const;

private:
    void addRow(const SpriteSheet& sheet, int row);

    std::vector<PixelRun> m_runs;           ///< of all rows
    std::vector<std::uint32_t> m_rowStarts; ///< the first run of each row, and the end
};
