// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/ZBLDebugExp.h"

bool ZBLDebugExp::Parse(const ParseInput& /*input*/, int line, Words /*words*/)
{
    m_line = line;
    return true;
}
