#pragma once

#include "platform/Surface.h"

#include <cstddef>

/// One row of a masked sprite: `target` = (`target` AND `mask`) OR `image`, pixel by pixel (the raster operations
/// SRCAND and SRCPAINT in one pass). The rows do not overlap.
using BlitRow = void (*)(Pixel* target, const Pixel* mask, const Pixel* image, std::size_t count);

/// The quickest such routine for the processor that the program runs on.
BlitRow bestBlitRow();
/// The plain one, which every processor runs.
void blitRowPlain(Pixel* target, const Pixel* mask, const Pixel* image, std::size_t count);
