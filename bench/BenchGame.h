// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "headless/QuietPorts.h"
#include "runtime/ZBContext.h"
#include "runtime/ZBInterpreter.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

/// A game without a window for measurements, in a scratch folder with one sprite graphic named "dot" and a
/// map "field.map".
class BenchGame : private QuietScreen, private QuietSpy, private ParseErrorPort, private PictureReader
{
public:
    enum class Frames { Skipped, Drawn };

    /// The graphic of the sprites: its kind as its file names it, the width and height of a frame, and their
    /// number.
    struct Graphic {
        const char* kind = "Simple";
        int size = 32;
        int frames = 1;
    };

    BenchGame()
        : BenchGame(Frames::Skipped, {})
    {
    }
    BenchGame(Frames frames, const Graphic& graphic);
    ~BenchGame() override;

    /// Starts the program and runs its first frame. Ends the process with a message where it does not run.
    void start(std::string_view text, RunKind kind);
    void frame();
    ZBContext& context() { return m_interpreter.context(); }
    ZBInterpreter& interpreter() { return m_interpreter; }
    std::uint64_t historyLines() const { return m_historyLines; }

private:
    bool wantsFrames() const override { return m_frames == Frames::Drawn; }
    void addHistoryLine(std::string_view line) override;
    void close() override {}
    using QuietScreen::show;
    void show(std::string_view text) override;
    void beep() override {}
    std::optional<Surface> decode(std::string_view bytes) override;

    std::filesystem::path m_folder;
    Frames m_frames;
    QuietGameEditor m_noGameEditor;
    QuietCodeEditor m_noCodeEditor;
    Graphic m_graphic;
    ZB m_module;
    Installation m_installation;
    std::array<std::string, 500> m_history;
    std::uint64_t m_historyLines = 0;
    ZBInterpreter m_interpreter;
};
