// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <QAbstractButton>

/// A map color to choose: flat, and raised while it is the current one.
class ColorSwatch : public QAbstractButton
{
    Q_OBJECT
public:
    ColorSwatch(const QString& objectName, Pixel color, QWidget* parent);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_color;
};
