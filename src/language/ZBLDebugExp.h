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
    bool Parse(const ZBLReader& reader, int line) override;
    std::string toString() const override { return "pause"; }
};
