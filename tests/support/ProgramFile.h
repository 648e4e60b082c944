// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "headless/HeadlessPlayer.h"

#include <filesystem>
#include <string>
#include <vector>

/// A program of tests/programs with what is expected of it written into its comments. On the line that causes
/// it:
///     ; ! message          a run-time message
///     ; ? message          a parse message about this line
///     ; ?+4 message        a parse message about this line and the four lines behind it
///     ; > 0005 pause       the trace shows this line, which has run
///     ; >                  this line has run
///     ; -                  this line never runs
/// No other messages may appear. Several expectations on a line are separated by " ; ". On lines of their
/// own:
///     ; = text             the next line of the whole output (trace, messages, dump), which must be just
///     these lines ; frames 5   ; trace frames,events,code   ; dump   ; seed 7   ; key 2 down 37   ; show-map
///     say how to run ; each               every line with a message is a program of its own, the others with
///     one are left out
///                          (an if together with the line behind it)
///     ;;;; title           begins another program, whose lines keep the numbers that they have in the file
struct ProgramFile {
    struct Expectation {
        char mark = ' ';
        int line = 0;
        int lastLine = 0; ///< of a range, or 0
        std::string text;
    };

    std::string title;
    std::string text;
    HeadlessOptions options;
    std::vector<KeyChange> keys;
    std::vector<Expectation> expectations;

    /// All programs of one file.
    static std::vector<ProgramFile> read(const std::filesystem::path& file);
};
