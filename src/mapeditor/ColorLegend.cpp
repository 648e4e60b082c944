// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "mapeditor/ColorLegend.h"

#include "forms/Icons.h"
#include "forms/Texts.h"
#include "mapeditor/ColorSwatch.h"
#include "runtime/world/ZBMap.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace
{

using namespace Qt::StringLiterals;

constexpr std::array<const char16_t*, mapColorCount> colorNames = {u"Red",  u"Orange", u"Yellow", u"Green",
                                                                   u"Cyan", u"Blue",   u"Purple"};

QCheckBox* makeCheckBox(const QString& caption, const QString& name, const QString& keys, const QString& tip,
                        QWidget* parent)
{
    auto* const box = new QCheckBox(caption, parent);
    box->setObjectName(name);
    box->setShortcut(QKeySequence(keys));
    box->setToolTip(tip + u" (%1)"_s.arg(keys));
    return box;
}

} // namespace

ColorLegend::ColorLegend(QWidget* parent)
    : QWidget(parent)
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 8, 0);
    layout->setSpacing(8);
    layout->addWidget(makeTable());
    m_delete = makeCheckBox(u"Delete"_s, u"delete"_s, u"Alt+D"_s, u"Painting takes colors away"_s, this);
    m_delete->setIcon(forms::icon("eraser"));
    layout->addWidget(m_delete);
    m_onlyCurrent = makeCheckBox(u"Show Current Color Only"_s, u"OnlyCurrent"_s, u"Alt+C"_s,
                                 u"The other colors are hidden for a while"_s, this);
    connect(m_onlyCurrent, &QCheckBox::toggled, this, &ColorLegend::onlyCurrentChanged);
    layout->addWidget(m_onlyCurrent);
    layout->addStretch(1);
}

QGroupBox* ColorLegend::makeTable()
{
    auto* const frame = new QGroupBox(u"Colors and what they mean"_s, this);
    frame->setObjectName(u"LegendFrame"_s);
    auto* const grid = new QGridLayout(frame);
    grid->setSpacing(8);
    auto* const group = new QButtonGroup(this);
    for (int index = 0; index < mapColorCount; ++index) {
        const std::size_t place = static_cast<std::size_t>(index);
        const QString name = QString::fromUtf16(colorNames[place]);
        m_swatches[place] = makeSwatch(index, name);
        m_texts[place] = makeText(index, name.toLower());
        group->addButton(m_swatches[place], index);
        grid->addWidget(m_swatches[place], index, 0);
        grid->addWidget(new QLabel(name, frame), index, 1);
        grid->addWidget(m_texts[place], index, 2);
    }
    return frame;
}

ColorSwatch* ColorLegend::makeSwatch(int index, const QString& colorName)
{
    const QString keys = u"Alt+%1"_s.arg(index + 1);
    auto* const swatch =
        new ColorSwatch(u"ColorSelect_%1"_s.arg(index), ColorTable[static_cast<std::size_t>(index)], this);
    swatch->setAccessibleName(colorName);
    swatch->setToolTip(u"Paint with %1 (%2)"_s.arg(colorName.toLower(), keys));
    swatch->setShortcut(QKeySequence(keys));
    connect(swatch, &QAbstractButton::clicked, this, [this, index] { Q_EMIT colorPicked(index); });
    return swatch;
}

QLineEdit* ColorLegend::makeText(int index, const QString& colorName)
{
    auto* const text = new QLineEdit(this);
    text->setObjectName(u"LegendText_%1"_s.arg(index));
    text->setAccessibleName(u"What %1 means"_s.arg(colorName));
    text->setPlaceholderText(u"What is %1?"_s.arg(colorName));
    text->setMinimumWidth(text->fontMetrics().averageCharWidth() * 20);
    connect(text, &QLineEdit::textChanged, this, [this, index] { Q_EMIT textChanged(index); });
    return text;
}

void ColorLegend::showColor(int index)
{
    m_swatches[static_cast<std::size_t>(index)]->setChecked(true); // and no other: they are one group
}

void ColorLegend::showTexts(const ZBMap& map)
{
    for (int index = 0; index < mapColorCount; ++index) {
        QLineEdit* const box = m_texts[static_cast<std::size_t>(index)];
        box->setText(forms::fromUtf8(map.get_legend(index)));
        box->setCursorPosition(0); // a long text shows its beginning
    }
}

QString ColorLegend::text(int index) const
{
    return m_texts[static_cast<std::size_t>(index)]->text();
}

bool ColorLegend::deletes() const
{
    return m_delete->isChecked();
}

bool ColorLegend::onlyCurrent() const
{
    return m_onlyCurrent->isChecked();
}
