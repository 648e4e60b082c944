// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/ZBInterpreter.h"

#include "platform/Rounding.h"

ZBInterpreter::ZBInterpreter(ZB& module, const FileSource& files, PictureReader& pictures, const Ports& ports)
    : m_module(module)
    , m_files(files)
    , m_ports(ports)
    , m_context(files, pictures, ports.screen, ports.spy)
{
}

std::optional<int> ZBInterpreter::timerInterval(int framesPerMinute)
{
    if (framesPerMinute <= 0)
        return std::nullopt;
    return roundToInt(60000.0 / framesPerMinute);
}

// Run control.

void ZBInterpreter::setControl(Control control)
{
    m_control = control;
    m_context.statements().setStepMode(control == Control::Stepping);
}

void ZBInterpreter::forgetRun()
{
    if (m_listener)
        m_listener->runEnds();
    m_context.Reset();
}

Progress ZBInterpreter::RunGame(std::string text, RunKind kind)
{
    return prepareRun(kind) ? startRun(std::move(text)) : Progress::FrameDone;
}

bool ZBInterpreter::prepareRun(RunKind kind)
{
    // Neither a second run beside the first, nor one in the middle of a frame.
    if (inFrame())
        return false;
    forgetRun();
    m_ports.parseError.close();
    m_module.ErrorLine = 0;
    m_module.RunMode = kind;
    m_module.ErrorText.clear();
    m_context.clearTraceDepth();
    m_context.trace().setOn(kind == RunKind::Traced);
    setControl(Control::Starting);
    m_stepReleased = false;
    openWindows();
    return true;
}

void ZBInterpreter::openWindows()
{
    m_module.CodeEditorWasOpen = m_ports.codeEditor.isVisible();
    if (m_module.CodeEditorWasOpen)
        m_ports.codeEditor.hide();
    m_ports.screen.load();
    m_ports.screen.setTimerInterval(timerInterval(m_ports.gameEditor.framesPerMinute()));
    m_ports.gameEditor.setButtons(RunButtons::Running);
}

void ZBInterpreter::showGame()
{
    m_ports.screen.reopen(m_module.CurrentGame.title);
    m_ports.screen.show();
}

Progress ZBInterpreter::startRun(std::string text)
{
    if (m_control != Control::Starting)
        return Progress::FrameDone;
    m_ports.spy.enableVariables();
    writeBanner();
    switch (m_context.Parse(std::move(text), *this)) {
    case Outcome::Done:
        break;
    case Outcome::Stopped:
        HaltAfterError();
        return Progress::FrameDone;
    case Outcome::Told:
        return Progress::Told;
    }
    showGame();
    m_context.Start(m_module.gamePath(), m_seed);
    if (m_listener)
        m_listener->runBegins(m_context, m_seed);
    setControl(Control::Running);
    m_ports.screen.enableTimer(true);
    m_ports.screen.setTimerInterval(timerInterval(m_ports.gameEditor.framesPerMinute()));
    return Progress::FrameDone;
}

std::vector<std::string> ZBInterpreter::banner(const GameRecord& game)
{
    const std::string rule(41, '_');
    std::vector<std::string> lines(31);
    lines.insert(lines.end(),
                 {rule, "", "  Title:  " + game.title, "  Author: " + game.author, rule, "", ""});
    return lines;
}

void ZBInterpreter::writeBanner()
{
    m_ports.spy.clearHistory();
    for (const std::string& line : banner(m_module.CurrentGame))
        m_ports.spy.addHistoryLine(line);
    m_ports.spy.selectLastLine();
}

bool ZBInterpreter::pauseAt(const RunState& state, std::shared_ptr<RunFiles> files)
{
    const bool isOver = m_control == Control::Stopped;
    if (m_control == Control::Starting || m_control == Control::Stopping || (isOver && m_context.inFrame()))
        return false;
    if (isOver) {
        m_ports.parseError.close();
        m_module.ErrorLine = 0;
        m_module.ErrorText.clear();
        openWindows();
    }
    m_context.useFiles(std::move(files));
    m_context.restore(state);
    setControl(Control::Running);
    m_stepReleased = false;
    m_context.DrawFrame();
    if (isOver) {
        showGame();
        m_ports.screen.enableTimer(true);
    }
    PauseGame();
    return true;
}

void ZBInterpreter::PauseGame()
{
    // A game that pauses itself in every frame must not put a stop off for ever.
    if (!m_context.InterpreterRunning() || m_control == Control::Stopping)
        return;
    setControl(Control::Stepping);
    m_ports.gameEditor.setButtons(RunButtons::Paused);
    m_ports.spy.enableVariables();
}

void ZBInterpreter::ResumeGame()
{
    m_ports.gameEditor.setButtons(RunButtons::Resumed);
    if (m_control == Control::Stepping)
        setControl(Control::Running);
    release();
}

void ZBInterpreter::StepOnce()
{
    release();
}

void ZBInterpreter::release()
{
    if (!m_context.isWaiting() || m_stepReleased)
        return;
    m_stepReleased = true;
    m_ports.screen.proceedSoon();
}

void ZBInterpreter::StopGame()
{
    if (m_control == Control::Starting) { // startRun finds that there is nothing to start any more
        finishStop();
        return;
    }
    m_ports.gameEditor.setEnabled(false);
    if (m_control == Control::Stepping || m_context.inFrame()) {
        // A statement is waiting: it and the rest of its frame run to their end first.
        setControl(Control::Stopping);
        m_ports.gameEditor.startHaltMeAgain();
        release();
        return;
    }
    m_context.HaltInterpreter();
    finishStop();
}

void ZBInterpreter::finishStop()
{
    setControl(Control::Stopped);
    m_ports.screen.close();
    forgetRun();
    m_ports.gameEditor.setEnabled(true);
    RestoreEditorButtons();
}

void ZBInterpreter::abandonRun()
{
    setControl(Control::Stopped);
    m_context.abandonFrame();
    forgetRun();
    m_ports.screen.close();
}

void ZBInterpreter::RestoreEditorButtons()
{
    m_ports.gameEditor.setButtons(RunButtons::Stopped);
}

Progress ZBInterpreter::timerTick()
{
    const bool isOnHold = m_control == Control::Starting || m_control == Control::Stopping;
    if (isOnHold || m_context.inFrame() || !m_context.InterpreterRunning())
        return Progress::FrameDone;
    return settle(m_context.Quantum());
}

Progress ZBInterpreter::proceed()
{
    if (m_context.isWaiting() && !m_stepReleased)
        return Progress::Waiting;
    return settle(m_context.advance());
}

Progress ZBInterpreter::settle(Progress progress)
{
    if (m_listener && progress == Progress::Told)
        m_listener->runBreaks();
    if (m_listener && m_context.InterpreterRunning() && !m_context.inFrame())
        m_listener->frameEnds();
    if (progress == Progress::Waiting) {
        m_stepReleased = false;
        m_ports.spy.setVariables(m_context.DumpVariablesInto());
    } else if (progress == Progress::FramePaused) {
        PauseGame();
    }
    return progress;
}

void ZBInterpreter::framesPerMinuteChanged()
{
    if (!m_context.InterpreterRunning())
        return;
    m_ports.screen.setTimerInterval(timerInterval(m_ports.gameEditor.framesPerMinute()));
    m_ports.screen.enableTimer(false);
    m_ports.screen.enableTimer(true);
}

// Errors.

std::string ZBInterpreter::runtimeErrorText(const RuntimeFault& fault)
{
    return fault.message + std::string(NewLine) + "(line " + std::to_string(fault.line) + ")";
}

void ZBInterpreter::haltAfter(const RuntimeFault& fault)
{
    m_module.ErrorLine = fault.line;
    m_module.ErrorText = fault.message;
    HaltAfterError();
}

void ZBInterpreter::parseError(const ParseFault& fault)
{
    const std::string report = reportText(fault, *m_context.state().lines);
    m_module.ErrorLine = fault.line;
    m_module.ErrorText = report;
    m_ports.parseError.close();
    m_ports.parseError.show(report);
}

void ZBInterpreter::HaltAfterError()
{
    setControl(Control::Stopped);
    forgetRun();
    m_ports.screen.close();
    if (m_module.RunMode != RunKind::Traced)
        return;
    RestoreEditorButtons();
    if (!m_module.CodeEditorWasOpen && m_module.ErrorLine < 1)
        return;
    m_ports.codeEditor.show();
    if (m_module.ErrorLine < 1)
        return;
    // The first two moves make the text scroll, so that the line is shown with some context on either side.
    constexpr int context = 5;
    m_ports.codeEditor.SetCursorPos(m_module.ErrorLine + context, 1, false);
    m_ports.codeEditor.SetCursorPos(m_module.ErrorLine - context, 1, false);
    m_ports.codeEditor.SetCursorPos(m_module.ErrorLine, 1, false);
    m_ports.codeEditor.focusText();
}
