// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "library/Backdrop.h"

#include "library/GamePictures.h"
#include "platform/Installation.h"
#include "platform/PictureReader.h"

#include <QLinearGradient>
#include <QPainter>
#include <QRandomGenerator>

#include <optional>
#include <utility>

namespace
{

constexpr QSize skySize(600, 418);

QPixmap plainSky()
{
    QPixmap sky(skySize);
    QLinearGradient blue(0, 0, 0, skySize.height());
    blue.setColorAt(0, QColor(0x1d, 0x4f, 0xa0));
    blue.setColorAt(1, QColor(0x7f, 0xc4, 0xf0));
    QPainter(&sky).fillRect(sky.rect(), blue);
    return sky;
}

} // namespace

QImage Backdrop::read(const Installation& installation, PictureReader& pictures)
{
    const bool first = QRandomGenerator::global()->generateDouble() > 0.5;
    const auto file = installation.find(first ? "zbo\\zorbino1.jpg" : "zbo\\zorbino2.jpg");
    auto surface = file ? pictures.read(*file) : std::nullopt;
    return surface ? imageOf(std::move(*surface)) : QImage();
}

Backdrop::Backdrop(const QImage& picture)
    : m_picture(picture.isNull() ? plainSky() : QPixmap::fromImage(picture))
{
}

QPixmap Backdrop::filling(QSize window) const
{
    const bool covers = m_picture.width() >= window.width() && m_picture.height() >= window.height();
    return covers ? m_picture
                  : m_picture.scaled(window, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
}
