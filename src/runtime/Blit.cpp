#include "runtime/Blit.h"

namespace
{

// Always inlined, so that each copy is compiled for the processor that its caller names.
[[gnu::always_inline]] inline void blitRow(Pixel* __restrict target, const Pixel* __restrict mask,
                                           const Pixel* __restrict image, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        target[i] = (target[i] & mask[i]) | image[i];
}

#if defined(__x86_64__)
[[gnu::target("avx2")]] void blitRowAvx2(Pixel* target, const Pixel* mask, const Pixel* image, std::size_t count)
{
    blitRow(target, mask, image, count);
}
#endif

} // namespace

void blitRowPlain(Pixel* target, const Pixel* mask, const Pixel* image, std::size_t count)
{
    blitRow(target, mask, image, count);
}

BlitRow bestBlitRow()
{
#if defined(__x86_64__)
    static const bool hasAvx2 = __builtin_cpu_supports("avx2") != 0;
    if (hasAvx2)
        return blitRowAvx2;
#endif
    return blitRowPlain;
}
