// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QRect>
#include <QSize>

#include <span>

// Where windows open: sizes in, places out. All sizes and places include what the desktop puts around a
// window.
namespace forms
{

/// What the desktop puts above a window, about: it tells only once the window is there.
constexpr int titleBarHeight = 36;

/// The room that windows leave between each other where there is enough.
constexpr int windowGap = 8;

/// What a window is, which decides what it may cover.
enum class WindowRole {
    GameEditor,
    CodeEditor,
    GameWindow,
    SpyWindow,
    TimeWindow,
    ParseError,
    GamePanel, ///< properties and resources
    Workshop   ///< sprite and map editor
};

/// What is on the screen already.
enum class Obstacle {
    RunButtons, ///< with the title bar above them: never covered
    CursorLine, ///< of the code editor: never covered by the message about it
    GameEditor,
    CodeEditor,
    GameWindow,
    SpyWindow,
    Other
};

struct ObstacleArea {
    Obstacle obstacle;
    QRect area;
};

struct WindowSize {
    QSize wanted;
    QSize smallest; ///< the same for a window that has only one size
};

/// The place where a new window does the least harm. A window rather shrinks than covers what is in use, and
/// opens beside or below the others as its role has it.
QRect placeOfWindow(WindowRole role, const WindowSize& size, const QRect& screen,
                    std::span<const ObstacleArea> obstacles);

/// Whether two windows of these widths fit beside each other.
bool fitBeside(int width, int otherWidth, const QRect& screen);

} // namespace forms
