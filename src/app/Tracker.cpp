// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "app/Tracker.h"

#include "forms/Texts.h"
#include "runtime/ZB.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace
{

/// A label that leaves out the middle of what is too long for it.
class ElidedLabel : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, width());
        style()->drawItemText(&painter, rect(), Qt::AlignVCenter | Qt::AlignLeft, palette(), true, shown,
                              QPalette::WindowText);
    }
};

} // namespace

Tracker::Tracker(QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::WindowStaysOnBottomHint | Qt::WindowDoesNotAcceptFocus)
    , m_lastgood(new ElidedLabel(this))
{
    setObjectName(u"Tracker"_s);
    setWindowTitle(forms::fromUtf8(ProductName));
    setAttribute(Qt::WA_QuitOnClose, false);
    setAttribute(Qt::WA_ShowWithoutActivating);

    m_lastgood->setObjectName(u"lastgood"_s);
    m_lastgood->setAccessibleName(u"What Zorbino is doing"_s);
    m_lastgood->setTextFormat(Qt::PlainText);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(12, 8, 12, 8);
    row->addWidget(m_lastgood);
    // Wide enough for most messages. The window never changes its size.
    m_lastgood->setFixedWidth(fontMetrics().averageCharWidth() * 52);
}

void Tracker::showProgress(const QString& message)
{
    m_lastgood->setText(message);
    m_lastgood->repaint();
}

void Tracker::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // The lower right corner of the screen, where it covers none of the windows that children work in.
    const QRect free = screen()->availableGeometry();
    constexpr int gap = 24;
    move(free.right() - width() - gap, free.bottom() - height() - 2 * gap);
    lower();
}
