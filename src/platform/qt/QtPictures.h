#pragma once

#include "platform/PictureReader.h"

/// Reads BMP, GIF, JPEG (and PNG) pictures, recognised by their content. Needs no application object.
class QtPictures : public PictureReader
{
public:
    std::optional<Surface> read(const std::filesystem::path& file) override;

    /// A picture with more pixels is too large to hold.
    static constexpr long long maximumPixels = 32LL << 20U;
};

/// Writes a surface as a PNG picture, whole or not at all. False where that failed.
[[nodiscard]] bool writePng(const Surface& surface, const std::filesystem::path& file);
