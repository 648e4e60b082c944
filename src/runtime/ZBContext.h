// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBParse.h"
#include "runtime/Actions.h"
#include "runtime/Evaluator.h"
#include "runtime/Events.h"
#include "runtime/FaultList.h"
#include "runtime/GameAssets.h"
#include "runtime/Outcomes.h"
#include "runtime/Playfield.h"
#include "runtime/RunState.h"
#include "runtime/Statements.h"
#include "runtime/Trace.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The running game: a run's state and, each with one job, the parts that work on it. It asks nobody and
/// waits for nobody: Quantum begins a frame, and it comes back when the frame is done, when a statement waits
/// or when something is to be told; advance goes on from there.
class ZBContext
{
public:
    ZBContext(const FileSource& files, PictureReader& pictures, GameScreen& screen, SpyPort& spy);
    ZBContext(const ZBContext&) = delete;
    ZBContext& operator=(const ZBContext&) = delete;

    // Run control.
    /// Forgets the program and the run. Sprites and state stay as they are.
    void Reset() { m_run.reset(); }
    /// Reads a program text (lines separated by CR LF). Stopped where it has a fault, which the reporter
    /// knows; Told where there is no room for it.
    Outcome Parse(std::string text, ParseReporter& reporter);
    /// Begins a run of the program that was read, with the files of the game in the folder `path`.
    void Start(const std::string& path, std::uint64_t seed);
    /// Begins a frame and runs it.
    Progress Quantum();
    /// Goes on with a frame that has come back before its end.
    Progress advance();
    /// The faults of the run that nobody has been told yet, in the order in which they were found.
    std::vector<RuntimeFault> takeFaults() { return m_faults.take(); }
    void DrawFrame() { m_playfield.DrawFrame(m_run); }
    /// A white picture, which the next frame is drawn over whatever has changed.
    void clearPicture() { m_playfield.clear(); }
    void HaltInterpreter() { m_run.haltRequested = true; }
    bool InterpreterRunning() const { return m_run.running; }
    /// A frame has come back before its end.
    bool inFrame() const { return m_run.inFrame(); }
    /// A statement has been announced and waits.
    bool isWaiting() const { return m_run.position.pending == Pending::Release; }
    /// The history is indented no more.
    void clearTraceDepth() { m_run.traceDepth = 0; }
    /// Forgets what is left of a frame.
    void abandonFrame() { m_run.position = FramePosition(); }

    const std::string& getState() const { return m_run.state; }
    std::string_view getSubState() const { return m_run.subState(); }
    std::int32_t frameNumber() const { return m_run.frameNumber; }
    std::string_view getLine(int number) const { return (*m_run.lines)[number]; }
    /// The game's folder with a trailing backslash.
    const std::string& path() const { return m_assets.path(); }
    /// One line per variable in the order of their first setting, then one per sprite.
    std::vector<std::string> DumpVariablesInto() const { return m_run.dump(); }

    /// A key goes down or up now: it counts when the next frame begins or the waiting statement goes on.
    void KeyDown(int keyCode, int shift);
    void KeyUp(int keyCode, int shift);
    /// The codes of the keys that are down, those counted that are waiting to count.
    std::vector<int> keysDown() const;
    /// Keys of ticks to come (1 is the first of a run), in that order, behind those that are waiting.
    void addInputs(const std::vector<KeyInput>& inputs);
    /// Every input that counts is added to `log` from now on; null: to none.
    void logInputs(std::vector<KeyInput>* log) { m_inputLog = log; }

    void setShowMap(bool on) { m_playfield.setShowMap(on); }
    Trace& trace() { return m_trace; }
    const Trace& trace() const { return m_trace; }
    Statements& statements() { return m_statements; }
    Events& events() { return m_events; }

    // The pictures of the game window.
    const Surface& display() const { return m_playfield.Display(); }
    const Surface& background() const { return *m_run.background; }
    /// The sheet of a graphic that the run has loaded; null beyond the last.
    const Surface* graphic(std::size_t index) const;

    /// A copy of everything that the run consists of, and the way back. At any statement.
    const RunState& state() const { return m_run; }
    RunState save() const { return m_run; }
    void restore(const RunState& state);
    /// What the run has read of its game's files, and the way to let a run see what another one has read.
    const std::shared_ptr<RunFiles>& runFiles() const { return m_assets.runFiles(); }
    void useFiles(std::shared_ptr<RunFiles> files) { m_assets.useFiles(std::move(files)); }

private:
    void key(bool down, int code);
    bool read(std::string text, ParseReporter& reporter);
    template<typename Work> bool fitsIntoMemory(const Work& work);
    template<typename Work> Progress runGuarded(const Work& work);
    bool beginState();
    Progress run();
    bool goOnWithLoop();
    void endLoop();
    Progress endFrame(Progress progress);

    RunState m_run;
    FaultList m_faults;
    Trace m_trace;
    GameAssets m_assets;
    Playfield m_playfield;
    Evaluator m_evaluator;
    Events m_events;
    Actions m_actions;
    Statements m_statements;
    GameScreen& m_screen;
    std::vector<KeyInput>* m_inputLog = nullptr;
};
