#include "play/GameDisplay.h"

#include <QKeyEvent>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <memory>
#include <utility>

namespace
{

// In milliseconds.
constexpr qint64 shortestTap = 40; // a frame at full speed and a little more
constexpr qint64 repeatWait = 5;

} // namespace

GameDisplay::GameDisplay(QWidget* parent)
    : forms::PictureArea("Display", parent)
{
    setAccessibleName(QStringLiteral("The running game"));
    setFocusPolicy(Qt::StrongFocus);
    setFixedSize(sideLength, sideLength);
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
    const std::chrono::milliseconds wait(std::clamp(shortestTap - held, repeatWait, shortestTap));
    const std::shared_ptr<const QKeyEvent> release(event->clone());
    QTimer::singleShot(wait, Qt::PreciseTimer, this, [this, place, now, release] {
        const auto waiting = m_times.find(place);
        if (waiting == m_times.end() || waiting->second.released != now)
            return; // it is down again
        m_times.erase(waiting);
        letGo(*release);
    });
}

void GameDisplay::letGo(const QKeyEvent& release)
{
    if (const int code = m_keys.release(release))
        Q_EMIT keyUp(code, forms::shiftState(release));
}

void GameDisplay::focusOutEvent(QFocusEvent* event)
{
    releaseKeys();
    forms::PictureArea::focusOutEvent(event);
}

void GameDisplay::hideEvent(QHideEvent* event)
{
    releaseKeys();
    forms::PictureArea::hideEvent(event);
}

bool GameDisplay::focusNextPrevChild(bool /*next*/)
{
    return false; // Tab is a key of the game
}

void GameDisplay::releaseKeys()
{
    m_times.clear();
    for (const int code : m_keys.releaseAll())
        Q_EMIT keyUp(code, 0);
}
