// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What a running game asks of the world around it. The windows implement these, and so do the player without
// a window and the tests. None of the calls throws, waits, or calls back into the run.

/// The window in which a game is seen. Its pictures live in the core; the window shows `Display`.
class GameScreen
{
public:
    virtual ~GameScreen() = default;
    /// Opens the window, still hidden, with its timer off. One that is open stays.
    virtual void load() = 0;
    /// Closes the window and opens a new one, hidden, under the game's title.
    virtual void reopen(std::string_view title) = 0;
    virtual void show() = 0;
    /// Closes the window and stops its timer without asking or telling anybody; nothing where none is open.
    virtual void close() = 0;
    /// Milliseconds from frame to frame; nothing: the game stands still.
    virtual void setTimerInterval(std::optional<int> milliseconds) = 0;
    virtual void enableTimer(bool on) = 0;
    /// A statement that waited may go on: ZBInterpreter::proceed is wanted as soon as the caller is done.
    virtual void proceedSoon() = 0;
    /// `Display` holds a new frame.
    virtual void refreshDisplay() = 0;
    /// False where nobody will ever look at a frame, so that none is drawn.
    virtual bool wantsFrames() const = 0;
};

/// The states of the game editor's run buttons. Each names what changes, not the whole picture:
/// a state leaves the buttons that it does not mention as they are.
enum class RunButtons {
    Stopped, ///< Play on; Pause, Step, Stop off; Code, Properties, Resources on
    Running, ///< Play, Code, Properties, Resources off; Pause, Stop on
    Paused,  ///< Play on with the tip "Resume normal running"; Step on
    Resumed, ///< Play off; Pause on; Step off
};

/// The window from which runs are started.
class GameEditorPort
{
public:
    virtual ~GameEditorPort() = default;
    virtual void setButtons(RunButtons state) = 0;
    virtual void setEnabled(bool on) = 0;
    /// Switches on the timer that calls ZBInterpreter::StopGame again in 200 ms.
    virtual void startHaltMeAgain() = 0;
    /// The slider's value, 0 to 1800.
    virtual int framesPerMinute() const = 0;
};

class CodeEditorPort
{
public:
    virtual ~CodeEditorPort() = default;
    virtual bool isVisible() const = 0;
    virtual void hide() = 0;
    /// Shows the window, brought back from a minimised state and raised above the others.
    virtual void show() = 0;
    /// Places the cursor; lines and columns count from 1.
    virtual void SetCursorPos(int line, int column, bool wrap) = 0;
    virtual void focusText() = 0;
};

/// The spy window. Its history keeps the last 500 lines.
class SpyPort
{
public:
    virtual ~SpyPort() = default;
    virtual void clearHistory() = 0;
    virtual void addHistoryLine(std::string_view line) = 0;
    /// Selects the last line of the history, so that the list shows its end.
    virtual void selectLastLine() = 0;
    virtual void showState(std::string_view state, std::string_view subState) = 0;
    virtual void enableVariables() = 0;
    virtual void setVariables(const std::vector<std::string>& lines) = 0;
};

class ParseErrorPort
{
public:
    virtual ~ParseErrorPort() = default;
    virtual void close() = 0;
    virtual void show(std::string_view text) = 0;
    virtual void beep() = 0;
};

/// Everything a run needs from outside, by reference.
struct Ports {
    GameScreen& screen;
    GameEditorPort& gameEditor;
    CodeEditorPort& codeEditor;
    SpyPort& spy;
    ParseErrorPort& parseError;
};
