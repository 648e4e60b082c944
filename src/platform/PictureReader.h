#pragma once

#include "platform/Surface.h"

#include <filesystem>
#include <optional>

/// Reads picture files (BMP, GIF, JPEG). The core declares it; the programs hand one in.
class PictureReader
{
public:
    virtual ~PictureReader() = default;
    /// The picture in `file`, or nothing where it is missing, damaged or too large to hold.
    virtual std::optional<Surface> read(const std::filesystem::path& file) = 0;
};
