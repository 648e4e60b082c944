#pragma once

#include "platform/Surface.h"

#include <QWidget>

/// A filled shape: the colour in use.
class ColourPlate : public QWidget
{
    Q_OBJECT
public:
    explicit ColourPlate(const char* objectName, QWidget* parent = nullptr);
    void setFillColor(Pixel colour);
    Pixel fillColor() const { return m_colour; }
    QSize sizeHint() const override { return {64, 40}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Pixel m_colour = black;
};
