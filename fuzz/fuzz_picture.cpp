// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "FuzzGame.h"

// A picture file of any kind: what is read of it does not depend on what lay in memory before.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    PictureFiles pictures;
    const auto first = pictures.decode(textOf(data, size));
    if (pictures.decode(textOf(data, size)) != first)
        __builtin_trap();
    if (first && static_cast<long long>(first->width()) * first->height() > PictureReader::maximumPixels)
        __builtin_trap();
    return 0;
}
