// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBLStatement.h"

#include <array>

/// "create CLASS TAG SPRITE-GRAPHIC DIRECTION SPEED X Y Z".
class ZBLCreateExp final : public ZBLStatement
{
public:
    enum Operand : std::uint8_t { Class, Tag, Graphic, Direction, Speed, X, Y, Z };

    ZBLCreateExp()
        : ZBLStatement(Type::Create)
    {
    }
    bool Parse(const ParseInput& input, int line, Words words);
    std::string toString() const;

    const ZBLSimpleExp& operand(Operand which) const { return m_operands[which]; }

private:
    std::array<ZBLSimpleExp, 8> m_operands;
};
