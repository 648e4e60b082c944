// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QPixmap>

class Installation;
class PictureReader;

/// The picture behind the library.
class Backdrop
{
public:
    /// One of the two pictures of the library, by chance; a null image where it cannot be read. In any
    /// thread.
    static QImage read(const Installation& installation, PictureReader& pictures);

    /// A plain sky stands in for a null image.
    explicit Backdrop(const QImage& picture);

    /// The picture as it fills a window: one pixel to one as long as it covers the window; a larger window
    /// gets a larger picture.
    QPixmap filling(QSize window) const;

private:
    QPixmap m_picture;
};
