// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "library/GamePictures.h"

#include "forms/Desk.h"
#include "games/GameIcon.h"
#include "platform/qt/SurfaceImage.h"
#include "runtime/world/SpriteSheet.h"

#include <QGuiApplication>
#include <QPainter>

#include <memory>

namespace
{

/// Small pictures that grow by a whole factor keep their hard pixels; everything else is smoothed.
Qt::TransformationMode modeFor(QSize from, QSize to)
{
    const bool whole = to.width() >= from.width() && to.width() % from.width() == 0 &&
                       to.height() >= from.height() && to.height() % from.height() == 0;
    return whole ? Qt::FastTransformation : Qt::SmoothTransformation;
}

} // namespace

QImage imageOf(Surface&& surface)
{
    auto owned = std::make_unique<Surface>(std::move(surface));
    const QImage view = viewOfSurface(*owned);
    const auto whenTheLastCopyGoes = [](void* pixels) {
        std::unique_ptr<Surface>(static_cast<Surface*>(pixels));
    };
    return QImage(view.constBits(), view.width(), view.height(), view.bytesPerLine(), view.format(),
                  whenTheLastCopyGoes, owned.release());
}

QPixmap pictureOf(Desk& desk, std::string_view productPath, QSize size, Qt::AspectRatioMode ratio)
{
    const auto file = desk.installation().find(productPath);
    if (!file)
        return {};
    auto surface = desk.pictures().read(*file);
    if (!surface || surface->isNull())
        return {};
    const qreal scale = qGuiApp->devicePixelRatio();
    QImage image = imageOf(std::move(*surface));
    const QSize wanted = image.size().scaled((QSizeF(size) * scale).toSize(), ratio);
    if (image.size() != wanted)
        image = image.scaled(wanted, Qt::IgnoreAspectRatio, modeFor(image.size(), wanted));
    QPixmap picture = QPixmap::fromImage(image);
    picture.setDevicePixelRatio(scale);
    return picture;
}

QPixmap crossedBox(QSize size)
{
    const qreal scale = qGuiApp->devicePixelRatio();
    QPixmap box((QSizeF(size) * scale).toSize());
    box.setDevicePixelRatio(scale);
    box.fill(Qt::white);
    QPainter painter(&box);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0xdd, 0x22, 0x22), size.width() / 8.0, Qt::SolidLine, Qt::RoundCap));
    const QRectF cross =
        QRectF(QPointF(), size)
            .adjusted(size.width() / 5.0, size.height() / 5.0, -size.width() / 5.0, -size.height() / 5.0);
    painter.drawLine(cross.topLeft(), cross.bottomRight());
    painter.drawLine(cross.topRight(), cross.bottomLeft());
    painter.setPen(QPen(Qt::gray, 1));
    painter.drawRect(QRectF(QPointF(), size).adjusted(0.5, 0.5, -0.5, -0.5));
    return box;
}

QPixmap iconOf(Desk& desk, const GameRecord& game)
{
    const QSize size(iconSide, iconSide);
    const auto path = findGameIcon(desk.installation(), game);
    const QPixmap icon = path ? pictureOf(desk, *path, size) : QPixmap();
    return icon.isNull() ? crossedBox(size) : icon;
}

QPixmap spriteOf(Desk& desk, const std::string& path, int side)
{
    const auto sheet = SpriteSheet::read(desk.installation(), desk.pictures(), path);
    const Surface look = sheet ? sheet->look(0) : Surface();
    if (look.isNull())
        return {};
    QImage frame = viewOfSurface(look).copy();
    frame.reinterpretAsFormat(QImage::Format_ARGB32_Premultiplied);
    const QSize size(side, side);
    if (frame.width() > side || frame.height() > side)
        frame = frame.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QPixmap centred(size);
    centred.fill(Qt::transparent);
    QPainter(&centred).drawImage((side - frame.width()) / 2, (side - frame.height()) / 2, frame);
    return centred;
}
