// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/PaletteView.h"

#include "sprites/FramePainting.h"
#include "sprites/SpriteModel.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

// clang-format off
constexpr std::array<Pixel, PaletteView::columns * PaletteView::rows> colors = {
    transparent, 0xffffffff, 0xffd9d9d9, 0xffa0a0a0, 0xff606060, 0xff000000,
    0xffffd6d6,  0xffff9e9e, 0xffff5a5a, 0xffff0000, 0xffc00000, 0xff7a0000, // reds
    0xffffe6c7,  0xffffc285, 0xffffa040, 0xffff8000, 0xffc45e00, 0xff7d3c00, // oranges
    0xfffffbd1,  0xfffff38a, 0xffffe940, 0xffffff00, 0xffd6b800, 0xff8a7400, // yellows
    0xffd9ffd6,  0xff9df59a, 0xff4fe04c, 0xff00ff00, 0xff009c1f, 0xff005c17, // greens
    0xffd4fbff,  0xff99f1fb, 0xff4fdfee, 0xff00ffff, 0xff0099a8, 0xff005b66, // cyans
    0xffd4e3ff,  0xff9cbfff, 0xff5a93ff, 0xff0000ff, 0xff0000a8, 0xff000066, // blues
    0xffffd6f7,  0xffff9de8, 0xffff00ff, 0xffb14cff, 0xff7d1fc2, 0xff4a0d78, // pinks and purples
    0xffffe0c4,  0xfff2b98c, 0xffd18d5b, 0xffa8683a, 0xff7a4522, 0xff4a2710, // skins and browns
};
// clang-format on

int indexOf(Pixel color)
{
    const auto place = std::find(colors.begin(), colors.end(), color);
    return place == colors.end() ? -1 : static_cast<int>(place - colors.begin());
}

} // namespace

PaletteView::PaletteView(int cell, QWidget* parent)
    : QWidget(parent)
    , m_cell(cell)
{
    setObjectName(u"Palettep"_s);
    setAccessibleName(u"Colors"_s);
    setFixedSize(columns * cell, rows * cell);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

QRect PaletteView::cellRect(int index) const
{
    return {index % columns * m_cell, index / columns * m_cell, m_cell, m_cell};
}

Pixel PaletteView::color(int index)
{
    return colors[static_cast<std::size_t>(index)];
}

void PaletteView::showChosen(Pixel color)
{
    m_chosen = color;
    update();
}

void PaletteView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    for (int index = 0; index < static_cast<int>(colors.size()); ++index)
        drawColor(painter, cellRect(index), color(index));
    const int chosen = indexOf(m_chosen);
    if (chosen < 0)
        return;
    // Black within white within black shows on every color.
    painter.setBrush(Qt::NoBrush);
    int inset = 0;
    for (const Qt::GlobalColor line : {Qt::black, Qt::white, Qt::white, Qt::black}) {
        painter.setPen(line);
        painter.drawRect(cellRect(chosen).adjusted(inset, inset, -inset - 1, -inset - 1));
        ++inset;
    }
    if (hasFocus()) {
        painter.setPen(QPen(palette().highlight(), 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}

int PaletteView::indexAt(const QPointF& position) const
{
    const QPoint point(static_cast<int>(std::floor(position.x())),
                       static_cast<int>(std::floor(position.y())));
    return rect().contains(point) ? point.y() / m_cell * columns + point.x() / m_cell : -1;
}

void PaletteView::mousePressEvent(QMouseEvent* event)
{
    mouseMoveEvent(event);
}

void PaletteView::mouseMoveEvent(QMouseEvent* event)
{
    const int index = indexAt(event->position());
    if (event->buttons() != Qt::NoButton && index >= 0)
        Q_EMIT picked(color(index));
}

void PaletteView::keyPressEvent(QKeyEvent* event)
{
    int by = 0;
    switch (event->key()) {
    case Qt::Key_Left:
        by = -1;
        break;
    case Qt::Key_Right:
        by = 1;
        break;
    case Qt::Key_Up:
        by = -columns;
        break;
    case Qt::Key_Down:
        by = columns;
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    const int index = indexOf(m_chosen) + by;
    if (index >= 0 && index < static_cast<int>(colors.size()))
        Q_EMIT picked(color(index));
}

bool PaletteView::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        const bool isFirst = indexAt(QPointF(help->pos())) == 0;
        QToolTip::showText(
            help->globalPos(),
            isFirst ? u"See-through: what is behind shows"_s : u"Click a color to draw with it"_s, this);
        return true;
    }
    return QWidget::event(event);
}
