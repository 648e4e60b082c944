// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "library/PictureImport.h"

#include "platform/DiskFile.h"
#include "platform/Installation.h"
#include "platform/PictureReader.h"
#include "platform/TextFile.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QStringList>

#include <system_error>

namespace
{

using namespace Qt::StringLiterals;

bool isTooLarge(QSize size)
{
    return qint64{size.width()} * size.height() > PictureReader::maximumPixels;
}

/// The ending under which a game takes a file as it is; empty for a kind that no game can show. A name that
/// already tells one of these kinds is believed: pictures are recognized by their content wherever they are
/// read.
std::string_view endingFor(const std::string& suffix, const QByteArray& format)
{
    if (format != "bmp" && format != "gif" && format != "jpeg")
        return {};
    if (suffix == ".jpeg" || suffix == ".jpe" || suffix == ".jpg")
        return ".jpg";
    if (suffix == ".bmp")
        return ".bmp";
    if (suffix == ".gif")
        return ".gif";
    return format == "jpeg" ? ".jpg" : format == "gif" ? ".gif" : ".bmp";
}

/// The bytes of a BMP picture; games know no transparency but that of sprites, so white shows through.
std::string bitmapOf(const QImage& image)
{
    QImage opaque(image.size(), QImage::Format_RGB32);
    opaque.fill(Qt::white);
    QPainter(&opaque).drawImage(QRect(QPoint(), image.size()), image);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    return opaque.save(&buffer, "bmp") ? bytes.toStdString() : std::string();
}

} // namespace

PictureImport importPicture(PictureReader& pictures, const std::filesystem::path& file)
{
    using enum PictureImport::Outcome;
    PictureImport result;
    std::error_code trouble;
    if (!std::filesystem::is_regular_file(file, trouble)) // a pipe or a device would make us wait
        return result;
    QFile device(file);
    if (!device.open(QIODevice::ReadOnly))
        return result;
    QImageReader reader(&device);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    result.size = reader.size();
    result.ending = endingFor(lowerCase(file.extension().string()), reader.format());
    if (isTooLarge(result.size)) {
        result.outcome = TooLarge;
    } else if (!result.ending.empty()) {
        if (auto bytes = readFileBytes(file, Installation::maximumFileSize); !bytes)
            result.outcome = TooLarge;
        else if (pictures.read(file)) {
            result.bytes = std::move(*bytes);
            result.outcome = Ready;
        }
    } else if (const QImage image = reader.read(); !image.isNull()) {
        result.ending = ".bmp";
        result.size = image.size();
        result.bytes = bitmapOf(image);
        result.outcome = result.bytes.empty() || isTooLarge(image.size()) ? TooLarge : Ready;
    }
    return result;
}

QString whyNotAdded(const PictureImport& picture, const QString& fileName)
{
    if (picture.outcome != PictureImport::Outcome::TooLarge)
        return u"I can't read the picture %1.  Maybe it is damaged, or it is no picture at all."_s.arg(
            fileName);
    return u"The picture %1 is too big for a game: it is %2 dots wide and %3 dots high.  Please make it "
           u"smaller "
           "with a painting program, and add it again."_s.arg(fileName)
               .arg(picture.size.width())
               .arg(picture.size.height());
}

QString importablePatterns()
{
    QStringList patterns;
    for (const QByteArray& format : QImageReader::supportedImageFormats()) {
        const QString kind = QString::fromLatin1(format);
        patterns += u"*."_s + kind;
        patterns += u"*."_s + kind.toUpper();
    }
    return patterns.join(u' ');
}
