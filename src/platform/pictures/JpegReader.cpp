// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/pictures/JpegReader.h"

#include "platform/PictureReader.h"

#include <csetjmp>
#include <cstdio>
#include <vector>

#include <jpeglib.h>

#include <jerror.h> // needs the types of the other

namespace
{

/// The library reports an error by a function that must not return.
struct ErrorManager : jpeg_error_mgr {
    std::jmp_buf giveUp;
    bool isCutShort = false; ///< the library makes up what the file lacks
};

void giveUp(j_common_ptr decoder)
{
    std::longjmp(static_cast<ErrorManager*>(decoder->err)->giveUp, 1);
}

/// The library tells of nothing else that is wrong: a child has no use for it.
void noteWarning(j_common_ptr decoder, int level)
{
    auto& errors = *static_cast<ErrorManager*>(decoder->err);
    if (level < 0 && errors.msg_code == JWRN_HIT_MARKER)
        errors.isCutShort = true;
}

Pixel fromCmyk(const JSAMPLE* ink)
{
    return rgb(ink[0] * ink[3] / 255U, ink[1] * ink[3] / 255U, ink[2] * ink[3] / 255U);
}

/// One row of the picture as the library gives it.
void copyRow(const jpeg_decompress_struct& decoder, const std::vector<JSAMPLE>& from, std::span<Pixel> to)
{
    const auto parts = static_cast<std::size_t>(decoder.output_components);
    for (std::size_t x = 0; x < to.size(); ++x) {
        const JSAMPLE* const sample = &from[x * parts];
        if (parts == 4)
            to[x] = fromCmyk(sample);
        else
            to[x] = parts == 1 ? rgb(sample[0], sample[0], sample[0]) : rgb(sample[0], sample[1], sample[2]);
    }
}

/// False where the file is damaged. What it has was then read into `picture`. Has no object of its own: a
/// jump out of the library would not destroy it.
bool decode(jpeg_decompress_struct& decoder, ErrorManager& errors, std::string_view bytes, Surface& picture,
            std::vector<JSAMPLE>& row)
{
    if (setjmp(errors.giveUp) != 0) // NOLINT(cert-err52-cpp): the library knows no other way
        return false;
    jpeg_create_decompress(&decoder);
    jpeg_mem_src(&decoder, reinterpret_cast<const unsigned char*>(bytes.data()),
                 static_cast<unsigned long>(bytes.size()));
    if (jpeg_read_header(&decoder, TRUE) != JPEG_HEADER_OK)
        return false;
    if (static_cast<long long>(decoder.image_width) * decoder.image_height > PictureReader::maximumPixels)
        return false;
    if (!jpeg_start_decompress(&decoder))
        return false;
    row.resize(decoder.output_width * static_cast<std::size_t>(decoder.output_components));
    picture.reset(static_cast<int>(decoder.output_width), static_cast<int>(decoder.output_height), 0);
    while (decoder.output_scanline < decoder.output_height) {
        const auto y = static_cast<int>(decoder.output_scanline);
        JSAMPROW rows[1] = {row.data()};
        if (jpeg_read_scanlines(&decoder, rows, 1) != 1)
            return false;
        // The rows from here on stay without a color. One that comes in several passes is only coarse there.
        if (errors.isCutShort && !decoder.progressive_mode)
            return y > 0;
        copyRow(decoder, row, picture.row(y));
    }
    return true;
}

} // namespace

std::optional<Surface> readJpeg(std::string_view bytes)
{
    Surface picture;
    std::vector<JSAMPLE> row;
    jpeg_decompress_struct decoder{};
    ErrorManager errors{};
    decoder.err = jpeg_std_error(&errors);
    errors.error_exit = giveUp;
    errors.emit_message = noteWarning;
    const bool isRead = decode(decoder, errors, bytes, picture, row);
    jpeg_destroy_decompress(&decoder);
    if (!isRead || picture.isNull())
        return std::nullopt;
    return picture;
}
