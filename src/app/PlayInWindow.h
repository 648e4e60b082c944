// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

// zbl is linked without the toolkit, so that reading and running a game do not wait for its libraries; this
// is the part that is loaded only when a game is to be seen.

/// How a game in its window came to its end.
enum class Ending { Closed, Unreadable, ParseError, RuntimeError };

/// Plays the game in the folder `game` in its window, until that is closed. Makes the application object.
extern "C" Ending zblPlayInWindow(int* argc, char** argv, const char* game);
using PlayInWindow = decltype(&zblPlayInWindow);
