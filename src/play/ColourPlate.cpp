#include "play/ColourPlate.h"

#include "play/FramePainting.h"
#include "play/SpriteModel.h"

#include <QPainter>
#include <QPainterPath>

ColourPlate::ColourPlate(const char* objectName, QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QLatin1String(objectName));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setFillColor(black);
}

void ColourPlate::setFillColor(Pixel colour)
{
    m_colour = colour;
    const QString name =
        colour == transparent ? QStringLiteral("see-through") : QColor::fromRgb(colour).name();
    setAccessibleName(QStringLiteral("The color in use: ") + name);
    setToolTip(QStringLiteral("You draw with this color (%1)").arg(name));
    update();
}

void ColourPlate::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath shape;
    shape.addRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 9, 9);
    painter.setClipPath(shape);
    drawColour(painter, rect(), m_colour);
    painter.setClipping(false);
    painter.setPen(QPen(palette().mid(), 2));
    painter.drawPath(shape);
}
