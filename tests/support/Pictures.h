// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

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

inline std::string bitmap(const QColor& color, int width = 8, int height = 8)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    return encoded(image, "BMP");
}
