// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "recording/Replay.h"
#include "runtime/Evaluator.h"

#include <cstddef>
#include <string>
#include <vector>

/// Says of a statement that is about to run what its values are: of an if whether it will hold, of one that
/// will end its block without a word what it misses. It works on a copy, so that the run stays as it is.
class Explainer
{
public:
    Explainer();

    /// Nothing where there is nothing to say.
    std::string explain(const RunState& run, const ZBLStatement& statement);

private:
    void lookAt(const RunState& run);
    std::string explainIf(const ZBLIfExp& statement);
    /// What stops the statement at the first of these that it cannot have.
    std::string missing(const ZBLSimpleExp& operand, int line);
    std::string whatLacks(const ZBLSimpleExp& operand, int line);

    RunState m_copy; ///< what operands ask, nothing else
    FaultList m_faults;
    Evaluator m_evaluator;
};

/// A statement that was announced, and what is to be told of it.
struct Explained {
    int line = 0;
    std::string text; ///< often empty
};

/// The last statements up to a moment, at most so many, in the order in which they were announced: that of
/// their lines in the history. Looks at some hundred frames before the moment where they have few statements.
/// The replay stands at the moment then.
std::vector<Explained> explain(Replay& replay, Moment upTo,
                               std::size_t lastStatements = Replay::historyLimit);
