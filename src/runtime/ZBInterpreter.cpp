#include "runtime/ZBInterpreter.h"

#include "platform/NumberText.h"
#include "platform/Rounding.h"
#include "runtime/ZBContext.h"

namespace
{

constexpr int gameEditorMode = 1;

/// Sets a flag for as long as a scope lasts.
class Flag
{
public:
    explicit Flag(bool& flag)
        : m_flag(flag)
    {
        m_flag = true;
    }
    ~Flag() { m_flag = false; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;

private:
    bool& m_flag;
};

} // namespace

ZBInterpreter::ZBInterpreter(ZB& module, const Installation& installation, PictureReader& pictures,
                             const Ports& ports)
    : m_module(module)
    , m_installation(installation)
    , m_pictures(pictures)
    , m_ports(ports)
    , m_context(std::make_unique<ZBContext>(*this))
{
}

ZBInterpreter::~ZBInterpreter() = default;

std::optional<int> ZBInterpreter::timerInterval(int framesPerMinute)
{
    if (framesPerMinute <= 0)
        return std::nullopt;
    return roundToInt(60000.0 / framesPerMinute);
}

bool ZBInterpreter::mustAnnounce() const
{
    return m_module.RunMode == gameEditorMode && (m_boxes.code || m_stepMode || !m_stateShown);
}

// Run control.

void ZBInterpreter::RunGame(std::string_view text, int mode)
{
    // Neither a second run beside the first, nor one in the middle of a frame.
    if (m_inFrame || m_starting)
        return;
    const Flag starting(m_starting);
    m_stopRequested = false;
    m_context->Reset();
    m_ports.parseError.close();
    m_module.ErrorLine = 0;
    m_module.RunMode = mode;
    m_module.ErrorText.clear();
    TraceDepth = 0;
    m_stepMode = false;
    m_stepReleased = false;
    m_halting = false;
    m_module.CodeEditorWasOpen = m_ports.codeEditor.isVisible();
    if (m_module.CodeEditorWasOpen)
        m_ports.codeEditor.hide();
    m_ports.screen.load();
    m_ports.screen.setTimerInterval(timerInterval(m_ports.gameEditor.framesPerMinute()));
    m_ports.gameEditor.setButtons(RunButtons::Running);
    m_ports.user.deliverMessages(UserPort::Wait::No);
    if (m_stopRequested) {
        finishStop();
        return;
    }
    m_ports.spy.enableVariables();
    writeBanner();
    if (!m_context->Parse(text))
        return;
    m_context->Start();
    m_ports.screen.setTimerInterval(timerInterval(m_ports.gameEditor.framesPerMinute()));
}

void ZBInterpreter::writeBanner()
{
    const std::string rule(41, '_');
    m_ports.spy.clearHistory();
    for (int i = 0; i < 31; ++i)
        m_ports.spy.addHistoryLine("");
    m_ports.spy.addHistoryLine(rule);
    m_ports.spy.addHistoryLine("");
    m_ports.spy.addHistoryLine("  Title:  " + m_module.CurrentGame.title);
    m_ports.spy.addHistoryLine("  Author: " + m_module.CurrentGame.author);
    m_ports.spy.addHistoryLine(rule);
    m_ports.spy.addHistoryLine("");
    m_ports.spy.addHistoryLine("");
    m_ports.spy.selectLastLine();
}

void ZBInterpreter::PauseGame()
{
    // A game that pauses itself in every frame must not put a stop off for ever.
    if (!m_context->InterpreterRunning() || m_halting)
        return;
    m_stepMode = true;
    m_ports.gameEditor.setButtons(RunButtons::Paused);
    m_ports.spy.enableVariables();
}

void ZBInterpreter::ResumeGame()
{
    m_ports.gameEditor.setButtons(RunButtons::Resumed);
    m_stepMode = false;
    m_stepReleased = true;
}

void ZBInterpreter::StepOnce()
{
    m_stepReleased = true;
}

void ZBInterpreter::StopGame()
{
    if (m_stopping)
        return;
    const Flag stopping(m_stopping);
    if (m_starting) {
        m_stopRequested = true; // the start looks for it before it goes on
        return;
    }
    m_ports.gameEditor.setEnabled(false);
    if (m_stepMode || m_inFrame) {
        // A statement is waiting: it and the rest of its frame run to their end first.
        m_stepReleased = true;
        m_stepMode = false;
        m_halting = true;
        m_ports.gameEditor.startHaltMeAgain();
        return;
    }
    m_context->HaltInterpreter();
    finishStop();
}

void ZBInterpreter::finishStop()
{
    m_halting = false;
    m_ports.screen.close();
    m_context->Reset();
    m_ports.gameEditor.setEnabled(true);
    RestoreEditorButtons();
    m_stepReleased = true;
}

void ZBInterpreter::RestoreEditorButtons()
{
    m_ports.gameEditor.setButtons(RunButtons::Stopped);
}

void ZBInterpreter::timerTick()
{
    if (m_inFrame || m_starting || m_halting || !m_context->InterpreterRunning())
        return;
    const Flag inFrame(m_inFrame);
    m_context->Quantum();
}

void ZBInterpreter::framesPerMinuteChanged()
{
    if (!m_context->InterpreterRunning())
        return;
    m_ports.screen.setTimerInterval(timerInterval(m_ports.gameEditor.framesPerMinute()));
    m_ports.screen.enableTimer(false);
    m_ports.screen.enableTimer(true);
}

// The trace.

void ZBInterpreter::SpyWrite(std::string_view text, int line)
{
    m_line.clear();
    const auto indentation = static_cast<std::size_t>(TraceDepth > 0 ? TraceDepth : 0) * 2;
    if (line != 0) {
        appendPadded(m_line, line, 4);
        m_line.append(indentation + 1, ' ');
    } else {
        m_line.append(indentation + 5, ' ');
    }
    m_line += text;
    m_ports.spy.addHistoryLine(m_line);
}

bool ZBInterpreter::TraceLine(int line)
{
    if (m_module.RunMode != gameEditorMode)
        return true;
    if (m_boxes.code)
        SpyWrite(m_context->getLine(line), line);
    if (!m_stateShown) {
        m_stateShown = true;
        m_ports.spy.showState(m_context->getState(), m_context->getSubState());
    }
    if (!m_stepMode || !m_context->InterpreterRunning())
        return true;
    m_ports.spy.setVariables(m_context->DumpVariablesInto());
    m_stepReleased = false;
    while (m_context->InterpreterRunning() && !m_stepReleased)
        m_ports.user.deliverMessages(UserPort::Wait::Yes);
    return m_context->InterpreterRunning();
}

void ZBInterpreter::TraceStateChange()
{
    m_stateShown = false;
    m_text.assign("New State: State=").append(m_context->getState());
    m_text.append(" SubState=").append(m_context->getSubState());
    SpyWrite(m_text, 0);
}

void ZBInterpreter::TraceFrame(int frameNumber)
{
    m_text.assign("|              Frame ");
    appendPadded(m_text, frameNumber, 5);
    m_text += "               |";
    SpyWrite(" ________________________________________", 0);
    SpyWrite("|                                        |", 0);
    SpyWrite(m_text, 0);
    SpyWrite("|________________________________________|", 0);
}

void ZBInterpreter::TraceEventEntry(std::string_view className, std::string_view eventName,
                                    std::string_view tagText)
{
    if (m_boxes.events) {
        m_text.assign(className).append(".").append(eventName).append("{");
        if (!tagText.empty())
            m_text.append(" ; tag = ").append(tagText);
        SpyWrite(m_text, 0);
    }
    ++TraceDepth;
}

void ZBInterpreter::TraceEventExit(std::string_view className, std::string_view eventName)
{
    --TraceDepth;
    if (!m_boxes.events)
        return;
    m_text.assign("}").append(className).append(".").append(eventName);
    SpyWrite(m_text, 0);
}

void ZBInterpreter::TracePause(int line)
{
    SpyWrite("\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/", 0);
    m_text.assign("     PAUSE REQUESTED AT LINE ");
    appendPadded(m_text, line, 1);
    SpyWrite(m_text, 0);
}

void ZBInterpreter::TraceIfEnd()
{
    --TraceDepth;
    if (m_boxes.code)
        SpyWrite("}if", 0);
}

// Errors.

void ZBInterpreter::ReportRuntimeError(std::string_view message, int line)
{
    m_ports.user.messageBox(std::string(message) + "\r\n(line " + std::to_string(line) + ")");
    m_module.ErrorLine = line;
    m_module.ErrorText = message;
    HaltAfterError();
}

void ZBInterpreter::showParseError(std::string_view report, int line)
{
    m_module.ErrorLine = line;
    m_module.ErrorText = report;
    m_ports.parseError.close();
    m_ports.parseError.show(report);
    HaltAfterError();
}

void ZBInterpreter::HaltAfterError()
{
    m_context->Reset();
    m_ports.screen.close();
    if (m_module.RunMode != gameEditorMode)
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
