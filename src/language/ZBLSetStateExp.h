// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBLStatement.h"

/// "setstate STATE".
class ZBLSetStateExp final : public ZBLStatement
{
public:
    ZBLSetStateExp()
        : ZBLStatement(Type::SetState)
    {
    }
    bool Parse(const ParseInput& input, int line, Words words);
    std::string toString() const { return "setstate " + *m_stateName; }

    Text stateName() const { return m_stateName; }

private:
    Text m_stateName = nullptr;
};
