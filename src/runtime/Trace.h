// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "runtime/Ports.h"
#include "runtime/RunState.h"

#include <string>
#include <string_view>

/// Which kinds of history lines are wanted: the spy window's three check boxes.
struct TraceBoxes {
    bool frames = false; ///< Show Frame Divisions
    bool events = false; ///< Show Event Entry/Exit
    bool code = false;   ///< Show Every Line of Code Executed
};

/// Looks on while a run goes by, statement by statement. Only who is looked at pays for it.
class RunWatcher
{
public:
    virtual ~RunWatcher() = default;
    /// The statement at `line` is about to run.
    virtual void statement(int line) = 0;
    /// The block of an event begins and ends; ME and IT are bound.
    virtual void eventBegins(EventName event) = 0;
    virtual void eventEnds() = 0;
    /// A state, or its LOOP, has been entered.
    virtual void stateEntered() = 0;
    /// A pause statement ends the frame.
    virtual void pauses(int line) = 0;
    /// The create statement at `line`, which is not announced, has run: the new sprite is the last live one.
    /// Where it made a mistake the run has been reset.
    virtual void created(int line) = 0;
};

/// Writes the history of a run, and keeps the labels of the spy window up to date.
class Trace
{
public:
    Trace(SpyPort& spy, RunState& run);

    const TraceBoxes& boxes() const { return m_boxes; }
    /// Takes effect at the next line written.
    void setBoxes(const TraceBoxes& boxes) { m_boxes = boxes; }
    /// Whether statements announce themselves at all: only runs of the game editor do.
    void setOn(bool on) { m_on = on; }
    bool isOn() const { return m_on; }
    /// The labels show an older state from now on.
    void forgetLabels() { m_labelsShown = false; }
    /// A box is ticked that wants every statement, or the labels are out of date.
    bool wantsStatements() const { return m_on && (m_boxes.code || !m_labelsShown || m_watcher); }
    /// Tells `watcher` of everything that it writes; null: nobody.
    void setWatcher(RunWatcher* watcher) { m_watcher = watcher; }

    /// Appends a history line; `line` 0 stands for none.
    void SpyWrite(std::string_view text, int line);
    /// The statement at `line` is about to run.
    void TraceLine(int line);
    void TraceStateChange();
    void TraceEventEntry(std::string_view className, EventName event, std::string_view tagText);
    void TraceEventExit(std::string_view className, EventName event);
    void TraceIfBegin() { ++m_run.traceDepth; }
    void TraceIfEnd();
    /// `depth` is that of the ifs around which nobody has counted.
    void TracePause(int line, int depth);
    void TraceCreate(int line)
    {
        if (m_watcher)
            m_watcher->created(line);
    }
    /// The frame box of four lines.
    void TraceFrame();

private:
    SpyPort& m_spy;
    RunState& m_run;
    RunWatcher* m_watcher = nullptr;
    TraceBoxes m_boxes;
    bool m_on = false;
    bool m_labelsShown = false;
    std::string m_line; ///< scratch for history lines
    std::string m_text; ///< scratch for what stands in them
};
