// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "headless/KeyScript.h"
#include "headless/QuietPorts.h"
#include "runtime/ZBContext.h"
#include "runtime/ZBInterpreter.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// What a run without a window is to do.
struct HeadlessOptions {
    std::int32_t frames = 300;
    bool trace = false; ///< hand on the history lines
    TraceBoxes boxes;
    bool showMap = false;
    bool dump = false;
    bool wantsPicture = false; ///< without it, no frame is drawn
    std::uint64_t seed = 0;
};

using LineOutput = std::function<void(std::string_view line)>;

/// Writes the lines of a message, separated by CR LF, each with `mark` in front of it.
void writeMessage(const LineOutput& output, std::string_view mark, std::string_view message);

/// Plays a game without a window and without waiting, as fast as it goes. Every line of output goes to
/// `output`.
class HeadlessPlayer : private QuietScreen, private QuietGameEditor, private QuietSpy, private ParseErrorPort
{
public:
    HeadlessPlayer(ZB& module, const FileSource& files, PictureReader& pictures, LineOutput output);

    enum class Result { AllFrames = 0, ParseError = 1, RuntimeError = 2 };
    Result run(std::string text, const HeadlessOptions& options, const std::vector<KeyChange>& keys);

    /// One more frame of a run.
    void playFrame() { tellFaults(m_interpreter.timerTick()); }

    ZBInterpreter& interpreter() { return m_interpreter; }
    const Surface& display() { return m_interpreter.context().display(); }

private:
    bool wantsFrames() const override { return m_options.wantsPicture; }
    void setButtons(RunButtons state) override;
    void addHistoryLine(std::string_view line) override;
    // ParseErrorPort
    void close() override {}
    using QuietScreen::show;
    void show(std::string_view text) override;
    void beep() override {}
    void tellFaults(Progress progress);

    LineOutput m_output;
    HeadlessOptions m_options;
    bool m_parseFailed = false;
    QuietCodeEditor m_noCodeEditor;
    ZBInterpreter m_interpreter;
};
