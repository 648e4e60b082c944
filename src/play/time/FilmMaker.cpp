// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/time/FilmMaker.h"

#include <QElapsedTimer>

#include <algorithm>

FilmMaker::FilmMaker(const Recording& run, PictureReader& pictures, Moment until)
    : m_run(run.copy())
    , m_replay(*m_run, pictures)
    , m_until(std::min(until.frame, run.frames()))
    , m_first(std::max(m_until - length + 1, std::min<std::int64_t>(m_until, 1)))
    , m_next(m_first)
{
}

bool FilmMaker::filmFor(std::int64_t milliseconds)
{
    QElapsedTimer time;
    time.start();
    bool hasMore = true;
    while (hasMore && time.elapsed() < milliseconds)
        hasMore = addFrame();
    return hasMore;
}

bool FilmMaker::addFrame()
{
    if (m_next > m_until || !m_replay.seek({m_next, 0}))
        return false;
    m_film.add(m_replay.picture());
    return ++m_next <= m_until;
}

int FilmMaker::percent() const
{
    return static_cast<int>((m_next - m_first) * 100 / std::max<std::int64_t>(m_until - m_first + 1, 1));
}
