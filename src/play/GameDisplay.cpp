// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/GameDisplay.h"

#include "runtime/world/Field.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <memory>
#include <utility>

namespace
{

using namespace Qt::StringLiterals;

// In milliseconds.
constexpr qint64 shortestTap = 40; // a frame at full speed and a little more
constexpr qint64 repeatWait = 5;
constexpr qint64 longestClick = 2000; // from the press that takes the focus to the click on Pause

} // namespace

GameDisplay::GameDisplay(QWidget* parent)
    : forms::PictureArea("Display", parent)
{
    setAccessibleName(u"The running game"_s);
    setFocusPolicy(Qt::StrongFocus);
    setFixedSize(fieldSize, fieldSize);
}

void GameDisplay::setMark(const QString& mark)
{
    if (m_mark == mark)
        return;
    m_mark = mark;
    setAccessibleName(mark.isEmpty() ? u"The running game"_s : u"The game in the past"_s);
    update();
}

void GameDisplay::paintEvent(QPaintEvent* event)
{
    forms::PictureArea::paintEvent(event);
    if (m_mark.isEmpty())
        return;
    constexpr int width = 4;
    const QColor violet(0x7a, 0x49, 0xd6);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(violet, width));
    painter.drawRect(rect().adjusted(width / 2, width / 2, -width / 2, -width / 2));
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    // In the corner where games show the least.
    const QSize words = painter.fontMetrics().size(Qt::TextSingleLine, m_mark) + QSize(20, 6);
    const QRect sign(QPoint(this->width() - words.width(), height() - words.height()), words);
    painter.setPen(Qt::NoPen);
    painter.setBrush(violet);
    painter.drawRoundedRect(sign.adjusted(0, 0, 8, 8), 8, 8);
    painter.setPen(Qt::white);
    painter.drawText(sign, Qt::AlignCenter, m_mark);
}

void GameDisplay::mousePressEvent(QMouseEvent* event)
{
    forms::PictureArea::mousePressEvent(event);
    Q_EMIT clicked(event->position().toPoint());
}

void GameDisplay::keyPressEvent(QKeyEvent* event)
{
    const quint32 place = event->nativeScanCode();
    if (const auto times = m_times.find(place); times != m_times.end()) {
        const quint64 released = std::exchange(times->second.released, 0);
        if (released != 0 && released == event->timestamp())
            return; // a repetition
    }
    if (place != 0 && !event->isAutoRepeat()) // a made-up event has no place
        m_times[place].pressed = event->timestamp();
    if (const int code = m_keys.press(*event))
        Q_EMIT keyDown(code, forms::shiftState(*event));
}

void GameDisplay::keyReleaseEvent(QKeyEvent* event)
{
    if (event->isAutoRepeat())
        return;
    const quint32 place = event->nativeScanCode();
    const auto times = m_times.find(place);
    if (times == m_times.end()) { // made up, or it went down elsewhere
        letGo(*event);
        return;
    }
    const quint64 now = event->timestamp();
    times->second.released = now;
    const auto held = static_cast<qint64>(now - times->second.pressed);
    const std::shared_ptr<const QKeyEvent> release(event->clone());
    auto* wait = new QTimer(this); // a child: who wants to know whether a release is on its way can see it
    wait->setSingleShot(true);
    wait->setTimerType(Qt::PreciseTimer);
    wait->callOnTimeout(this, [this, wait, place, now, release] {
        wait->deleteLater();
        const auto waiting = m_times.find(place);
        if (waiting == m_times.end() || waiting->second.released != now)
            return; // it is down again
        m_times.erase(waiting);
        letGo(*release);
    });
    wait->start(std::chrono::milliseconds(std::clamp(shortestTap - held, repeatWait, shortestTap)));
}

void GameDisplay::letGo(const QKeyEvent& release)
{
    if (const int code = m_keys.release(release))
        Q_EMIT keyUp(code, forms::shiftState(release));
}

void GameDisplay::focusOutEvent(QFocusEvent* event)
{
    m_away = true;
    if (!m_holding) {
        m_lost = releaseKeys();
        m_sinceLost.start();
    }
    forms::PictureArea::focusOutEvent(event);
}

void GameDisplay::focusInEvent(QFocusEvent* event)
{
    m_away = false;
    forms::PictureArea::focusInEvent(event);
}

void GameDisplay::hideEvent(QHideEvent* event)
{
    m_holding = false;
    m_lost.clear();
    releaseKeys();
    forms::PictureArea::hideEvent(event);
}

bool GameDisplay::focusNextPrevChild(bool /*next*/)
{
    return false; // Tab is a key of the game
}

std::vector<int> GameDisplay::releaseKeys()
{
    m_times.clear();
    std::vector<int> codes = m_keys.releaseAll();
    for (const int code : codes)
        Q_EMIT keyUp(code, 0);
    return codes;
}

void GameDisplay::holdKeys()
{
    if (std::exchange(m_holding, true))
        return;
    if (!m_away || m_sinceLost.hasExpired(longestClick))
        m_lost.clear(); // those were let go for another reason than the pause
    for (const int code : m_lost)
        Q_EMIT keyDown(code, 0);
}

void GameDisplay::letKeysGo()
{
    if (!std::exchange(m_holding, false))
        return;
    for (const int code : std::exchange(m_lost, {}))
        Q_EMIT keyUp(code, 0);
    if (m_away)
        releaseKeys();
}
