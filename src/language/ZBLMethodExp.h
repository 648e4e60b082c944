// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBLStatement.h"

/// An action statement: a word and the operands that its row in the vocabulary asks for.
class ZBLMethodExp final : public ZBLStatement
{
public:
    explicit ZBLMethodExp(const ActionForm& form)
        : ZBLStatement(Type::Action)
        , m_form(form)
    {
    }
    bool Parse(const ParseInput& input, int line, Words words);
    std::string toString() const;

    std::string_view methodName() const { return wordFor(m_form.action); }
    Action action() const { return m_form.action; }
    Operands operands() const { return m_form.operands; }
    const ZBLObjectExp& object() const { return m_object; }
    const ZBLObjectExp& otherObject() const { return m_otherObject; }
    // Each of these asks for an action whose operands have it.
    const ZBLSimpleExp& value() const { return m_values[0]; }
    const ZBLSimpleExp& valueY() const { return m_values[1]; }
    const ZBLSimpleExp& valueZ() const { return m_values[2]; }

private:
    bool parsePlace(const ParseInput& input, Words& words);
    bool parseGame(const ParseInput& input, Words& words);
    // What is said of a missing word has a "%" for the action word.
    bool parseObject(const ParseInput& input, std::string_view word, std::string_view missing,
                     ZBLObjectExp& object) const;
    bool parseSprite(const ParseInput& input, std::string_view word, std::string_view missing);
    bool parseValue(const ParseInput& input, std::string_view word, std::string_view missing);
    bool parseValue(const ParseInput& input, std::string_view word, std::string_view missing,
                    ZBLSimpleExp& value) const;
    bool failMissing(const ParseInput& input, std::string_view place, std::string_view missing) const;

    ActionForm m_form;
    ZBLObjectExp m_object;
    ZBLObjectExp m_otherObject;
    const ZBLSimpleExp* m_values = nullptr; ///< as many as the form asks for
};
