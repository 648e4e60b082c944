// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "mapeditor/ColorSwatch.h"

#include <QPainter>

#include <algorithm>

ColorSwatch::ColorSwatch(const QString& objectName, Pixel color, QWidget* parent)
    : QAbstractButton(parent)
    , m_color(QColor::fromRgb(color))
{
    setObjectName(objectName);
    setCheckable(true);
    setCursor(Qt::PointingHandCursor);
}

QSize ColorSwatch::sizeHint() const
{
    const int side = std::max(34, fontMetrics().height() * 2);
    return {side + 8, side};
}

void ColorSwatch::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF outer = QRectF(rect()).adjusted(2, 2, -2, -2);
    if (!isChecked()) {
        painter.setPen(QPen(palette().mid(), 1));
        painter.setBrush(m_color);
        painter.drawRoundedRect(outer.adjusted(3, 3, -3, -3), 5, 5);
    } else {
        QLinearGradient light(outer.topLeft(), outer.bottomLeft());
        light.setColorAt(0, m_color.lighter(165));
        light.setColorAt(0.3, m_color);
        light.setColorAt(1, m_color.darker(125));
        painter.setPen(QPen(palette().windowText(), 2));
        painter.setBrush(palette().light());
        painter.drawRoundedRect(outer, 8, 8);
        painter.setPen(QPen(m_color.darker(160), 1));
        painter.setBrush(light);
        painter.drawRoundedRect(outer.adjusted(3.5, 3.5, -3.5, -3.5), 5, 5);
    }
    if (hasFocus()) {
        painter.setPen(QPen(palette().highlight(), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 9, 9);
    }
}
