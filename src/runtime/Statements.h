// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBLMutateExp.h"
#include "runtime/Actions.h"
#include "runtime/Evaluator.h"
#include "runtime/FaultList.h"
#include "runtime/Trace.h"

// Jumping straight from step to step needs an extension that GCC and Clang have.
#if !defined(ZB_PLAIN_STEPS) && defined(__GNUC__) && !defined(__wasm__)
#define ZB_THREADED_STEPS 1
#else
#define ZB_THREADED_STEPS 0
#endif

/// How a block came back.
enum class [[nodiscard]] BlockResult{
    Done,
    Failed,  ///< ended without a word; whoever runs it ends the frame
    Paused,  ///< the same, by a pause statement
    Waiting, ///< a statement has been announced and waits
    Told,    ///< there are faults to be told before the block goes on
};

/// Runs the statements of a block from step to step. Where it stands is in the state: it may be left at every
/// statement, and go on in a copy.
class Statements
{
public:
    Statements(RunState& run, FaultList& faults, Trace& trace, Evaluator& evaluator, Actions& actions);

    /// While the user steps, every statement waits once it has been announced.
    void setStepMode(bool on) { m_stepMode = on; }
    bool StepMode() const { return m_stepMode; }
    /// Leaves the threaded steps and the chosen forms for the plain ones, which are their judges.
    void usePlainSteps() { m_plain = true; }

    /// The frame's block begins: in its traced form where somebody wants to see its statements. Boxes are
    /// ticked and the step mode is switched between blocks or while an announced statement waits, so that the
    /// choice holds for the whole block.
    void begin();
    /// Runs the frame's block from where it stands.
    BlockResult run();

private:
    BlockResult runThreaded();
    BlockResult runPlain();

    const Step* resume(const BlockCode& code);
    double numberThere(const NumberSource& source);
    double numberFrom(const NumberSource* sources, std::int32_t index);
    bool mustWait() const { return m_stepMode && m_trace.isOn() && m_run.running; }
    BlockResult wait(std::ptrdiff_t step);
    BlockResult tell(std::ptrdiff_t step, Pending next);
    BlockResult giveUp(int line, bool isTest);
    BlockResult pause(int line);
    BlockResult fail(const BlockCode& code, const Step* step, bool isTest);

    // Variables; slots as the program counts them.
    void firstSet(ValueKind kind, std::int32_t slot);
    void changeFailed(const Step& step, int line);
    Outcome runIf(const ZBLIfExp& statement, bool& result);
    Outcome runMutate(const ZBLMutateExp& statement);
    bool setVariable(const ZBLVarExp& variable, const ZBLValueExp& value);

    RunState& m_run;
    FaultList& m_faults;
    Trace& m_trace;
    Evaluator& m_evaluator;
    Actions& m_actions;
    bool m_stepMode = false;
    bool m_plain = false;
};
