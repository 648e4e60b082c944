// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "runtime/Outcomes.h"
#include "runtime/RunState.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The faults of a run that are still to be told. The first is the cause; what a statement adds behind it
/// says what it could not do for that reason.
class FaultList
{
public:
    explicit FaultList(RunState& run)
        : m_run(run)
    {
    }

    /// Puts a fault on the list. It ends the run: what is left of the frame finds it reset.
    Outcome fail(std::string_view message, int line)
    {
        m_faults.push_back({std::string(message), line});
        m_run.reset();
        return Outcome::Told;
    }
    bool isEmpty() const { return m_faults.empty(); }
    std::vector<RuntimeFault> take() { return std::exchange(m_faults, {}); }

private:
    RunState& m_run;
    std::vector<RuntimeFault> m_faults;
};
