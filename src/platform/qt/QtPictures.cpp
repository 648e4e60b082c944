#include "platform/qt/QtPictures.h"

#include "platform/qt/SurfaceImage.h"

#include <QFile>
#include <QImageReader>
#include <QImageWriter>
#include <QSaveFile>

#include <algorithm>
#include <array>
#include <string_view>
#include <system_error>

namespace
{

struct Kind {
    std::string_view start;
    const char* format;
};
constexpr std::array<Kind, 4> kinds = {{
    {"BM", "bmp"},
    {"GIF8", "gif"},
    {"\xff\xd8\xff", "jpeg"},
    {"\x89PNG", "png"},
}};

/// The kind of picture that a file begins like, or null. Other readers that the toolkit may find (icons,
/// vector drawings, ...) are not asked, nor even loaded.
const char* formatOf(QIODevice& device)
{
    char bytes[4];
    const qint64 length = device.peek(bytes, sizeof bytes);
    const std::string_view start(bytes, static_cast<std::size_t>(std::max(length, qint64{0})));
    const auto kind = std::ranges::find_if(kinds, [&](const Kind& k) { return start.starts_with(k.start); });
    return kind == kinds.end() ? nullptr : kind->format;
}

} // namespace

std::optional<Surface> QtPictures::read(const std::filesystem::path& file)
{
    std::error_code trouble;
    if (!std::filesystem::is_regular_file(file, trouble)) // a pipe or a device would make us wait
        return std::nullopt;
    QFile device(file);
    if (!device.open(QIODevice::ReadOnly))
        return std::nullopt;
    const char* format = formatOf(device);
    if (format == nullptr)
        return std::nullopt;
    QImageReader reader(&device, format);
    const QSize size = reader.size();
    if (size.isValid() && qint64{size.width()} * size.height() > maximumPixels)
        return std::nullopt;
    const QImage image = reader.read();
    if (image.isNull())
        return std::nullopt;
    Surface surface = surfaceOfImage(image);
    if (surface.isNull())
        return std::nullopt;
    return surface;
}

bool writePng(const Surface& surface, const std::filesystem::path& file)
{
    // A device or a pipe would be replaced by a plain file.
    std::error_code trouble;
    const auto status = std::filesystem::status(file, trouble);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
        return false;
    QSaveFile device(QFile::decodeName(file.c_str()));
    if (!device.open(QIODevice::WriteOnly))
        return false;
    QImageWriter writer(&device, "png");
    return writer.write(viewOfSurface(surface)) && device.commit();
}
