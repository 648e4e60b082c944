// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/ColorPlate.h"

#include "sprites/FramePainting.h"
#include "sprites/SpriteModel.h"

#include <QPainter>
#include <QPainterPath>

using namespace Qt::StringLiterals;

ColorPlate::ColorPlate(const char* objectName, QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QLatin1String(objectName));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setFillColor(black);
}

void ColorPlate::setFillColor(Pixel color)
{
    m_color = color;
    const QString name = color == transparent ? u"see-through"_s : QColor::fromRgb(color).name();
    setAccessibleName(u"The color in use: "_s + name);
    setToolTip(u"You draw with this color (%1)"_s.arg(name));
    update();
}

void ColorPlate::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath shape;
    shape.addRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 9, 9);
    painter.setClipPath(shape);
    drawColor(painter, rect(), m_color);
    painter.setClipping(false);
    painter.setPen(QPen(palette().mid(), 2));
    painter.drawPath(shape);
}
