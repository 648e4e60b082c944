#pragma once

#include "forms/Forms.h"
#include "forms/KeyCodes.h"

/// The picture in which a game is seen, and the keyboard's way into the game. Takes every key, Tab included.
/// When it loses the focus all its keys go up, so that none sticks.
class GameDisplay : public forms::PictureArea
{
    Q_OBJECT
public:
    explicit GameDisplay(QWidget* parent = nullptr);

    static constexpr int sideLength = 480;

Q_SIGNALS:
    void keyDown(int keyCode, int shift);
    void keyUp(int keyCode, int shift);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void releaseKeys();

    forms::HeldKeys m_keys;
};
