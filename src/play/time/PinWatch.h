// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "play/time/PlayKeeper.h"
#include "play/time/PlayTrial.h"

#include <QObject>
#include <QTimer>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class TimeMachine;

/// Plays the pinned plays of a game once more when its program has changed, without a picture and in small
/// pieces: while the game runs they take a tenth of the time. Knows which of them go another way now.
class PinWatch : public QObject
{
    Q_OBJECT
public:
    struct Difference {
        std::string file;
        std::string name;
        std::string text;       ///< what is other than it was
        std::int64_t frame = 0; ///< from which on; 0 where that is not known
    };

    PinWatch(TimeMachine& machine, PlayKeeper& keeper);

    /// This program is about to run. Where it, or what is pinned, differs from the last time, all pinned
    /// plays are played anew.
    void begin(const std::string& program);
    /// One of the plays has been changed, or is gone: the next run plays them anew.
    void forget(const std::string& file);

    /// "All 3 pinned plays still go the same."; empty where there is nothing to say.
    std::string summary() const;
    bool isOver() const { return m_next == m_plays.size() && !m_trial; }
    const std::vector<Difference>& differences() const { return m_differences; }

Q_SIGNALS:
    /// The summary is another.
    void changed();

private:
    void workOn();
    void startNext();
    void judge();

    TimeMachine& m_machine;
    PlayKeeper& m_keeper;
    std::string m_program;
    std::vector<PlayKeeper::Entry> m_plays; ///< that are pinned
    std::size_t m_next = 0;                 ///< of them
    std::unique_ptr<PlayTrial> m_trial;     ///< the one before the next
    std::size_t m_played = 0;
    std::vector<Difference> m_differences;
    std::uint64_t m_watched = 0; ///< sum of what was watched last
    QTimer m_work;
};
