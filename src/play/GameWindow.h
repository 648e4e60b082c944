#pragma once

#include "runtime/Ports.h"

#include <QTimer>
#include <QWidget>

class GameDisplay;
class ZBInterpreter;

/// The window of the running game and the timer that drives its frames. It is seen only during a run. The
/// user's closing it stops the run; the run's end closes it.
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
    void refreshDisplay() override;
    bool wantsFrames() const override { return true; }

    void Display_KeyDown(int keyCode, int shift);
    void Display_KeyUp(int keyCode, int shift);
    void GameTimer_Timer();

Q_SIGNALS:
    /// The window is about to be seen.
    void aboutToShow();
    /// The run's end has closed the window.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override; // Form_Unload

private:
    ZBInterpreter* m_interpreter = nullptr;
    GameDisplay* m_display;
    QTimer* m_gameTimer;
    bool m_open = false;
    bool m_timerEnabled = false;
    bool m_standsStill = false;
};
