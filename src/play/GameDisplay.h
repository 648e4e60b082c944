#pragma once

#include "forms/Forms.h"
#include "forms/KeyCodes.h"

#include <unordered_map>

/// The picture in which a game is seen, and the keyboard's way into the game. Takes every key, Tab included.
/// When it loses the focus all its keys go up, so that none sticks.
///
/// A key of a keyboard goes up a moment late, for two reasons. A quick tap must not fall between two frames.
/// And X11 repeats a held key by a release and a press at the very same time, which the toolkit does not
/// always mark as a repetition: if the press comes while the release waits, the key was never up.
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
    struct Key {
        quint64 pressed = 0;  ///< the time of its press
        quint64 released = 0; ///< the time of its release, while that waits
    };

    void letGo(const QKeyEvent& release);
    void releaseKeys();

    forms::HeldKeys m_keys;
    std::unordered_map<quint32, Key> m_times; ///< of the keys that are down, by their place on the keyboard
};
