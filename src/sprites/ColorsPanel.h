// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <QWidget>

class ColorPlate;
class PaletteView;
struct EditorSizes;

/// The color in use, and the colors that it can be.
class ColorsPanel : public QWidget
{
    Q_OBJECT
public:
    ColorsPanel(const EditorSizes& sizes, QWidget* parent);

    Pixel color() const;
    void setColor(Pixel color);

Q_SIGNALS:
    /// The user has picked another color.
    void picked(Pixel color);

private:
    void moreColors();

    ColorPlate* m_swatch;
    PaletteView* m_palette;
};
