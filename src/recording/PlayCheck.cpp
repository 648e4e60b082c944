// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "recording/PlayCheck.h"

#include "recording/Onlooker.h"

#include "recording/StateSum.h"

#include <algorithm>
#include <map>
#include <utility>

namespace
{

std::uint64_t sumOf(std::string_view bytes)
{
    Sum sum;
    sum.add(bytes);
    return sum.value();
}

/// What the run has read, and what it did not find.
std::vector<PlayedFile> filesOf(const RunFiles& files)
{
    std::map<std::string, std::optional<std::uint64_t>> sums;
    for (const auto& [path, bytes] : files.contents())
        sums[path] = bytes ? std::optional(sumOf(*bytes)) : std::nullopt;
    for (const auto& [path, isThere] : files.lookedFor())
        if (!isThere)
            sums[path] = std::nullopt;
    const std::size_t folder = files.folder().size();
    std::vector<PlayedFile> played;
    played.reserve(sums.size());
    for (const auto& [path, sum] : sums)
        played.push_back({path.substr(std::min(folder, path.size())), sum});
    return played;
}

/// Finds the line that a difference in one frame comes from: the first changed line that runs in it, else the
/// changed line that ran last before it, else the first changed one (a statement that should have run, say).
class LineFinder : public Onlooker
{
public:
    explicit LineFinder(std::vector<int> changed)
        : m_changed(std::move(changed))
        , m_line(m_changed.empty() ? 0 : m_changed.front())
    {
    }
    void beginLastFrame() { m_isInLastFrame = true; }
    int line() const { return m_line; }

private:
    void statement(int line) override
    {
        if (m_isFound || !std::ranges::binary_search(m_changed, line))
            return;
        m_line = line;
        m_isFound = m_isInLastFrame;
    }
    std::vector<int> m_changed;
    int m_line;
    bool m_isInLastFrame = false;
    bool m_isFound = false;
};

std::string behindLine(const RuntimeFault& mistake)
{
    return mistake.message + " (line " + std::to_string(mistake.line) + ")";
}

} // namespace

std::optional<PlayFile> keepPlay(const Recording& recording, PictureReader& pictures, PlayLabel label)
{
    if (recording.isEmpty() || recording.frames() > PlayFile::mostFrames ||
        recording.inputs().size() > PlayFile::mostKeys)
        return std::nullopt;
    const RunState& beginning = recording.beginning();
    PlayFile play;
    play.label = std::move(label);
    play.seed = recording.seed();
    play.programSum = programSum(*beginning.lines);
    play.lineSums = lineSums(*beginning.lines);
    play.files = filesOf(*recording.files());
    play.variables = variableNames(*beginning.program);
    play.sums.push_back(stateSum(beginning));

    PlayedRun run(beginning, recording.files(), recording.inputs(), pictures);
    PlayWay way(*beginning.program, play.variables);
    const std::int64_t last = recording.frames() + (recording.isBroken() ? 1 : 0);
    while (play.frames < last && run.playFrame()) {
        play.way += way.next(run.state());
        if (++play.frames % PlayFile::stretch == 0 || play.frames == recording.frames())
            play.sums.push_back(stateSum(run.state()));
    }
    if (play.frames != recording.frames()) // there was not enough memory for it this time
        return std::nullopt;
    const std::int64_t lastTick = play.frames + (run.faults().empty() ? 0 : 1);
    for (const KeyInput& key : recording.inputs())
        if (key.time.tick <= lastTick)
            play.keys.push_back(key);
    if (!run.faults().empty())
        play.mistake = run.faults().front();
    return playText(play).size() <= PlayFile::mostBytes ? std::optional(std::move(play)) : std::nullopt;
}

std::optional<PlayStart> startPlay(const PlayFile& play, std::string text, const FileSource& files,
                                   const std::string& path, PictureReader& pictures, ParseReporter& reporter)
{
    QuietScreen screen;
    QuietSpy spy;
    ZBContext context(files, pictures, screen, spy);
    context.Reset();
    if (context.Parse(std::move(text), reporter) != Outcome::Done)
        return std::nullopt;
    context.Start(path, play.seed);
    return PlayStart{context.state(), context.runFiles()};
}

// The verdict.

std::string PlayVerdict::difference() const
{
    std::string text;
    if (otherFrame > 0) {
        text = "From frame " + std::to_string(otherFrame) + " on this play goes another way";
        if (line > 0)
            text += " (line " + std::to_string(line) + ")";
        if (otherMistake)
            text += ", and ";
    }
    if (otherMistake)
        text += (text.empty() ? "In frame " : "in frame ") + std::to_string(mistakeFrame) +
                " it ends with a mistake: " + behindLine(*otherMistake);
    else if (missedMistake && text.empty())
        text = "It does not end with its mistake any more: " + behindLine(*missedMistake);
    return text;
}

std::vector<std::string> PlayVerdict::sentences() const
{
    std::vector<std::string> all;
    if (isProgramChanged)
        all.emplace_back("The program has changed since this play was kept.");
    all.insert(all.end(), files.begin(), files.end());
    if (!goesTheSame())
        all.push_back(difference() + '.');
    else if (otherState > 0)
        all.push_back("By frame " + std::to_string(otherState) + " something differs that cannot be seen.");
    else if (!all.empty())
        all.emplace_back("This play still goes the same.");
    return all;
}

// The comparison.

PlayCheck::PlayCheck(const PlayFile& play, const PlayStart& start, PictureReader& pictures)
    : m_play(play)
    , m_start(start)
    , m_pictures(pictures)
    , m_run(start.beginning, start.files, play.keys, pictures)
    , m_way(*start.beginning.program, play.variables)
{
    m_verdict.isProgramChanged = programSum(*start.beginning.lines) != play.programSum;
    std::ranges::for_each(play.files, [this](const PlayedFile& file) { compareFile(file); });
    remember();
}

void PlayCheck::compareFile(const PlayedFile& file)
{
    const auto bytes = m_start.files->readBytes(m_start.files->folder() + file.name);
    if (!bytes && file.sum)
        m_verdict.files.push_back("The file " + file.name + " is gone.");
    else if (bytes && !file.sum)
        m_verdict.files.push_back("The file " + file.name + " was not there when this play was kept.");
    else if (bytes && sumOf(*bytes) != file.sum)
        m_verdict.files.push_back("The file " + file.name + " has changed since this play was kept.");
}

void PlayCheck::record(Recording& recording)
{
    m_recording = &recording;
    recording.begin(m_start.beginning, m_start.files, m_play.seed);
    recording.setPlayed(m_play.keys, m_play.frames, false);
}

bool PlayCheck::isOver() const
{
    const std::int64_t last = m_play.frames + (m_play.mistake ? 1 : 0);
    return m_isOver || m_frames >= std::min(last, m_until);
}

bool PlayCheck::play(std::int64_t frames)
{
    for (; frames > 0 && !isOver(); --frames)
        playFrame();
    if (isOver())
        end();
    return !isOver();
}

void PlayCheck::playFrame()
{
    if (!m_run.playFrame()) {
        m_isOver = true;
        compareMistakes(m_run.faults().front());
        return;
    }
    ++m_frames;
    if (m_frames <= m_play.frames)
        compareFrame();
    else
        compareMistakes(std::nullopt);
    if (m_recording)
        m_recording->passes(m_run.state());
}

void PlayCheck::compareFrame()
{
    const bool isSameWay = m_way.next(m_run.state()) == m_play.way[static_cast<std::size_t>(m_frames - 1)];
    if (!isSameWay && m_verdict.otherFrame == 0)
        goesAnotherWay(m_frames);
    if (m_frames % PlayFile::stretch != 0 && m_frames != m_play.frames)
        return;
    const std::uint64_t sum = m_play.sums[PlayFile::sumsOf(m_frames) - 1];
    if (!m_verdict.isProgramChanged && m_verdict.otherState == 0 && stateSum(m_run.state()) != sum)
        m_verdict.otherState = m_frames;
    remember();
}

void PlayCheck::remember()
{
    if (m_verdict.otherFrame == 0)
        m_lastState = std::make_shared<const RunState>(m_run.state());
}

/// The same mistake may have moved with its line.
void PlayCheck::compareMistakes(const std::optional<RuntimeFault>& found)
{
    const auto& kept = m_play.mistake;
    const bool isSame = found && kept && m_frames == m_play.frames && found->message == kept->message &&
                        (m_verdict.isProgramChanged || found->line == kept->line);
    if (isSame)
        return;
    m_verdict.otherMistake = found;
    if (found)
        m_verdict.mistakeFrame = m_frames + 1;
    else
        m_verdict.missedMistake = kept;
}

void PlayCheck::goesAnotherWay(std::int64_t frame)
{
    m_verdict.otherFrame = frame;
    LineFinder finder(changedLines(*m_start.beginning.lines, m_play.lineSums));
    PlayedRun run(*m_lastState, m_start.files, m_play.keys, m_pictures);
    run.setWatcher(&finder);
    while (run.state().tick < frame - 1 && run.playFrame()) {
    }
    finder.beginLastFrame();
    static_cast<void>(run.playFrame());
    m_verdict.line = finder.line();
}

/// The recording learns how far it really went.
void PlayCheck::end()
{
    if (m_recording)
        m_recording->setPlayed(m_play.keys, m_frames, !m_run.faults().empty());
    m_recording = nullptr;
}
