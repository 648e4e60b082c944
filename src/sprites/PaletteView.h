// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <QWidget>

/// The colors to draw with, the transparent one first. The mouse picks with any button held, the arrow keys
/// too.
class PaletteView : public QWidget
{
    Q_OBJECT
public:
    static constexpr int columns = 6;
    static constexpr int rows = 9;

    explicit PaletteView(int cell, QWidget* parent = nullptr);
    /// The color in use gets a frame where it is one of the palette's.
    void showChosen(Pixel color);
    static Pixel color(int index);

Q_SIGNALS:
    void picked(Pixel color);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    QRect cellRect(int index) const;
    int indexAt(const QPointF& position) const;

    int m_cell; ///< side of the square of a color
    Pixel m_chosen = black;
};
