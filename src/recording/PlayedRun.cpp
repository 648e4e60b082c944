// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "recording/PlayedRun.h"

#include <algorithm>

PlayedRun::PlayedRun(const RunState& state, const std::shared_ptr<RunFiles>& files,
                     const std::vector<KeyInput>& keys, PictureReader& pictures)
    : m_context(*files, pictures, *this, *this)
    , m_keys(keys)
{
    m_context.useFiles(files);
    m_context.restore(state);
    m_context.trace().setOn(true);
    const auto isToCome = [&](const KeyInput& key) { return key.time.tick > state.tick; };
    m_nextKey = static_cast<std::size_t>(std::ranges::find_if(keys, isToCome) - keys.begin());
}

void PlayedRun::setHistory(LineOutput output, const TraceBoxes& boxes)
{
    m_output = std::move(output);
    m_context.trace().setBoxes(boxes);
}

void PlayedRun::addHistoryLine(std::string_view line)
{
    if (m_output)
        m_output(line);
}

/// Those of one frame at a time: the run moves what it has of them whenever one counts.
void PlayedRun::handOnKeys()
{
    std::vector<KeyInput> due;
    m_waits = false;
    for (; m_nextKey < m_keys.size() && m_keys[m_nextKey].time.tick <= state().tick + 1; ++m_nextKey) {
        due.push_back(m_keys[m_nextKey]);
        m_waits = m_waits || due.back().time.block > 0;
    }
    if (!due.empty())
        m_context.addInputs(due);
}

bool PlayedRun::playFrame()
{
    handOnKeys();
    m_context.statements().setStepMode(m_waits);
    Progress progress = m_context.Quantum();
    while (progress == Progress::Waiting)
        progress = m_context.advance();
    for (; progress == Progress::Told; progress = m_context.advance())
        for (RuntimeFault& fault : m_context.takeFaults())
            m_faults.push_back(std::move(fault));
    return m_faults.empty();
}
