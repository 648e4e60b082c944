// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/ColorsPanel.h"

#include "forms/Icons.h"
#include "forms/MessageBoxes.h"
#include "sprites/ColorPlate.h"
#include "sprites/EditorSizes.h"
#include "sprites/PaletteView.h"
#include "sprites/SpriteModel.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

ColorsPanel::ColorsPanel(const EditorSizes& sizes, QWidget* parent)
    : QWidget(parent)
    , m_swatch(new ColorPlate("Swatch", this))
    , m_palette(new PaletteView(sizes.color, this))
{
    m_swatch->setFixedHeight(sizes.swatch);
    connect(m_palette, &PaletteView::picked, this, &ColorsPanel::picked);
    auto* const title = new QLabel(u"&Colors"_s, this);
    title->setBuddy(m_palette);
    auto* const more = new QPushButton(u"&More..."_s, this);
    forms::setUpButton(*more, "MoreColours", "palette", u"Choose any color you like"_s);
    connect(more, &QPushButton::clicked, this, &ColorsPanel::moreColors);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(title);
    layout->addWidget(m_swatch);
    layout->addWidget(m_palette, 0, Qt::AlignHCenter);
    layout->addWidget(more);
    layout->addStretch(1);
}

Pixel ColorsPanel::color() const
{
    return m_swatch->fillColor();
}

void ColorsPanel::setColor(Pixel color)
{
    m_swatch->setFillColor(color);
    m_palette->showChosen(color);
}

void ColorsPanel::moreColors()
{
    const Pixel start = color() == transparent ? white : color();
    if (const auto chosen = forms::askColor(window(), u"Choose a color"_s, start))
        Q_EMIT picked(*chosen);
}
