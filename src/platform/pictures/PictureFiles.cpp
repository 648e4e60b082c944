// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/pictures/PictureFiles.h"

#include "platform/DiskFile.h"
#include "platform/pictures/BmpReader.h"
#include "platform/pictures/GifReader.h"
#include "platform/pictures/JpegReader.h"
#include "platform/pictures/PngFile.h"

#include <algorithm>
#include <array>
#include <system_error>

namespace
{

struct Kind {
    std::string_view start;
    std::optional<Surface> (*read)(std::string_view bytes);
};
constexpr std::array<Kind, 4> kinds = {{
    {"BM", readBmp},
    {"GIF8", readGif},
    {"\xff\xd8\xff", readJpeg},
    {"\x89PNG", readPng},
}};

} // namespace

std::optional<Surface> PictureFiles::decode(std::string_view bytes)
{
    const auto kind = std::ranges::find_if(kinds, [&](const Kind& k) { return bytes.starts_with(k.start); });
    return kind == kinds.end() ? std::nullopt : kind->read(bytes);
}

bool writePng(const Surface& surface, const std::filesystem::path& file)
{
    // A device or a pipe would be replaced by a plain file.
    std::error_code trouble;
    const auto status = std::filesystem::status(file, trouble);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
        return false;
    const std::string bytes = pngFile(surface);
    return !bytes.empty() && writeFileWhole(file, bytes);
}
