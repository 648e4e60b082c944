#pragma once

#include "platform/Installation.h"
#include "platform/PictureReader.h"
#include "runtime/Ports.h"
#include "runtime/ZB.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

class ZBContext;

/// Which kinds of history lines are wanted: the spy window's three check boxes.
struct TraceBoxes {
    bool frames = false; ///< Show Frame Divisions
    bool events = false; ///< Show Event Entry/Exit
    bool code = false;   ///< Show Every Line of Code Executed
};

/// Starts, pauses, steps and stops runs, writes their trace and reports their errors. Owns the one ZBContext.
/// Everything happens on the thread that calls it; while a statement waits or a message box is open, the
/// ports may call back into PauseGame, ResumeGame, StepOnce, StopGame, KeyDown and KeyUp.
class ZBInterpreter
{
public:
    ZBInterpreter(ZB& module, const Installation& installation, PictureReader& pictures, const Ports& ports);
    ~ZBInterpreter();
    ZBInterpreter(const ZBInterpreter&) = delete;
    ZBInterpreter& operator=(const ZBInterpreter&) = delete;

    ZBContext& context() { return *m_context; }
    ZB& module() { return m_module; }
    const Installation& installation() const { return m_installation; }
    PictureReader& pictures() { return m_pictures; }
    const Ports& ports() const { return m_ports; }

    // Run control.
    /// Starts a run of a program text, lines separated by CR LF. `mode` is the new ZB::RunMode. A fault in
    /// the text has been shown when this returns. Does nothing while a run is being started or a frame worked
    /// on.
    void RunGame(std::string_view text, int mode);
    void PauseGame();
    void ResumeGame();
    void StepOnce();
    void StopGame();
    void RestoreEditorButtons();
    /// The frame timer's tick: one frame, unless one is still running. Does nothing when no game runs.
    void timerTick();
    /// The slider has moved: takes effect at once in a running game.
    void framesPerMinuteChanged();

    // The trace.
    void SpyWrite(std::string_view text, int line);
    /// The statement at `line` is about to run. False where the run was ended while it waited: the statement
    /// must then give up without a word.
    [[nodiscard]] bool TraceLine(int line);
    void TraceStateChange();
    void TraceEventEntry(std::string_view className, std::string_view eventName, std::string_view tagText);
    void TraceEventExit(std::string_view className, std::string_view eventName);
    void TraceIfBegin() { ++TraceDepth; }
    void TraceIfEnd();
    void TracePause(int line);
    /// The frame box of four lines.
    void TraceFrame(int frameNumber);
    const TraceBoxes& traceBoxes() const { return m_boxes; }
    /// Takes effect at the next line written.
    void setTraceBoxes(const TraceBoxes& boxes) { m_boxes = boxes; }

    // Errors.
    void ReportRuntimeError(std::string_view message, int line);
    /// Shows a parse error. `report` is the text of the parse-error window.
    void showParseError(std::string_view report, int line);
    void HaltAfterError();

    /// A run is being started or a frame worked on (it may be waiting for the user): the interpreter must not
    /// be destroyed now.
    bool inFrame() const { return m_inFrame || m_starting; }

    /// N(60000 / framesPerMinute) in milliseconds; nothing at 0, where the game stands still.
    static std::optional<int> timerInterval(int framesPerMinute);

    /// The seed of the next run's random numbers.
    void setSeed(std::uint64_t seed) { m_seed = seed; }
    std::uint64_t seed() const { return m_seed; }

    /// Depth of indentation of the trace.
    int TraceDepth = 0;
    /// True while statements must announce themselves one by one (a box is ticked, the user steps, or the spy
    /// window's state labels are out of date).
    bool mustAnnounce() const;

private:
    friend class ZBContext;
    void writeBanner();
    void finishStop();

    ZB& m_module;
    const Installation& m_installation;
    PictureReader& m_pictures;
    Ports m_ports;
    std::unique_ptr<ZBContext> m_context;
    TraceBoxes m_boxes;
    std::string m_line; ///< scratch for history lines
    std::string m_text; ///< scratch for what stands in them
    std::uint64_t m_seed = 0;
    bool m_stepMode = false;
    bool m_stepReleased = false;
    bool m_stopping = false;
    bool m_halting = false; ///< a stop waits for the frame's end: no pause and no other frame begins
    bool m_stopRequested = false;
    bool m_starting = false;
    bool m_inFrame = false;
    bool m_stateShown = false; ///< the spy window's labels show the current state
};
