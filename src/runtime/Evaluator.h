// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBLIfExp.h"
#include "language/ZBLSimpleExp.h"
#include "runtime/FaultList.h"

#include <cmath>
#include <limits>
#include <string>

/// Neither too big nor unset: variables that have not been set hold no number, so this one test finds both.
inline bool isUsable(double number)
{
    return std::abs(number) <= std::numeric_limits<double>::max();
}

/// The values of operands as the run stands.
class Evaluator
{
public:
    Evaluator(RunState& run, FaultList& faults);

    /// `value` is filled where the outcome is Done.
    Outcome evaluate(const ZBLSimpleExp& operand, ZBLValueExp& value, int line);
    Outcome compare(const ZBLValueExp& left, const ZBLValueExp& right, ZBLIfExp::Operator op, int line,
                    bool& result);
    /// The text of a value as in a program, and without its quotes.
    std::string valueText(const ZBLValueExp& value);
    std::string basicText(const ZBLValueExp& value);
    /// The sprite that ME, or IT, stands for; null where there is none, and nothing is told.
    ZBSprite* bound(bool isIt)
    {
        if (!(isIt ? m_run.itValid : m_run.meValid))
            return nullptr;
        std::optional<ZBSprite>& detached = isIt ? m_run.detachedIt : m_run.detachedMe;
        return detached ? &*detached : &m_run.sprites[static_cast<std::size_t>(isIt ? m_run.it : m_run.me)];
    }
    /// A random number between two, whichever is the lower: a whole one where both are.
    double draw(double one, double other);
    /// The sprite that ME or IT stands for; null where that has been told to be none.
    ZBSprite* resolve(const ZBLObjectExp& object, int line);

private:
    Outcome evaluateRandom(const ZBLSimpleExp& operand, ZBLValueExp& value, int line);
    Outcome getVariable(const ZBLVarExp& variable, ZBLValueExp& value) const;
    Outcome getProperty(const ZBLSimpleExp& operand, ZBLValueExp& value, int line);

    RunState& m_run;
    FaultList& m_faults;
};
