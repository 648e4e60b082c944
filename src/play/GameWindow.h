// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "runtime/Outcomes.h"
#include "runtime/Ports.h"

#include <QTimer>
#include <QWidget>

#include <vector>

class GameDisplay;
class ZBInterpreter;
struct FieldBox;

/// The window of the running game and the timer that drives its frames; where a frame comes back because
/// something is to be told, it tells it and goes on. It is seen only during a run. The user's closing it
/// stops the run; the run's end closes it.
class GameWindow : public QWidget, public GameScreen
{
    Q_OBJECT
public:
    GameWindow();

    /// Shows the pictures of this interpreter and drives its frames; call once. The interpreter must outlive
    /// the last event that the window gets.
    void attach(ZBInterpreter& interpreter);

    void load() override;
    void reopen(std::string_view title) override;
    void show() override;
    void close() override;
    void setTimerInterval(std::optional<int> milliseconds) override;
    void enableTimer(bool on) override;
    void proceedSoon() override;
    void refreshDisplay() override;
    bool wantsFrames() const override { return true; }

    void Display_KeyDown(int keyCode, int shift);
    void Display_KeyUp(int keyCode, int shift);
    void GameTimer_Timer();

    /// The user is being told what went wrong.
    bool isTelling() const { return m_telling; }

    /// Shows a moment of the past, marked as one, in the place of the run. Opens where there is no run.
    void showPast(const Surface& picture);
    /// Shows the run again; closes where there is none.
    void showNow();

    /// Draws these over the picture, until others come.
    void setOverlay(std::vector<FieldBox> boxes);

    /// Tells what is to be told, and goes on.
    void follow(Progress progress);

    /// The game is paused: the keys of this moment stay down, wherever the focus goes.
    void holdKeys();
    /// It goes on: from here on the keys are those that are really down.
    void letKeysGo();

Q_SIGNALS:
    /// The window is about to be seen.
    void aboutToShow();
    /// The run's end has closed the window.
    void closed();
    /// The run has gone on as far as it goes for now.
    void advanced();
    /// The user has read what went wrong.
    void told();
    /// The user has closed the window over a moment of a run that has ended.
    void pastClosed();
    /// The picture was clicked at that place, in pixels.
    void clicked(QPoint place);

protected:
    void closeEvent(QCloseEvent* event) override; // Form_Unload

private:
    void ReportRuntimeError(const RuntimeFault& fault);

    ZBInterpreter* m_interpreter = nullptr;
    GameDisplay* m_display;
    QTimer* m_gameTimer;
    bool m_open = false;
    bool m_showsPast = false;
    bool m_telling = false;
    bool m_timerEnabled = false;
    bool m_standsStill = false;
};
