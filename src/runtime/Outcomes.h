// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

/// A mistake that shows while a game runs: what is said of it, and the line of the program that it is about.
struct RuntimeFault {
    std::string message;
    int line = 0;

    bool operator==(const RuntimeFault&) const = default;
};

/// What the execution of a statement came to.
enum class [[nodiscard]] Outcome{
    Done,
    Stopped, ///< its block ends without a word
    Told,    ///< its block ends; the fault is on its list, and nobody needs to say more
};

/// What advancing a run came to.
enum class [[nodiscard]] Progress{
    FrameDone,   ///< the next call begins a frame
    FramePaused, ///< the same; the frame was ended by a pause statement
    Waiting,     ///< a statement has been announced and waits to be released; the next call runs it
    Told,        ///< there are faults to be told (takeFaults); the next call takes the frame to its end
};
