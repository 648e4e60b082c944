// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "BenchGame.h"

#include "platform/DiskFile.h"

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace
{

std::filesystem::path scratchFolder()
{
    const auto folder =
        std::filesystem::temp_directory_path() / ("zorbino-bench-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    return folder;
}

/// 20 x 20 squares, red and empty by turns.
std::string fieldMap()
{
    std::string text = "\r\n\r\n 20\r\n 20\r\n";
    for (int legend = 0; legend < 21; ++legend)
        text += "\r\n";
    for (int square = 0; square < 20 * 20; ++square)
        text += (square + square / 20) % 2 == 0 ? "0\r\n" : "1\r\n";
    return text;
}

} // namespace

BenchGame::BenchGame(Frames frames, const Graphic& graphic)
    : m_folder(scratchFolder())
    , m_frames(frames)
    , m_graphic(graphic)
    , m_installation(m_folder)
    , m_interpreter(m_module, m_installation, *this,
                    Ports{.screen = *this,
                          .gameEditor = m_noGameEditor,
                          .codeEditor = m_noCodeEditor,
                          .spy = *this,
                          .parseError = *this})
{
    m_module.GamesFolder.clear();
    const std::string size = std::to_string(graphic.size);
    if (!writeFileWhole(m_folder / "dot.spr", "bench\r\n" + std::string(graphic.kind) + "," + size + "," +
                                                  size + "," + std::to_string(graphic.frames) + "\r\n") ||
        !writeFileWhole(m_folder / "dot.spb", "drawn by decode()") ||
        !writeFileWhole(m_folder / "field.map", fieldMap()))
        std::abort();
}

BenchGame::~BenchGame()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

void BenchGame::start(std::string_view text, RunKind kind)
{
    static_cast<void>(
        m_interpreter.RunGame(std::string(text), kind)); // the first frame tells whether it runs
    frame();
    if (!context().InterpreterRunning())
        std::exit(EXIT_FAILURE);
}

void BenchGame::frame()
{
    if (m_interpreter.timerTick() == Progress::Told)
        show(m_interpreter.takeFaults().front().message);
}

void BenchGame::addHistoryLine(std::string_view line)
{
    m_history[m_historyLines++ % m_history.size()] = line;
}

void BenchGame::show(std::string_view text)
{
    std::fprintf(stderr, "%s\n", std::string(text).c_str());
    std::exit(EXIT_FAILURE);
}

std::optional<Surface> BenchGame::decode(std::string_view /*bytes*/)
{
    // Discs, one below the other: opaque inside, transparent outside.
    const int size = m_graphic.size;
    Surface picture(2 * size, size * m_graphic.frames, black);
    const double middle = size / 2.0;
    for (int y = 0; y < size * m_graphic.frames; ++y)
        for (int x = 0; x < size; ++x) {
            const double dx = x + 0.5 - middle;
            const double dy = y % size + 0.5 - middle;
            const bool inside = dx * dx + dy * dy < middle * middle;
            picture.set(x, y, inside ? rgb(200, 80, 40) : black);
            picture.set(size + x, y, inside ? black : white);
        }
    return picture;
}
