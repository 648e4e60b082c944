// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "forms/KeyCodes.h"
#include "forms/PictureArea.h"
#include "play/time/FieldBoxes.h"

#include <QElapsedTimer>

#include <unordered_map>
#include <vector>

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

    /// The keys that are down, and those that went up because the focus has just gone to a button, stay down
    /// until letKeysGo, so that a paused game can be stepped through with them.
    void holdKeys();
    /// Only the keys that are really down are down from here on.
    void letKeysGo();
    /// A word over the picture, with a frame around it: what is shown is not what is. Empty: nothing.
    void setMark(const QString& mark);
    /// What is drawn over the picture.
    void setOverlay(std::vector<FieldBox> boxes);

Q_SIGNALS:
    void keyDown(int keyCode, int shift);
    void keyUp(int keyCode, int shift);
    /// The picture was clicked at that place, in pixels.
    void clicked(QPoint place);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    struct Key {
        quint64 pressed = 0;  ///< the time of its press
        quint64 released = 0; ///< the time of its release, while that waits
    };

    void paintMark(QPainter& painter) const;
    void letGo(const QKeyEvent& release);
    std::vector<int> releaseKeys();

    forms::HeldKeys m_keys;
    QString m_mark;
    std::vector<FieldBox> m_overlay;
    std::vector<int> m_lost; ///< the codes of keys that went up with the focus
    QElapsedTimer m_sinceLost;
    bool m_away = false; ///< the focus is elsewhere
    bool m_holding = false;
    std::unordered_map<quint32, Key> m_times; ///< of the keys that are down, by their place on the keyboard
};
