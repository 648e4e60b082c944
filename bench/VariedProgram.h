// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

/// A program such as children write, the same each time, and Lua's statements for it, line by line: classes
/// with event blocks of variables, nested choices, actions, creations, notes and empty lines, about 300 names
/// in all.
struct VariedProgram {
    std::string zorbino;
    std::string lua; ///< each block a function, for a function of Lua's is not as long as a program
};

/// `lines` is met but for what the last block lacks to its end.
VariedProgram variedProgram(int lines);
