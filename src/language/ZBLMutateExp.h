#pragma once

#include "language/ZBLStatement.h"

/// "set VARIABLE VALUE" and "change VARIABLE AMOUNT".
class ZBLMutateExp final : public ZBLStatement
{
public:
    enum class Verb : std::uint8_t { Set, Change };

    ZBLMutateExp()
        : ZBLStatement(Type::Mutate)
    {
    }
    bool Parse(const ZBLReader& reader, int line) override;
    std::string toString() const override;

    Verb verb() const { return m_verb; }
    const ZBLVarExp& target() const { return m_target; }
    const ZBLSimpleExp& value() const { return m_value; }

private:
    Verb m_verb = Verb::Set;
    ZBLVarExp m_target;
    ZBLSimpleExp m_value;
};
