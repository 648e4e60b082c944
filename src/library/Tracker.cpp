#include "library/Tracker.h"

#include "forms/Forms.h"
#include "runtime/ZB.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>

Tracker::Tracker(QWidget* parent)
    : QWidget(parent)
    , m_lastgood(new QLabel(this))
{
    setObjectName(u"Tracker");
    setWindowTitle(forms::fromUtf8(ProductName));
    setAttribute(Qt::WA_QuitOnClose, false);
    setAttribute(Qt::WA_ShowWithoutActivating);

    m_lastgood->setObjectName(u"lastgood");
    m_lastgood->setAccessibleName(tr("What Zorbino is doing"));
    m_lastgood->setTextFormat(Qt::PlainText);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(12, 8, 12, 8);
    row->addWidget(m_lastgood);
    // Wide enough for the longest message, so that the window never changes its size.
    m_lastgood->setMinimumWidth(fontMetrics().averageCharWidth() * 52);
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
}
