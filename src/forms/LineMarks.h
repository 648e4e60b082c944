// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// How a run went through one line of its program.
struct LineMark {
    enum class Life {
        None,      ///< nothing that could run
        RanNow,    ///< in the last frame
        RanBefore, ///< in this run, but not in the last frame
        NeverRan,  ///< not in this run so far
        CannotRun, ///< outside the innermost blocks, or behind what the language ignores
    };

    Life life = Life::None;
    QString tip; ///< plain text; empty: there is nothing to say
};
