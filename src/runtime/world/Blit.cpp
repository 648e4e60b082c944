// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/world/Blit.h"

#include <algorithm>
#include <cstring>

namespace
{

// Always inlined, so that each copy is compiled for the processor that its caller names.
[[gnu::always_inline]] inline void blitRow(Pixel* __restrict target, const Pixel* __restrict mask,
                                           const Pixel* __restrict image, std::size_t width)
{
    for (std::size_t x = 0; x < width; ++x)
        target[x] = (target[x] & mask[x]) | image[x];
}

[[gnu::always_inline]] inline void blitRows(const BlitJob& job)
{
    Pixel* target = job.target;
    const Pixel* mask = job.mask;
    const Pixel* image = job.image;
    for (std::size_t y = 0; y < job.height; ++y) {
        blitRow(target, mask, image, job.width);
        target += job.targetStride;
        mask += job.sourceStride;
        image += job.sourceStride;
    }
}

/// As blitRows; a width that is known leaves no loop and no rest behind it.
template<std::size_t width> [[gnu::always_inline]] inline void blitNarrow(BlitJob job)
{
    job.width = width;
    blitRows(job);
}

[[gnu::always_inline]] inline void blitAny(const BlitJob& job)
{
    switch (job.width) {
    case 1:
        return blitNarrow<1>(job);
    case 2:
        return blitNarrow<2>(job);
    case 3:
        return blitNarrow<3>(job);
    case 4:
        return blitNarrow<4>(job);
    case 5:
        return blitNarrow<5>(job);
    case 6:
        return blitNarrow<6>(job);
    case 7:
        return blitNarrow<7>(job);
    default:
        return blitRows(job);
    }
}

[[gnu::always_inline]] inline void blitAllRuns(const BlitJob& job, const PixelRun* runs,
                                               const std::uint32_t* rowStarts, std::size_t firstColumn)
{
    const std::size_t end = firstColumn + job.width;
    for (std::size_t row = 0; row < job.height; ++row) {
        Pixel* const target = job.target + row * job.targetStride;
        const std::size_t source = row * job.sourceStride;
        const PixelRun* const last = runs + rowStarts[row + 1];
        for (const PixelRun* run = runs + rowStarts[row]; run != last; ++run) {
            const std::size_t from = std::max<std::size_t>(run->start, firstColumn);
            const std::size_t to = std::min<std::size_t>(run->start + run->length, end);
            if (from >= to)
                continue;
            const std::size_t at = from - firstColumn;
            if (run->isOpaque)
                std::memcpy(target + at, job.image + source + at, (to - from) * sizeof(Pixel));
            else
                blitRow(target + at, job.mask + source + at, job.image + source + at, to - from);
        }
    }
}

/// The routines for one kind of processor.
struct Routines {
    void (*blit)(const BlitJob&);
    void (*blitRuns)(const BlitJob&, const PixelRun*, const std::uint32_t*, std::size_t);
};

#if defined(__x86_64__)
[[gnu::target("avx2")]] void blitAvx2(const BlitJob& job)
{
    blitAny(job);
}
[[gnu::target("avx2")]] void blitRunsAvx2(const BlitJob& job, const PixelRun* runs,
                                          const std::uint32_t* rowStarts, std::size_t firstColumn)
{
    blitAllRuns(job, runs, rowStarts, firstColumn);
}
#endif
void blitRunsPlain(const BlitJob& job, const PixelRun* runs, const std::uint32_t* rowStarts,
                   std::size_t firstColumn)
{
    blitAllRuns(job, runs, rowStarts, firstColumn);
}

const Routines& bestRoutines()
{
    static const Routines routines = [] {
#if defined(__x86_64__)
        if (__builtin_cpu_supports("avx2"))
            return Routines{blitAvx2, blitRunsAvx2};
#endif
        return Routines{blitPlain, blitRunsPlain};
    }();
    return routines;
}

} // namespace

void blitPlain(const BlitJob& job)
{
    blitAny(job);
}

void blit(const BlitJob& job)
{
    bestRoutines().blit(job);
}

void blitRuns(const BlitJob& job, const PixelRun* runs, const std::uint32_t* rowStarts,
              std::size_t firstColumn)
{
    bestRoutines().blitRuns(job, runs, rowStarts, firstColumn);
}
