// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/time/PinWatch.h"

#include "play/time/TimeMachine.h"
#include "recording/PlaySums.h"

#include <QElapsedTimer>

#include <algorithm>
#include <utility>

namespace
{

using namespace Qt::StringLiterals;

// In milliseconds.
constexpr int slice = 4;
constexpr int pauseFor = 9; // times as long as a slice took, while the game runs

} // namespace

PinWatch::PinWatch(TimeMachine& machine, PlayKeeper& keeper)
    : m_machine(machine)
    , m_keeper(keeper)
{
    m_work.setObjectName(u"PinTimer"_s);
    m_work.setSingleShot(true);
    m_work.callOnTimeout(this, &PinWatch::workOn);
}

void PinWatch::begin(const std::string& program)
{
    std::vector<PlayKeeper::Entry> pinned = m_keeper.list();
    std::erase_if(pinned, [](const PlayKeeper::Entry& entry) { return !entry.isPinned; });
    Sum watched;
    if (!pinned.empty())
        watched.add(programSum(LineArray(program)));
    for (const PlayKeeper::Entry& entry : pinned)
        watched.add(entry.file);
    if (watched.value() == m_watched)
        return;
    m_watched = watched.value();
    m_program = program;
    m_plays = std::move(pinned);
    m_next = 0;
    m_played = 0;
    m_trial.reset();
    m_differences.clear();
    m_work.start(0);
    Q_EMIT changed();
}

void PinWatch::forget(const std::string& file)
{
    m_watched = 0;
    std::erase_if(m_differences, [&](const Difference& each) { return each.file == file; });
    if (isOver()) {
        std::erase_if(m_plays, [&](const PlayKeeper::Entry& each) { return each.file == file; });
        m_next = m_plays.size();
        m_played = m_next;
    }
    Q_EMIT changed();
}

void PinWatch::workOn()
{
    QElapsedTimer time;
    time.start();
    if (!m_trial)
        startNext();
    else if (!m_trial->playFor(slice) || !m_trial->verdict().goesTheSame())
        judge();
    if (!isOver())
        m_work.start(m_machine.isRunning() ? static_cast<int>(time.elapsed() + 1) * pauseFor : 0);
}

void PinWatch::startNext()
{
    if (m_next == m_plays.size())
        return;
    const PlayKeeper::Entry& entry = m_plays[m_next++];
    std::string fault;
    auto play = m_keeper.read(entry.file, fault);
    if (play)
        m_trial = PlayTrial::start(
            std::move(*play), {m_keeper.installation(), m_keeper.folder(), m_machine.pictures(), m_program},
            fault);
    if (m_trial)
        return;
    ++m_played;
    m_differences.push_back({entry.file, entry.name, fault, 0});
    Q_EMIT changed();
}

void PinWatch::judge()
{
    const PlayVerdict& verdict = m_trial->verdict();
    const PlayKeeper::Entry& entry = m_plays[m_next - 1];
    if (!verdict.goesTheSame())
        m_differences.push_back({entry.file, entry.name, verdict.difference() + ".",
                                 verdict.otherFrame > 0 ? verdict.otherFrame : verdict.mistakeFrame});
    m_trial.reset();
    ++m_played;
    Q_EMIT changed();
}

std::string PinWatch::summary() const
{
    const std::string all = std::to_string(m_plays.size());
    if (m_plays.empty())
        return {};
    if (!isOver())
        return "I am playing the pinned plays: " + std::to_string(m_played) + " of " + all + " done.";
    if (m_differences.empty())
        return m_plays.size() == 1 ? "The pinned play still goes the same."
                                   : "All " + all + " pinned plays still go the same.";
    if (m_plays.size() == 1)
        return "The pinned play goes another way now.";
    return std::to_string(m_differences.size()) + " of " + all + " pinned plays " +
           (m_differences.size() == 1 ? "goes" : "go") + " another way now.";
}
