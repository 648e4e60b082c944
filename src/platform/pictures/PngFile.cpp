// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/pictures/PngFile.h"

#include "platform/PictureReader.h"

#include <algorithm>
#include <bit>

#include <png.h>

namespace
{

// A pixel's bytes in memory.
constexpr png_uint_32 pixelFormat =
    std::endian::native == std::endian::little ? PNG_FORMAT_BGRA : PNG_FORMAT_ARGB;

png_image newImage()
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    return image;
}

} // namespace

std::optional<Surface> readPng(std::string_view bytes)
{
    png_image image = newImage();
    if (png_image_begin_read_from_memory(&image, bytes.data(), bytes.size()) == 0)
        return std::nullopt;
    if (static_cast<long long>(image.width) * image.height > PictureReader::maximumPixels) {
        png_image_free(&image);
        return std::nullopt;
    }
    image.format = pixelFormat;
    image.flags |= PNG_IMAGE_FLAG_16BIT_sRGB;
    Surface surface(static_cast<int>(image.width), static_cast<int>(image.height));
    if (png_image_finish_read(&image, nullptr, surface.pixels().data(), 0, nullptr) == 0)
        return std::nullopt;
    for (Pixel& pixel : surface.pixels())
        pixel |= opaqueBits;
    return surface;
}

std::string pngFile(const Surface& surface)
{
    png_image image = newImage();
    image.width = static_cast<png_uint_32>(surface.width());
    image.height = static_cast<png_uint_32>(surface.height());
    image.format = PNG_FORMAT_RGB;
    std::string rows;
    rows.reserve(surface.pixels().size() * 3);
    for (const Pixel pixel : surface.pixels())
        for (const unsigned shift : {16U, 8U, 0U})
            rows += static_cast<char>(static_cast<unsigned char>(pixel >> shift));
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::string bytes(size, '\0');
    if (png_image_write_to_memory(&image, bytes.data(), &size, 0, rows.data(), 0, nullptr) == 0)
        return {};
    bytes.resize(size);
    return bytes;
}
