// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "headless/HeadlessPlayer.h"

void writeMessage(const LineOutput& output, std::string_view mark, std::string_view message)
{
    for (std::size_t start = 0;;) {
        const std::size_t end = message.find(NewLine, start);
        output(std::string(mark).append(message.substr(start, end - start)));
        if (end == std::string_view::npos)
            return;
        start = end + NewLine.size();
    }
}

namespace
{

/// Frames count from 1; what stands before them is left out.
std::vector<KeyInput> inputsOf(const std::vector<KeyChange>& keys)
{
    std::vector<KeyInput> inputs;
    for (const KeyChange& key : keys)
        if (key.frame >= 1)
            inputs.push_back({.time = {.tick = key.frame}, .down = key.down, .code = key.code});
    return inputs;
}

} // namespace

HeadlessPlayer::HeadlessPlayer(ZB& module, const FileSource& files, PictureReader& pictures,
                               LineOutput output)
    : m_output(std::move(output))
    , m_interpreter(module, files, pictures,
                    Ports{.screen = *this,
                          .gameEditor = *this,
                          .codeEditor = m_noCodeEditor,
                          .spy = *this,
                          .parseError = *this})
{
}

HeadlessPlayer::Result HeadlessPlayer::run(std::string text, const HeadlessOptions& options,
                                           const std::vector<KeyChange>& keys)
{
    m_options = options;
    m_parseFailed = false;
    m_interpreter.setTraceBoxes(options.boxes);
    m_interpreter.setSeed(options.seed);
    ZBContext& context = m_interpreter.context();
    context.setShowMap(options.showMap);

    tellFaults(m_interpreter.RunGame(std::move(text), RunKind::Traced));
    if (m_parseFailed)
        return Result::ParseError;
    context.addInputs(inputsOf(keys));
    for (std::int32_t frame = 0; frame < options.frames && context.InterpreterRunning(); ++frame)
        playFrame();
    if (!context.InterpreterRunning())
        return Result::RuntimeError;
    if (options.dump) {
        m_output("Variables:");
        for (const std::string& line : context.DumpVariablesInto())
            m_output(line);
    }
    return Result::AllFrames;
}

void HeadlessPlayer::setButtons(RunButtons state)
{
    // Nobody is there who could press Play: a pause is over at once.
    if (state == RunButtons::Paused)
        m_interpreter.ResumeGame();
}

void HeadlessPlayer::addHistoryLine(std::string_view line)
{
    if (m_options.trace)
        m_output(line);
}

void HeadlessPlayer::show(std::string_view text)
{
    m_parseFailed = true;
    writeMessage(m_output, "? ", text);
}

/// Tells what is wrong, all of it, and takes the frame to its end.
void HeadlessPlayer::tellFaults(Progress progress)
{
    for (; progress == Progress::Told; progress = m_interpreter.proceed())
        for (const RuntimeFault& fault : m_interpreter.takeFaults()) {
            writeMessage(m_output, "! ", ZBInterpreter::runtimeErrorText(fault));
            m_interpreter.haltAfter(fault);
        }
}
