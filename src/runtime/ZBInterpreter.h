// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "runtime/Outcomes.h"
#include "runtime/Ports.h"
#include "runtime/RunListener.h"
#include "runtime/ZB.h"
#include "runtime/ZBContext.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Starts, pauses, steps and stops runs. Owns the one ZBContext. It never waits and never shows a box: what a
/// tick has come to is returned, and whoever plays decides when to call again.
class ZBInterpreter : private ParseReporter
{
public:
    ZBInterpreter(ZB& module, const FileSource& files, PictureReader& pictures, const Ports& ports);

    ZBContext& context() { return m_context; }
    const ZBContext& context() const { return m_context; }
    ZB& module() { return m_module; }
    const FileSource& files() const { return m_files; }

    // Run control.
    /// Starts a run of a program text, lines separated by CR LF. `kind` becomes ZB::RunMode. A fault in
    /// the text has been shown when this returns; Told where there is something else to tell. Does nothing
    /// while a run is being started or a frame worked on.
    Progress RunGame(std::string text, RunKind kind);
    /// The two halves of RunGame, for windows that let what waits for them happen in between. False: nothing
    /// may be started now.
    [[nodiscard]] bool prepareRun(RunKind kind);
    /// Does nothing where the run has been stopped since it was prepared.
    Progress startRun(std::string text);
    void PauseGame();
    void ResumeGame();
    void StepOnce();
    void StopGame();
    void RestoreEditorButtons();
    /// Puts back a state of a run that has read these files, paused, in the place of the run that is on or,
    /// where none is, in a new window. False where that cannot be done now: a run is being started or
    /// stopped, or there is something to tell.
    [[nodiscard]] bool pauseAt(const RunState& state, std::shared_ptr<RunFiles> files);
    /// The lines with which the history of a run of that game begins.
    static std::vector<std::string> banner(const GameRecord& game);
    /// Ends the run at once, whatever it is doing. The windows that it was shown in are about to go.
    void abandonRun();

    /// The frame timer's tick: one frame, unless one is still at work. Does nothing when no game runs.
    Progress timerTick();
    /// Goes on with a frame that came back before its end: where a statement waits, if it has been released.
    Progress proceed();
    /// The faults to be told after Progress::Told.
    std::vector<RuntimeFault> takeFaults() { return m_context.takeFaults(); }
    /// A fault has been told: the run is over, and the code editor shows its line.
    void haltAfter(const RuntimeFault& fault);
    void HaltAfterError();
    /// What a message box says of a fault.
    static std::string runtimeErrorText(const RuntimeFault& fault);

    /// The slider has moved: takes effect at once in a running game.
    void framesPerMinuteChanged();
    /// Takes effect at the next line written.
    void setTraceBoxes(const TraceBoxes& boxes) { m_context.trace().setBoxes(boxes); }
    bool StepMode() const { return m_control == Control::Stepping; }
    /// A run has begun whose end nobody has been told yet.
    bool isOn() const { return m_control != Control::Stopped; }
    /// A run is being started or a frame has come back before its end.
    bool inFrame() const { return m_control == Control::Starting || m_context.inFrame(); }

    /// N(60000 / framesPerMinute) in milliseconds; nothing at 0, where the game stands still.
    static std::optional<int> timerInterval(int framesPerMinute);

    /// Who follows the runs; null: nobody.
    void setListener(RunListener* listener) { m_listener = listener; }

    /// The seed of the next run's random numbers.
    void setSeed(std::uint64_t seed) { m_seed = seed; }
    std::uint64_t seed() const { return m_seed; }

private:
    enum class Control {
        Stopped,
        Starting,
        Running,
        Stepping, ///< every statement waits for the user
        Stopping, ///< a stop waits for the frame's end: no pause and no other frame begins
    };

    // ParseReporter.
    void parseError(const ParseFault& fault) override;
    void beep() override { m_ports.parseError.beep(); }

    void writeBanner();
    void openWindows();
    void showGame();
    void setControl(Control control);
    void release();
    void finishStop();
    void forgetRun();
    Progress settle(Progress progress);

    ZB& m_module;
    const FileSource& m_files;
    Ports m_ports;
    ZBContext m_context;
    std::uint64_t m_seed = 0;
    Control m_control = Control::Stopped;
    RunListener* m_listener = nullptr;
    bool m_stepReleased = false; ///< the waiting statement may go on
};
