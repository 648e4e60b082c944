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
    bool wantsStatements() const { return m_on && (m_boxes.code || !m_labelsShown); }

    /// Appends a history line; `line` 0 stands for none.
    void SpyWrite(std::string_view text, int line);
    /// The statement at `line` is about to run.
    void TraceLine(int line);
    void TraceStateChange();
    void TraceEventEntry(std::string_view className, std::string_view eventName, std::string_view tagText);
    void TraceEventExit(std::string_view className, std::string_view eventName);
    void TraceIfBegin() { ++m_run.traceDepth; }
    void TraceIfEnd();
    /// `depth` is that of the ifs around which nobody has counted.
    void TracePause(int line, int depth);
    /// The frame box of four lines.
    void TraceFrame();

private:
    SpyPort& m_spy;
    RunState& m_run;
    TraceBoxes m_boxes;
    bool m_on = false;
    bool m_labelsShown = false;
    std::string m_line; ///< scratch for history lines
    std::string m_text; ///< scratch for what stands in them
};
