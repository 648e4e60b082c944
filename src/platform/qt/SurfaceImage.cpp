// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/qt/SurfaceImage.h"

#include <algorithm>
#include <span>

QImage viewOfSurface(const Surface& surface)
{
    if (surface.isNull())
        return {};
    const auto pixels = surface.pixels();
    return QImage(reinterpret_cast<const uchar*>(pixels.data()), surface.width(), surface.height(),
                  static_cast<qsizetype>(surface.width()) * qsizetype{sizeof(Pixel)}, QImage::Format_RGB32);
}

Surface surfaceOfImage(const QImage& image)
{
    if (image.isNull())
        return {};
    // Not premultiplied: the colors must come through as they stand in the file.
    const bool opaque = image.format() == QImage::Format_RGB32;
    const QImage plain = opaque ? image : image.convertToFormat(QImage::Format_ARGB32);
    if (plain.isNull()) // no memory for a second copy
        return {};
    Surface surface(plain.width(), plain.height());
    for (int y = 0; y < plain.height(); ++y) {
        const std::span from(reinterpret_cast<const Pixel*>(plain.constScanLine(y)),
                             static_cast<std::size_t>(plain.width()));
        std::ranges::transform(from, surface.row(y).begin(), [](Pixel pixel) { return pixel | opaqueBits; });
    }
    return surface;
}
