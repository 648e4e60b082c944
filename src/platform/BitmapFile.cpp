// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/BitmapFile.h"

namespace
{

constexpr std::size_t headSize = 14 + 40; // the file's head and the picture's

/// Appends the `count` low bytes of a number, the lowest first.
void append(std::string& out, std::size_t number, int count)
{
    for (int byte = 0; byte < count; ++byte, number >>= 8U)
        out.push_back(static_cast<char>(number & 0xffU));
}

} // namespace

std::string bitmapFile(const Surface& picture, std::string_view behind)
{
    const std::size_t width = static_cast<std::size_t>(picture.width());
    const std::size_t height = static_cast<std::size_t>(picture.height());
    const std::size_t rowSize = (width * 3 + 3) / 4 * 4; // rows are filled up to whole words
    const std::size_t pixelSize = rowSize * height;

    std::string out;
    out.reserve(headSize + pixelSize + behind.size());
    out += "BM";
    append(out, headSize + pixelSize + behind.size(), 4);
    append(out, 0, 4);
    append(out, headSize, 4);
    append(out, 40, 4); // size of the picture's head
    append(out, width, 4);
    append(out, height, 4);
    append(out, 1, 2);  // planes
    append(out, 24, 2); // bits for each pixel
    append(out, 0, 4);  // not compressed
    append(out, pixelSize, 4);
    append(out, 2835, 4); // pixels in a metre, across and down: 72 in an inch
    append(out, 2835, 4);
    append(out, 0, 8);                         // no color table
    for (int y = picture.height(); y-- > 0;) { // from the bottom up
        for (const Pixel pixel : picture.row(y))
            append(out, pixel, 3); // blue, green, red
        out.append(rowSize - width * 3, '\0');
    }
    out += behind;
    return out;
}
