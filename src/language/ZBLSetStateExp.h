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
    bool Parse(const ZBLReader& reader, int line) override;
    std::string toString() const override { return "setstate " + *m_stateName; }

    Text stateName() const { return m_stateName; }

private:
    Text m_stateName = nullptr;
};
