// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/pictures/PictureFiles.h"
#include "platform/qt/SurfaceImage.h"
#include "support/Pictures.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImageReader>

#include <gtest/gtest.h>

#include <random>

// The toolkit's readers are the peers of our own: they see the same pixels.

namespace
{

Surface asQtReads(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    return surfaceOfImage(reader.read());
}

Surface asWeRead(const QByteArray& bytes)
{
    return PictureFiles()
        .decode(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())))
        .value_or(Surface());
}

QImage noise(int width, int height, QImage::Format format)
{
    std::mt19937 random(7);
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, static_cast<QRgb>(random()));
    return image.convertToFormat(format);
}

} // namespace

TEST(PicturesLikeQt, EveryBundledPicture)
{
    int pictures = 0;
    for (const char* folder : {"games", "zbo"}) {
        QDirIterator files(QLatin1String(ZB_SOURCE_DIR "/") + QLatin1String(folder), QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            const QByteArray bytes = file.readAll();
            const Surface wanted = asQtReads(bytes);
            if (wanted.isNull() || bytes.startsWith('<'))
                continue;
            ++pictures;
            EXPECT_TRUE(asWeRead(bytes) == wanted) << file.fileName().toStdString();
        }
    }
    EXPECT_GT(pictures, 150);
}

TEST(PicturesLikeQt, EveryKindThatQtWrites)
{
    for (const char* kind : {"BMP", "PNG", "JPEG"})
        for (const QImage::Format format :
             {QImage::Format_Mono, QImage::Format_Indexed8, QImage::Format_RGB16, QImage::Format_RGB32,
              QImage::Format_ARGB32, QImage::Format_Grayscale8, QImage::Format_RGBA64})
            for (const int width : {1, 2, 3, 17, 32}) {
                const std::string bytes = encoded(noise(width, 5, format), kind);
                const QByteArray array = QByteArray::fromStdString(bytes);
                EXPECT_TRUE(asWeRead(array) == asQtReads(array)) << kind << ' ' << format << ' ' << width;
            }
}
