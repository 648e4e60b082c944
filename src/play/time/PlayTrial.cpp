// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/time/PlayTrial.h"

#include <QElapsedTimer>

#include <algorithm>

namespace
{

constexpr std::int64_t framesAtOnce = 10;

/// Remembers the line of the first mistake.
class LineOfMistake : public ParseReporter
{
public:
    int line() const { return m_line; }

private:
    void parseError(const ParseFault& fault) override
    {
        if (m_line == 0)
            m_line = fault.line;
    }
    void beep() override {}

    int m_line = 0;
};

} // namespace

std::unique_ptr<PlayTrial> PlayTrial::start(PlayFile play, const Game& game, std::string& fault)
{
    std::unique_ptr<PlayTrial> trial(new PlayTrial(std::move(play)));
    LineOfMistake mistake;
    const auto start =
        startPlay(trial->m_play, game.program, game.files, game.folder, game.pictures, mistake);
    if (!start) {
        fault = mistake.line() > 0
                    ? "The program has a mistake in line " + std::to_string(mistake.line()) + "."
                    : "There is not enough memory for it.";
        return nullptr;
    }
    trial->m_check.emplace(trial->m_play, *start, game.pictures);
    return trial;
}

std::shared_ptr<Recording> PlayTrial::record()
{
    m_recording = std::make_shared<Recording>();
    m_check->record(*m_recording);
    return m_recording;
}

bool PlayTrial::playFor(std::int64_t milliseconds)
{
    QElapsedTimer time;
    time.start();
    bool hasMore = true;
    while (hasMore && time.elapsed() < milliseconds)
        hasMore = m_check->play(framesAtOnce);
    return hasMore;
}

int PlayTrial::percent()
{
    const std::int64_t frames = std::max<std::int64_t>(m_play.frames, 1);
    return static_cast<int>(std::min<std::int64_t>(m_check->run().state().tick * 100 / frames, 100));
}
