// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBLStatement.h"

/// "pause".
class ZBLDebugExp final : public ZBLStatement
{
public:
    ZBLDebugExp()
        : ZBLStatement(Type::Pause)
    {
    }
    bool Parse(const ParseInput& input, int line, Words words);
};
