// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "forms/Desk.h"
#include "play/GameWindow.h"
#include "play/ParseError.h"
#include "play/spy/SpyWindow.h"
#include "play/time/TimeMachine.h"

#include <QTimer>
#include <QWidget>

#include <memory>

class QCheckBox;
class QLayout;
class QSlider;
class QToolButton;
class PinWatch;
class PlayKeeper;
class TimeWindow;

/// The workbench for one game: run controls, speed, and the way to the game's other windows. Owns the
/// interpreter and the windows of the run; opens and closes the code editor. Deletes itself once it has been
/// closed.
class GameEditor : public QWidget, public GameEditorPort
{
    Q_OBJECT
public:
    /// `game` is the one to work on; its title may change meanwhile.
    GameEditor(Desk& desk, const GameRecord& game);
    ~GameEditor() override;

    ZBInterpreter& interpreter() { return *m_interpreter; }
    CodeEditorForm& codeEditor() { return *m_codeEditor; }
    /// The title of the game has changed.
    void showTitle();

    void setButtons(RunButtons state) override;
    void setEnabled(bool on) override;
    void startHaltMeAgain() override;
    int framesPerMinute() const override;

    void PlayButton_Click();
    void PauseButton_Click();
    void StepButton_Click();
    void StopButton_Click();
    void CodeWindowButton_Click();
    void PropWindowButton_Click();
    void ResWindowButton_Click();
    void SpyWindowButton_Click();
    void TimeButton_Click();
    void FramesPerMinute_Change();
    void OptionShowMap_Click();
    void HaltMeAgain_Timer();

protected:
    void closeEvent(QCloseEvent* event) override; // Form_Unload

private:
    struct ButtonRow;

    void Form_Load();
    void buildControls();
    QLayout* makeButtons(const ButtonRow* first, const ButtonRow* last, int iconSize);
    QLayout* makeSpeed();
    bool mayClose();
    void leave();
    void showLine(int line);
    void showPins();

    Desk& m_desk;
    const GameRecord& m_game;
    QToolButton* m_play = nullptr;
    QToolButton* m_pause = nullptr;
    QToolButton* m_step = nullptr;
    QToolButton* m_stop = nullptr;
    QToolButton* m_codeWindow = nullptr;
    QToolButton* m_propWindow = nullptr;
    QToolButton* m_resWindow = nullptr;
    QToolButton* m_spyWindow = nullptr;
    QToolButton* m_time = nullptr;
    QSlider* m_framesPerMinute;
    QCheckBox* m_showMap;
    QTimer* m_haltMeAgain; ///< a child, so that it can be found by its name
    enum class Closing { No, Asking, Telling, Done } m_closing = Closing::No;

    // What the interpreter is handed comes before it, so that it goes first.
    CodeEditorForm* m_codeEditor = nullptr; ///< lives until closeForGood
    GameWindow m_gameWindow;
    std::unique_ptr<SpyWindow> m_spy;
    std::unique_ptr<ParseError> m_parseError;
    std::unique_ptr<ZBInterpreter> m_interpreter;
    std::unique_ptr<TimeMachine> m_timeMachine;
    std::unique_ptr<PlayKeeper> m_plays;
    std::unique_ptr<PinWatch> m_pins;
    std::unique_ptr<TimeWindow> m_timeWindow;
};
