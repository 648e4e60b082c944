// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "headless/HeadlessPlayer.h"
#include "headless/QuietPorts.h"
#include "platform/PictureReader.h"
#include "runtime/ZBContext.h"

#include <cstddef>
#include <memory>
#include <vector>

/// A run whose keys are known, played frame by frame from a state between two frames.
class PlayedRun : private QuietScreen, private QuietSpy
{
public:
    /// `keys` in the order of their times; they outlive the run. Those before `state` have counted.
    PlayedRun(const RunState& state, const std::shared_ptr<RunFiles>& files,
              const std::vector<KeyInput>& keys, PictureReader& pictures);

    /// False: a mistake has ended the run (see faults), and its state is gone.
    bool playFrame();
    const RunState& state() const { return m_context.state(); }
    /// The first is the cause.
    const std::vector<RuntimeFault>& faults() const { return m_faults; }

    /// Draws each frame from now on.
    void setDraws() { m_draws = true; }
    const Surface& picture() const { return m_context.display(); }
    /// Writes the history from now on.
    void setHistory(LineOutput output, const TraceBoxes& boxes);
    void setWatcher(RunWatcher* watcher) { m_context.trace().setWatcher(watcher); }

private:
    bool wantsFrames() const override { return m_draws; }
    void addHistoryLine(std::string_view line) override;
    void handOnKeys();

    ZBContext m_context;
    const std::vector<KeyInput>& m_keys;
    std::size_t m_nextKey = 0;
    bool m_waits = false; ///< keys came while statements of this frame waited, so they have to wait again
    bool m_draws = false;
    LineOutput m_output;
    std::vector<RuntimeFault> m_faults;
};
