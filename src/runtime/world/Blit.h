// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <cstddef>
#include <cstdint>

/// A rectangle of a masked sprite on its way to the screen. The target does not overlap the sources.
struct BlitJob {
    Pixel* target;
    std::size_t targetStride; ///< pixels from row to row
    const Pixel* mask;
    const Pixel* image;
    std::size_t sourceStride;
    std::size_t width;
    std::size_t height;
};

/// Neighbours in a row of a sprite: opaque ones are copied, the others need a look at their mask.
struct PixelRun {
    std::uint32_t start;
    std::uint32_t length;
    bool isOpaque;
};

/// target = (target AND mask) OR image, pixel by pixel (the raster operations SRCAND and SRCPAINT in one
/// pass), by the quickest routine for the processor that the program runs on.
void blit(const BlitJob& job);
/// The same, on an opaque target, for a rectangle whose rows have been cut into runs; pixels in none of them
/// are transparent. The runs of row y are `runs[rowStarts[y]]` up to `runs[rowStarts[y + 1]]`, counted from
/// the left edge of the sprite, of which `firstColumn` columns do not show.
void blitRuns(const BlitJob& job, const PixelRun* runs, const std::uint32_t* rowStarts,
              std::size_t firstColumn);
/// What blit does, by the routine that every processor runs.
void blitPlain(const BlitJob& job);
