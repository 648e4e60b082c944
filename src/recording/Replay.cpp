// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "recording/Replay.h"

#include <algorithm>
#include <iterator>

namespace
{

constexpr std::int32_t noStatement = 0;

} // namespace

Replay::Replay(const Recording& recording, PictureReader& pictures)
    : m_recording(recording)
    , m_context(*recording.files(), pictures, *this, *this)
{
    m_context.trace().setOn(true);
}

// The way to a moment.

void Replay::restore(const Recording::Keyframe& keyframe)
{
    m_context.useFiles(m_recording.files());
    m_context.restore(*keyframe.state);
    m_version = m_recording.version();
    m_inputs = keyframe.inputs;
    m_isPictureThere = false;
    m_isValid = true;
}

/// Those of one tick at a time, for a run moves all that it has of them whenever one counts. The recording
/// may have got more since the last call.
void Replay::handOnInputs(std::int64_t tick)
{
    const std::vector<KeyInput>& all = m_recording.inputs();
    const std::size_t first = m_inputs;
    while (m_inputs < all.size() && all[m_inputs].time.tick <= tick)
        ++m_inputs;
    if (m_inputs > first)
        m_context.addInputs({all.begin() + static_cast<std::ptrdiff_t>(first),
                             all.begin() + static_cast<std::ptrdiff_t>(m_inputs)});
}

/// Keys came while statements of that frame waited, so its statements have to wait for them again.
bool Replay::hasInputsWithin(std::int64_t tick) const
{
    const auto& all = m_recording.inputs();
    const InputTime begin{.tick = tick};
    const auto first = std::ranges::upper_bound(all, begin, {}, &KeyInput::time);
    return first != all.end() && first->time.tick == tick;
}

Progress Replay::beginFrame(bool inSteps)
{
    handOnInputs(state().tick + 1);
    m_isPictureThere = false;
    m_context.statements().setStepMode(inSteps);
    const Progress progress = m_context.Quantum();
    m_isValid = progress != Progress::Told;
    return progress;
}

Progress Replay::goOn()
{
    handOnInputs(state().tick);
    const Progress progress = m_context.advance();
    m_isValid = progress != Progress::Told;
    return progress;
}

bool Replay::playFrame()
{
    Progress progress = beginFrame(hasInputsWithin(state().tick + 1));
    while (progress == Progress::Waiting)
        progress = goOn();
    return m_isValid;
}

/// To the end of a frame that the recording has.
void Replay::startAt(std::int64_t frame)
{
    const Recording::Keyframe& keyframe = m_recording.keyframeBefore(frame);
    const bool isOnTheWay = isAtFrame() && m_version == m_recording.version() && state().tick <= frame &&
                            state().tick >= keyframe.state->tick;
    if (!isOnTheWay)
        restore(keyframe);
    while (m_isValid && state().tick < frame)
        static_cast<void>(playFrame());
}

/// From a frame before it, without a keyframe in between: all that happens on the way is seen.
void Replay::playOnTo(Moment moment)
{
    while (m_isValid && state().tick < moment.frame)
        static_cast<void>(playFrame());
    m_moment = {state().tick, noStatement};
    if (moment.statement == noStatement || !m_isValid)
        return;
    Progress progress = beginFrame(true);
    for (m_moment.statement = 1; progress == Progress::Waiting && m_moment.statement < moment.statement;
         ++m_moment.statement)
        progress = goOn();
    if (progress != Progress::Waiting) // the frame has no more of them
        m_moment = {state().tick, noStatement};
}

/// The statements of the frame behind so many whole ones, up to its end, its mistake or the one that waits at
/// `until`.
std::int32_t Replay::countStatements(std::int64_t frame, std::optional<InputTime> until)
{
    startAt(frame);
    std::int32_t count = 0;
    for (Progress progress = beginFrame(true); progress == Progress::Waiting; progress = goOn()) {
        ++count;
        if (until && state().now() >= *until)
            break;
    }
    if (m_context.inFrame() || !m_isValid) { // not at a moment that anybody has asked for
        static_cast<void>(m_context.takeFaults());
        m_isValid = false;
    }
    return count;
}

std::int32_t Replay::statementsAfter(std::int64_t frame)
{
    const Moment here = m_moment;
    const std::int32_t count = countStatements(frame, std::nullopt);
    playTo(here);
    return count;
}

Moment Replay::last()
{
    if (m_recording.isEmpty())
        return {};
    const std::int64_t frames = m_recording.frames();
    const auto waits = m_recording.growingAt();
    if (!waits && !m_recording.isBroken())
        return {frames, noStatement};
    const LastFrame frame{m_recording.version(), frames, waits};
    if (m_last.frame != frame) {
        const Moment here = m_moment;
        m_last = {frame, countStatements(frames, waits)};
        playTo(here);
    }
    return {frames, m_last.statements};
}

void Replay::playTo(Moment moment)
{
    startAt(moment.frame);
    playOnTo(moment);
}

bool Replay::seek(Moment moment)
{
    if (m_recording.isEmpty())
        return false;
    moment = std::max(moment, Moment{});
    const std::int64_t frames = m_recording.frames();
    if (moment.frame > frames || (moment.frame == frames && moment.statement != noStatement))
        moment = std::min(moment, last());
    if (m_isValid && m_version == m_recording.version() && m_moment == moment &&
        m_context.inFrame() == (moment.statement != noStatement) &&
        state().tick == moment.frame + (m_context.inFrame() ? 1 : 0))
        return true;
    playTo(moment);
    return true;
}

bool Replay::stepForward()
{
    const Moment from = m_moment;
    if (m_recording.isEmpty() || from >= last())
        return false;
    const bool hasNext = statementsAfter(from.frame) > from.statement;
    return seek(hasNext ? Moment{from.frame, from.statement + 1} : Moment{from.frame + 1, noStatement});
}

bool Replay::stepBack()
{
    const Moment from = m_moment;
    if (m_recording.isEmpty() || from == Moment{})
        return false;
    if (from.statement > noStatement)
        return seek({from.frame, from.statement - 1});
    return seek({from.frame - 1, statementsAfter(from.frame - 1)});
}

int Replay::line() const
{
    return m_moment.statement == noStatement ? 0 : state().currentLine();
}

// What was seen there.

const Surface& Replay::picture()
{
    if (m_isPictureThere || m_recording.isEmpty())
        return m_context.display();
    // A frame begins with the picture that the last one ended with. One that ends early draws nothing, so
    // that the picture may be older.
    const Moment moment = m_moment;
    for (std::int64_t back = 2;; back *= 8) {
        const std::int64_t from = std::max<std::int64_t>(moment.frame - back, 0);
        m_draws = false;
        startAt(from);
        m_context.clearPicture();
        m_hasDrawn = false;
        m_draws = true;
        playOnTo(moment);
        if (m_hasDrawn || from == 0)
            break;
    }
    m_draws = false;
    m_isPictureThere = true;
    return m_context.display();
}

void Replay::setShowMap(bool on)
{
    m_context.setShowMap(on);
    m_isPictureThere = false;
}

void Replay::addHistoryLine(std::string_view line)
{
    if (!m_keepsLines)
        return;
    m_lines.emplace_back(line);
    if (m_lines.size() > historyLimit)
        m_lines.pop_front();
}

Replay::History Replay::history(const TraceBoxes& boxes, std::size_t stretches)
{
    History history;
    if (m_recording.isEmpty())
        return history;
    const Moment moment = m_moment;
    const bool hadPicture = m_isPictureThere;
    const auto& keyframes = m_recording.keyframes();
    std::deque<std::string> lines;
    m_context.trace().setBoxes(boxes);
    m_keepsLines = true;
    Moment end = moment;
    for (;;) {
        const auto after = std::ranges::lower_bound(
            keyframes, end.frame + (end.statement != noStatement ? 1 : 0), {},
            [](const Recording::Keyframe& keyframe) { return keyframe.state->tick; });
        const auto first = after == keyframes.begin() ? after : after - 1;
        m_lines.clear();
        restore(*first);
        playOnTo(end);
        lines.insert(lines.begin(), std::make_move_iterator(m_lines.begin()),
                     std::make_move_iterator(m_lines.end()));
        history.isWhole = first == keyframes.begin();
        if (history.isWhole || lines.size() >= historyLimit || --stretches == 0)
            break;
        end = {first->state->tick, noStatement};
    }
    m_keepsLines = false;
    m_context.trace().setBoxes({});
    if (lines.size() > historyLimit) {
        lines.erase(lines.begin(), lines.end() - historyLimit);
        history.isWhole = false;
    }
    history.lines.assign(std::make_move_iterator(lines.begin()), std::make_move_iterator(lines.end()));
    playTo(moment);
    m_isPictureThere = hadPicture;
    return history;
}

void Replay::watch(std::int64_t from, std::int64_t to, RunWatcher& watcher,
                   const std::function<bool(const RunState&)>& eachFrame)
{
    if (m_recording.isEmpty())
        return;
    startAt(from);
    m_context.trace().setWatcher(&watcher);
    bool goesOn = true;
    while (goesOn && state().tick < std::min(to, m_recording.frames()) && playFrame())
        goesOn = eachFrame(state());
    if (goesOn && to > m_recording.frames() && m_recording.isBroken())
        static_cast<void>(playFrame());
    m_context.trace().setWatcher(nullptr);
    if (m_isValid)
        m_moment = {state().tick, noStatement};
    m_isPictureThere = false;
}

void Replay::watchTo(std::int64_t from, Moment to, RunWatcher& watcher)
{
    if (m_recording.isEmpty())
        return;
    startAt(from);
    m_context.trace().setWatcher(&watcher);
    playOnTo(to);
    m_context.trace().setWatcher(nullptr);
}
