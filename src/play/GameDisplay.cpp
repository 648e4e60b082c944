#include "play/GameDisplay.h"

#include <QKeyEvent>

GameDisplay::GameDisplay(QWidget* parent)
    : forms::PictureArea("Display", parent)
{
    setAccessibleName(QStringLiteral("The running game"));
    setFocusPolicy(Qt::StrongFocus);
    setFixedSize(sideLength, sideLength);
}

void GameDisplay::keyPressEvent(QKeyEvent* event)
{
    if (const int code = m_keys.press(*event))
        Q_EMIT keyDown(code, forms::shiftState(*event));
}

void GameDisplay::keyReleaseEvent(QKeyEvent* event)
{
    if (const int code = m_keys.release(*event))
        Q_EMIT keyUp(code, forms::shiftState(*event));
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
    for (const int code : m_keys.releaseAll())
        Q_EMIT keyUp(code, 0);
}
