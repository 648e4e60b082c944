#pragma once

#include "platform/Surface.h"

#include <QAbstractButton>

/// A map colour to choose: flat, and raised while it is the current one.
class ColorSwatch : public QAbstractButton
{
    Q_OBJECT
public:
    ColorSwatch(const QString& objectName, Pixel colour, QWidget* parent);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_colour;
};
