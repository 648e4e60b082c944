#pragma once

#include "language/StatementWords.h"

#include <array>
#include <memory>

/// An action statement: a word and the operands that its row in the table of action words asks for.
class ZBLMethodExp final : public ZBLStatement
{
public:
    ZBLMethodExp()
        : ZBLStatement(Type::Action)
    {
    }
    bool Parse(const ZBLReader& reader, int line) override;
    std::string toString() const override;

    std::string_view methodName() const { return m_word->word; }
    Action action() const { return m_word->action; }
    Operands operands() const { return m_word->operands; }
    const ZBLObjectExp& object() const { return m_object; }
    const ZBLObjectExp& otherObject() const { return m_otherObject; }
    const ZBLSimpleExp& value() const { return m_value; }
    const ZBLSimpleExp& valueY() const { return (*m_yz)[0]; }
    const ZBLSimpleExp& valueZ() const { return (*m_yz)[1]; }

private:
    bool parseObject(const ZBLReader& reader, Words& words, const std::string& missing,
                     ZBLObjectExp& object) const;
    bool parseSprite(const ZBLReader& reader, Words& words, const std::string& missing);
    bool parseValue(const ZBLReader& reader, Words& words, const std::string& missing,
                    ZBLSimpleExp& value) const;

    const ActionWord* m_word = nullptr;
    ZBLObjectExp m_object;
    ZBLObjectExp m_otherObject;
    ZBLSimpleExp m_value;
    /// Only the two statements that take a place have them.
    std::unique_ptr<std::array<ZBLSimpleExp, 2>> m_yz;
};
