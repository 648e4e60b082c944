// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "forms/WindowPlacement.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

using namespace forms;

/// The windows of the program on one screen, with a font, opened in the order of a child's day.
struct Day {
    Day(QSize pixels, double scale, double font)
        : screen(QPoint(), (QSizeF(pixels) / scale).toSize())
        , m_font(font)
    {
        const QSize buttons = grown(456, 90); // with the window's margin
        editorSize = {buttons.width(), grown(0, 268).height() + titleBarHeight};
        if (!fitBeside(editorSize.width(), game.wanted.width(), screen)) // icons without captions
            editorSize.setWidth(270);
        editor = add(WindowRole::GameEditor, Obstacle::GameEditor, {editorSize, editorSize});
        runButtons = {editor.topLeft(), QSize(editorSize.width(), buttons.height() + titleBarHeight)};
        obstacles.push_back({Obstacle::RunButtons, runButtons});
    }

    QRect add(WindowRole role, Obstacle obstacle, const WindowSize& size)
    {
        const QRect place = placeOfWindow(role, size, screen, obstacles);
        EXPECT_TRUE(screen.contains(place.topLeft())) << "the title bar is out of reach";
        EXPECT_EQ(place.size(), place.size().boundedTo(size.wanted).expandedTo(size.smallest));
        obstacles.push_back({obstacle, place});
        return place;
    }
    QRect addCode()
    {
        return add(WindowRole::CodeEditor, Obstacle::CodeEditor,
                   {grown(814, 620 + titleBarHeight), grown(480, 220 + titleBarHeight)});
    }
    QRect addGame() { return add(WindowRole::GameWindow, Obstacle::GameWindow, game); }
    QRect addSpy()
    {
        return add(WindowRole::SpyWindow, Obstacle::SpyWindow,
                   {grown(830, 570 + titleBarHeight), grown(450, 260 + titleBarHeight)});
    }
    QRect addMessage()
    {
        return add(WindowRole::ParseError, Obstacle::Other,
                   {grown(510, 190 + titleBarHeight), grown(300, 100 + titleBarHeight)});
    }
    void remove(Obstacle obstacle)
    {
        std::erase_if(obstacles, [&](const ObstacleArea& there) { return there.obstacle == obstacle; });
    }
    QSize grown(int width, int height) const { return (QSizeF(width, height) * m_font).toSize(); }

    QRect screen;
    QSize editorSize;
    QRect editor;
    QRect runButtons;
    WindowSize game = {{480, 480 + titleBarHeight}, {480, 480 + titleBarHeight}};
    std::vector<ObstacleArea> obstacles;

private:
    double m_font;
};

/// Calls `look` for every screen, scale and font that the windows can be used with.
template<typename Look> void onEveryScreen(Look look)
{
    for (const QSize pixels :
         {QSize(800, 600), QSize(1024, 600), QSize(1280, 720), QSize(1366, 768), QSize(1920, 1080)}) {
        for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
            for (const double font : {1.0, 1.25, 1.5}) {
                if (pixels.width() / scale < 800 || pixels.height() / scale < 530)
                    continue; // the game alone does not fit
                SCOPED_TRACE(testing::Message() << pixels.width() << 'x' << pixels.height() << " at " << scale
                                                << ", font " << font);
                Day day(pixels, scale, font);
                look(day);
            }
        }
    }
}

TEST(WindowPlacement, KeepsTheGameBesideItsButtons)
{
    onEveryScreen([](Day& day) {
        const QRect game = day.addGame();
        EXPECT_FALSE(game.intersects(day.editor));
        EXPECT_TRUE(day.screen.contains(game));
        const QRect spy = day.addSpy();
        EXPECT_FALSE(spy.intersects(day.runButtons));
    });
}

TEST(WindowPlacement, KeepsTheSpyOffButtonsAndGame)
{
    onEveryScreen([](Day& day) {
        day.addCode();
        const QRect spy = day.addSpy(); // before the run
        EXPECT_FALSE(spy.intersects(day.runButtons));
        day.remove(Obstacle::CodeEditor);
        const QRect game = day.addGame();
        EXPECT_FALSE(game.intersects(day.runButtons));
        if (day.screen.width() >= 1024) {
            EXPECT_FALSE(game.intersects(day.editor));
        }
    });
}

TEST(WindowPlacement, KeepsTheCodeOffTheRunButtons)
{
    onEveryScreen([](Day& day) {
        const QRect code = day.addCode();
        EXPECT_FALSE(code.intersects(day.runButtons));
        const QSize room(day.screen.width(), day.screen.height() - day.runButtons.bottom() - 1);
        const QSize smallest = day.grown(480, 220 + titleBarHeight);
        if (smallest.boundedTo(room) == smallest) {
            EXPECT_TRUE(day.screen.contains(code));
        }
        if (fitBeside(day.editor.width(), day.grown(480, 0).width() + windowGap, day.screen)) {
            EXPECT_FALSE(code.intersects(day.editor));
        }
    });
}

TEST(WindowPlacement, KeepsTheMessageOffItsLine)
{
    onEveryScreen([](Day& day) {
        QRect code = day.addCode();
        for (const bool maximised : {false, true}) {
            if (maximised) {
                code = day.screen;
                day.obstacles.back().area = code;
            }
            const int textTop = code.top() + titleBarHeight + day.grown(0, 130).height();
            const int height = 3 * day.grown(0, 19).height();
            for (const int line : {textTop, (textTop + code.bottom() - height) / 2, code.bottom() - height}) {
                const QRect cursor(code.left(), line, code.width(), height);
                const auto before = day.obstacles;
                day.obstacles.push_back({Obstacle::CursorLine, cursor});
                const QRect message = day.addMessage();
                EXPECT_FALSE(message.intersects(cursor)) << line;
                EXPECT_FALSE(message.intersects(day.runButtons)) << line;
                EXPECT_TRUE(day.screen.contains(message)) << line;
                day.obstacles = before;
            }
        }
    });
}

TEST(WindowPlacement, LeavesAGapAndPrefersAShapeOfItsOwn)
{
    Day day({1366, 768}, 1, 1);
    EXPECT_EQ(day.editor, QRect(8, 8, 456, 304));
    EXPECT_EQ(day.addCode(), QRect(472, 8, 814, 656));
    EXPECT_EQ(day.addMessage().topLeft(), QPoint(8, 320)) << "below the buttons, not over the code";
    day.obstacles.pop_back();
    const WindowSize panel = {{800, 480}, {500, 300}};
    EXPECT_EQ(day.add(WindowRole::GamePanel, Obstacle::Other, panel), QRect(8, 304 + 16, 800, 440))
        << "rather over the code than small";
    day.obstacles.pop_back();
    EXPECT_EQ(day.addSpy(), QRect(8, 320, 456, 440)) << "rather small than over the code";
    day.remove(Obstacle::CodeEditor);
    EXPECT_EQ(day.addGame().topLeft(), QPoint(472, 8));
}

TEST(WindowPlacement, StaysInReachOnAScreenThatIsTooSmall)
{
    Day day({640, 480}, 1, 1.5);
    const QRect game = day.addGame();
    EXPECT_FALSE(game.intersects(day.runButtons));
    EXPECT_FALSE(day.addSpy().intersects(day.runButtons));
}

} // namespace
