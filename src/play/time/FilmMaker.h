// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/pictures/FilmFile.h"
#include "recording/Replay.h"

#include <cstdint>
#include <memory>
#include <string>

/// Films the ten seconds of a run before a moment, a frame at a time. The run may go on, or end, meanwhile.
class FilmMaker
{
public:
    static constexpr std::int64_t length = 300; ///< frames

    FilmMaker(const Recording& run, PictureReader& pictures, Moment until);

    /// Films for about so many milliseconds. False when all is filmed.
    bool filmFor(std::int64_t milliseconds);
    int percent() const;
    /// The bytes of the file; empty where there was no memory for it.
    std::string finish() { return m_film.finish(); }

private:
    bool addFrame();

    std::shared_ptr<const Recording> m_run;
    Replay m_replay;
    FilmFile m_film;
    std::int64_t m_until;
    std::int64_t m_first;
    std::int64_t m_next;
};
