// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <QWidget>

/// A filled shape: the color in use.
class ColorPlate : public QWidget
{
    Q_OBJECT
public:
    explicit ColorPlate(const char* objectName, QWidget* parent = nullptr);
    void setFillColor(Pixel color);
    Pixel fillColor() const { return m_color; }
    QSize sizeHint() const override { return {64, 40}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Pixel m_color = black;
};
