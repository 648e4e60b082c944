// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBLStatement.h"

#include <array>
#include <memory>

/// An action statement: a word and the operands that its row in the vocabulary asks for.
class ZBLMethodExp final : public ZBLStatement
{
public:
    explicit ZBLMethodExp(const ActionForm& form)
        : ZBLStatement(Type::Action)
        , m_form(form)
    {
    }
    bool Parse(const ParseInput& input, int line, Words words) override;
    std::string toString() const override;

    std::string_view methodName() const { return wordFor(m_form.action); }
    Action action() const { return m_form.action; }
    Operands operands() const { return m_form.operands; }
    const ZBLObjectExp& object() const { return m_object; }
    const ZBLObjectExp& otherObject() const { return m_otherObject; }
    const ZBLSimpleExp& value() const { return m_value; }
    const ZBLSimpleExp& valueY() const { return (*m_yz)[0]; }
    const ZBLSimpleExp& valueZ() const { return (*m_yz)[1]; }

private:
    bool parsePlace(const ParseInput& input, Words& words);
    bool parseGame(const ParseInput& input, Words& words);
    // What is said of a missing word has a "%" for the action word.
    bool parseObject(const ParseInput& input, std::string_view word, std::string_view missing,
                     ZBLObjectExp& object) const;
    bool parseSprite(const ParseInput& input, std::string_view word, std::string_view missing);
    bool parseValue(const ParseInput& input, std::string_view word, std::string_view missing,
                    ZBLSimpleExp& value) const;
    bool failMissing(const ParseInput& input, std::string_view place, std::string_view missing) const;

    ActionForm m_form;
    ZBLObjectExp m_object;
    ZBLObjectExp m_otherObject;
    ZBLSimpleExp m_value;
    /// Only the two statements that take a place have them.
    std::unique_ptr<std::array<ZBLSimpleExp, 2>> m_yz;
};
