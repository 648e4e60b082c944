// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/ZBLSetStateExp.h"

bool ZBLSetStateExp::Parse(const ParseInput& input, int line, Words words)
{
    m_line = line;
    const std::string_view state = words.next();
    if (state.empty())
        return input.fail("This setstate instruction doesn't say what state to go to!", line, state);
    m_stateName = input.pool.intern(state);
    return true;
}
