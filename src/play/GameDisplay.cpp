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

constexpr int letterSize = 11; // of the names over the picture, in pixels

/// In the middle under the box or, at the lower edge, over it; never cut off at the sides.
QRectF placeOfName(const QRectF& box, QSizeF size)
{
    constexpr double gap = 1;
    const bool fitsBelow = box.bottom() + gap + size.height() <= fieldSize;
    const double top = fitsBelow ? box.bottom() + gap : box.top() - gap - size.height();
    const double left =
        std::clamp(box.center().x() - size.width() / 2, 0.0, std::max(fieldSize - size.width(), 0.0));
    return {QPointF(left, top), size};
}

void paintBox(QPainter& painter, const FieldBox& box)
{
    const QColor colour = box.touches ? QColor(0xff, 0x3b, 0x30) : QColor(0xff, 0xd6, 0x0a);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 3)); // an edge, so that it is seen on every ground
    painter.drawRect(box.place);
    painter.setPen(QPen(colour, 1));
    painter.drawRect(box.place);
}

void paintName(QPainter& painter, const FieldBox& box)
{
    const QSizeF words = painter.fontMetrics().size(Qt::TextSingleLine, box.name) + QSize(8, 0);
    const QRectF pill = placeOfName(box.place, words);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 190));
    painter.drawRoundedRect(pill, pill.height() / 2, pill.height() / 2);
    painter.setPen(Qt::white);
    painter.drawText(pill, Qt::AlignCenter, box.name);
}

/// The names lie over all boxes.
void paintBoxes(QPainter& painter, const std::vector<FieldBox>& boxes)
{
    QFont letters = painter.font();
    letters.setPixelSize(letterSize);
    painter.setFont(letters);
    for (const FieldBox& box : boxes)
        paintBox(painter, box);
    for (const FieldBox& box : boxes)
        paintName(painter, box);
}

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

void GameDisplay::setOverlay(std::vector<FieldBox> boxes)
{
    if (m_overlay == boxes)
        return;
    m_overlay = std::move(boxes);
    update();
}

void GameDisplay::paintEvent(QPaintEvent* event)
{
    forms::PictureArea::paintEvent(event);
    if (m_mark.isEmpty() && m_overlay.empty())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintBoxes(painter, m_overlay);
    if (!m_mark.isEmpty())
        paintMark(painter);
}

void GameDisplay::paintMark(QPainter& painter) const
{
    constexpr int width = 4;
    const QColor violet(0x7a, 0x49, 0xd6);
    painter.setBrush(Qt::NoBrush);
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
