// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/world/Blit.h"

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

#if defined(__x86_64__)
[[gnu::target("avx2")]] void blitAvx2(const BlitJob& job)
{
    blitRows(job);
}
#endif

using Routine = void (*)(const BlitJob&);

Routine bestRoutine()
{
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2"))
        return blitAvx2;
#endif
    return blitPlain;
}

} // namespace

void blitPlain(const BlitJob& job)
{
    blitRows(job);
}

void blit(const BlitJob& job)
{
    static const Routine routine = bestRoutine();
    routine(job);
}
