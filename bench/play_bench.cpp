// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

// What it costs to show a frame, beside a copy of its pixels in the same run; and how many frames a second a
// game of 100 sprites with six statements each reaches while all of it is traced into the visible spy window,
// and how much of the processor it takes. Ends with 1 where a limit is not kept. Runs on a display, or off
// screen with QT_QPA_PLATFORM=offscreen.
#include "forms/Style.h"
#include "play/GameDisplay.h"
#include "play/GameEditor.h"
#include "runtime/ZBContext.h"
#include "runtime/ZBInterpreter.h"
#include "runtime/world/Field.h"
#include "support/PlayDesk.h"

#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <functional>
#include <vector>

namespace
{

constexpr int rounds = 501;
constexpr double painterLimit = 25; // microseconds on top of one copy, whatever the size
constexpr double frameLimit = 29.5;
constexpr int seconds = 6;

double microseconds(const std::function<void()>& work)
{
    QElapsedTimer clock;
    clock.start();
    work();
    return static_cast<double>(clock.nsecsElapsed()) / 1000.0;
}

double median(std::vector<double> times)
{
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::ranges::nth_element(times, middle);
    return *middle;
}

bool showFrames()
{
    constexpr int side = fieldSize;
    Surface frame(side, side, rgb(90, 180, 240));
    Surface copy(side, side);
    QImage screen(side, side, QImage::Format_RGB32);
    GameDisplay display;
    display.showSurface(&frame);
    display.show();
    for (QElapsedTimer patience; !display.windowHandle()->isExposed();) {
        if (!patience.isValid())
            patience.start();
        QApplication::processEvents();
        if (patience.elapsed() > 3000)
            return false;
    }

    std::vector<double> copying;
    std::vector<double> painting;
    std::vector<double> repainting;
    for (int i = 0; i < rounds; ++i) { // in turns, so that whatever else the machine does strikes all of them
        frame.set(i % side, i / side, white);
        copying.push_back(microseconds(
            [&] { std::memcpy(copy.pixels().data(), frame.pixels().data(), frame.pixels().size_bytes()); }));
        painting.push_back(
            microseconds([&] { display.render(&screen, {}, {}, QWidget::DrawWindowBackground); }));
        repainting.push_back(microseconds([&] { display.repaint(); }));
    }
    const double extra = median(painting) - median(copying);
    std::printf("a frame of %d x %d pixels, in microseconds\n", side, side);
    std::printf("  copied                      %8.1f\n", median(copying));
    std::printf("  painted                     %8.1f   %.1f more, limit %.0f\n", median(painting), extra,
                painterLimit);
    std::printf("  painted and sent to screen  %8.1f\n", median(repainting));
    return extra <= painterLimit;
}

std::string tracedGame()
{
    std::string create;
    for (int i = 0; i < 100; ++i)
        create += "create dot " + std::to_string(i) + " \"dot\" " + std::to_string(i * 7) + " 1 " +
                  std::to_string(i % 10 * 18 - 81) + " " + std::to_string(i / 10 * 18 - 81) + " 0\r\n";
    std::string text = programOf(create, "set counter$n 0");
    const std::string normal =
        "dot{\r\nnormal{\r\nmove me\r\nrebound me game\r\nset counter$a 1\r\nchange counter$a 2\r\n"
        "set counter$b 3\r\nchange counter$b 4\r\n}normal\r\n}dot\r\n";
    return text.insert(text.find("}classes"), normal);
}

bool traceRun()
{
    PlayDesk desk;
    desk.writeGraphic();
    desk.code.program = tracedGame();
    auto* editor = new GameEditor(desk, desk.module().CurrentGame);
    static_cast<QWidget*>(editor)->show();
    editor->SpyWindowButton_Click();
    for (QWidget* window : QApplication::topLevelWidgets()) {
        for (QCheckBox* box : window->findChildren<QCheckBox*>())
            box->setChecked(true);
    }
    editor->PlayButton_Click();
    int frames = 0;
    double busy = 0;
    double elapsed = 0;
    QElapsedTimer clock;
    QTimer::singleShot(1000, [&] {
        frames = editor->interpreter().context().frameNumber();
        busy = static_cast<double>(std::clock());
        clock.start();
    });
    QTimer::singleShot(1000 + seconds * 1000, [&] {
        frames = editor->interpreter().context().frameNumber() - frames;
        busy = (static_cast<double>(std::clock()) - busy) / CLOCKS_PER_SEC;
        elapsed = static_cast<double>(clock.elapsed()) / 1000;
        editor->interpreter().StopGame();
        QApplication::exit(); // quit() would close the windows first
    });
    QApplication::exec();
    delete editor;
    const double rate = frames / elapsed;
    std::printf("100 sprites of six statements, all traced and seen\n");
    std::printf("  frames a second             %8.1f   limit %.1f\n", rate, frameLimit);
    std::printf("  processor                   %8.1f %%\n", 100 * busy / elapsed);
    return rate >= frameLimit;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    forms::setUpApplication();
    const bool shown = showFrames();
    const bool traced = traceRun();
    return shown && traced ? 0 : 1;
}
