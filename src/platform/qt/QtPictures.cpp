#include "platform/qt/QtPictures.h"

#include "platform/qt/SurfaceImage.h"

#include <QFile>
#include <QImageReader>
#include <QImageWriter>
#include <QSaveFile>

#include <algorithm>
#include <array>
#include <system_error>

namespace
{

/// Other readers that the toolkit may find (icons, vector drawings, ...) are not asked.
bool isOurFormat(const QByteArray& format)
{
    static const std::array<QByteArray, 5> ours = {"bmp", "gif", "jpeg", "jpg", "png"};
    return std::ranges::find(ours, format) != ours.end();
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
    QImageReader reader(&device);
    reader.setDecideFormatFromContent(true);
    if (!isOurFormat(reader.format()))
        return std::nullopt;
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
    QSaveFile device(QFile::decodeName(file.c_str()));
    if (!device.open(QIODevice::WriteOnly))
        return false;
    QImageWriter writer(&device, "png");
    return writer.write(viewOfSurface(surface)) && device.commit();
}
