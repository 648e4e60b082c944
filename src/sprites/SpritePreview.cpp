// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/SpritePreview.h"

#include "runtime/world/ZBGraphic.h"
#include "sprites/FramePainting.h"
#include "sprites/SpriteModel.h"

#include <QPainter>
#include <QTimer>

namespace
{

using namespace Qt::StringLiterals;

constexpr int border = 4;
constexpr int framesInASecond = 30; // of the game
constexpr int tick = 1000 * framesPerAnimationStep / framesInASecond;

} // namespace

SpritePreview::SpritePreview(const SpriteModel& model, int side, QWidget* parent)
    : QLabel(parent)
    , m_model(model)
    , m_side(side)
    , m_timer(new QTimer(this))
{
    setObjectName(u"Preview"_s);
    setAccessibleName(u"The sprite as it moves in the game"_s);
    setFixedSize(side + 2 * border, side + 2 * border);
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setAlignment(Qt::AlignCenter);
    m_timer->setObjectName(u"PreviewTimer"_s);
    m_timer->setInterval(tick);
    m_timer->callOnTimeout(this, &SpritePreview::preview_Timer);
}

void SpritePreview::refresh()
{
    updateTimer();
    if (!m_timer->isActive())
        preview_Timer();
}

void SpritePreview::preview_Timer()
{
    m_frameOfGame = m_timer->isActive() ? m_frameOfGame + framesPerAnimationStep : 0;
    const auto frame = m_model.frame(m_model.previewIndex(m_frameOfGame));
    QPixmap picture(m_side, m_side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    ::drawFrame(painter, fitFrame(picture.rect(), frame->width(), frame->height()), *frame);
    painter.end();
    setPixmap(picture);
}

/// An animation costs nothing while nobody sees it.
void SpritePreview::updateTimer()
{
    const bool moves = isVisible() && m_model.kind() != GraphicKind::Simple && m_model.frameCount() > 1;
    if (!moves)
        m_timer->stop();
    else if (!m_timer->isActive())
        m_timer->start();
}

void SpritePreview::showEvent(QShowEvent* event)
{
    QLabel::showEvent(event);
    updateTimer();
}

void SpritePreview::hideEvent(QHideEvent* event)
{
    QLabel::hideEvent(event);
    updateTimer();
}
