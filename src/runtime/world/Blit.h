// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <cstddef>

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

/// target = (target AND mask) OR image, pixel by pixel (the raster operations SRCAND and SRCPAINT in one
/// pass), by the quickest routine for the processor that the program runs on.
void blit(const BlitJob& job);
/// The same by the routine that every processor runs.
void blitPlain(const BlitJob& job);
