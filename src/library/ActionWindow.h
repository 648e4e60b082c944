// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "forms/ActionRow.h"

#include <QElapsedTimer>
#include <QFrame>

class QAbstractButton;
class QLabel;
class QVBoxLayout;
class TileArea;

/// The panel in the middle of the library for the game that was picked: its picture, a column of buttons, and
/// what the one under the mouse is for.
class ActionWindow : public QFrame
{
    Q_OBJECT
public:
    /// `tileWidth` is that of a tile in the tray.
    ActionWindow(int tileWidth, QWidget* library);

    TileArea& gamePicture() { return *m_gamePicture; }
    /// One more button, which the caller connects. `row` has no tip, which would cover the game.
    QAbstractButton* addAction(const forms::ActionRow& row, const QString& help);
    /// Takes the width that the buttons' helps need, in a library that is `room` pixels wide.
    void takeWidth(int room);

    void open();
    /// Into the middle of the library.
    void centre();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void explain(QWidget* control, const QString& help);

    QElapsedTimer m_sinceOpened;
    TileArea* m_gamePicture;
    QLabel* m_help;
    QVBoxLayout* m_buttons;
    QWidget* m_firstButton = nullptr;
    int m_longestHelp = 0;
};
