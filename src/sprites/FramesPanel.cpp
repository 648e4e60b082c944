// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/FramesPanel.h"

#include "forms/Icons.h"
#include "sprites/EditorSizes.h"
#include "sprites/SpriteCommands.h"
#include "sprites/SpriteModel.h"
#include "sprites/StripView.h"

#include <QAction>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>
#include <QWheelEvent>

namespace
{

using namespace Qt::StringLiterals;

QLabel* makeDecoration(const char* name, const char* iconName, QSize size, QWidget* parent)
{
    auto* const label = new QLabel(parent);
    label->setObjectName(QLatin1StringView(name));
    label->setPixmap(forms::icon(iconName).pixmap(size, label->devicePixelRatioF()));
    label->setAlignment(Qt::AlignCenter);
    return label;
}

QToolButton* makeButton(QAction& action, QWidget* parent)
{
    auto* const button = new QToolButton(parent);
    button->setDefaultAction(&action);
    button->setObjectName(action.objectName() + "Button"_L1);
    button->setAccessibleName(action.toolTip());
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setIconSize(QSize(22, 22));
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

} // namespace

FramesPanel::FramesPanel(SpriteModel& model, const SpriteCommands& commands, const EditorSizes& sizes,
                         QWidget* parent)
    : QWidget(parent)
    , m_model(model)
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addLayout(makeButtons(commands, sizes.logo));
    m_strip = new StripView(m_model, sizes.stripFrame, this);
    m_stripArea = makeStripArea();
    layout->addWidget(m_stripArea);
    connectStrip();
}

QHBoxLayout* FramesPanel::makeButtons(const SpriteCommands& commands, bool withLogo)
{
    using enum SpriteCommand;
    auto* const row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(makeDecoration("Picture1", "sprite", QSize(36, 36), this));
    row->addWidget(new QLabel(u"Frames"_s, this));
    for (const SpriteCommand command : {AddFrame, DuplicateFrame, DeleteFrame, FrameLeft, FrameRight})
        row->addWidget(makeButton(commands.action(command), this));
    row->addStretch(1); // the decoration stands where it costs no height
    auto* const logo = makeDecoration("Logo", "logo", QSize(110, 36), this);
    logo->setVisible(withLogo);
    row->addWidget(logo);
    return row;
}

QScrollArea* FramesPanel::makeStripArea()
{
    auto* const area = new QScrollArea(this);
    area->setObjectName(u"StripArea"_s);
    area->setWidget(m_strip);
    area->setFocusPolicy(Qt::NoFocus);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->setFixedHeight(m_strip->height() + area->horizontalScrollBar()->sizeHint().height() + 4);
    area->viewport()->installEventFilter(this);
    connect(area->horizontalScrollBar(), &QScrollBar::rangeChanged, this,
            &FramesPanel::showCurrentOnStrip); // also when the window becomes smaller
    return area;
}

void FramesPanel::connectStrip()
{
    connect(m_strip, &StripView::picked, this, [this](int index) {
        m_model.setCurrent(index);
        Q_EMIT changed();
    });
    connect(m_strip, &StripView::dragStarted, this, [this] { m_model.beginStroke(); });
    connect(m_strip, &StripView::dragEnded, this, [this] { m_model.endStroke(); });
    connect(m_strip, &StripView::dragged, this, [this](int toIndex) {
        m_model.moveFrame(toIndex - m_model.currentIndex());
        Q_EMIT changed();
    });
}

void FramesPanel::refresh()
{
    m_strip->refresh();
    showCurrentOnStrip();
}

void FramesPanel::refreshPixels()
{
    m_strip->update();
}

void FramesPanel::showCurrentOnStrip()
{
    const QRect current = m_strip->frameRect(m_model.currentIndex());
    m_stripArea->ensureVisible(current.center().x(), current.center().y(), current.width(), 0);
}

bool FramesPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel)
        return QWidget::eventFilter(watched, event);
    QCoreApplication::sendEvent(m_stripArea->horizontalScrollBar(), event); // a usual wheel turns up and down
    return true;
}
