// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "runtime/world/MapColors.h"

#include <QWidget>

#include <array>

class ColorSwatch;
class QCheckBox;
class QGroupBox;
class QLineEdit;
class ZBMap;

/// The colors to paint with and what they mean, and what the brush does.
class ColorLegend : public QWidget
{
    Q_OBJECT
public:
    explicit ColorLegend(QWidget* parent);

    void showColor(int index);
    void showTexts(const ZBMap& map);
    QString text(int index) const;
    bool deletes() const;
    bool onlyCurrent() const;

Q_SIGNALS:
    void colorPicked(int index);
    void textChanged(int index);
    void onlyCurrentChanged();

private:
    QGroupBox* makeTable();
    ColorSwatch* makeSwatch(int index, const QString& colorName);
    QLineEdit* makeText(int index, const QString& colorName);

    std::array<ColorSwatch*, mapColorCount> m_swatches = {};
    std::array<QLineEdit*, mapColorCount> m_texts = {};
    QCheckBox* m_delete;
    QCheckBox* m_onlyCurrent;
};
