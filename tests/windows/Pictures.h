#pragma once

#include <QBuffer>
#include <QColor>
#include <QImage>

#include <string>

/// The bytes of a picture file.
inline std::string encoded(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, format);
    return bytes.toStdString();
}

inline std::string bitmap(const QColor& colour, int width = 8, int height = 8)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    return encoded(image, "BMP");
}
