// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "recording/RunIndex.h"

#include "language/ZBLMethodExp.h"
#include "language/ZBLMutateExp.h"
#include "recording/RunLook.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

namespace
{

const std::uint64_t unsetCounter = std::bit_cast<std::uint64_t>(std::numeric_limits<double>::quiet_NaN());

std::uint64_t bitsOf(double number)
{
    return std::isnan(number) ? unsetCounter : std::bit_cast<std::uint64_t>(number);
}

std::uint64_t bitsOf(Text text)
{
    return std::bit_cast<std::uintptr_t>(text);
}

ZBLValueExp valueFrom(ValueKind kind, std::uint64_t bits)
{
    if (kind == ValueKind::Counter)
        return bits == unsetCounter ? ZBLValueExp() : ZBLValueExp::counter(std::bit_cast<double>(bits));
    const auto* const text = std::bit_cast<Text>(static_cast<std::uintptr_t>(bits));
    return text ? ZBLValueExp::text(text) : ZBLValueExp();
}

/// The difference of two counters that are whole and near each other.
std::optional<std::int64_t> step(std::uint64_t from, std::uint64_t to)
{
    constexpr double most = 0x1.0p40;
    const double one = std::bit_cast<double>(from);
    const double other = std::bit_cast<double>(to);
    const auto isSmall = [](double number) {
        return std::abs(number) < most && std::floor(number) == number;
    };
    const bool isNegativeZero = other == 0 && std::signbit(other);
    if (!isSmall(one) || !isSmall(other) || isNegativeZero)
        return std::nullopt;
    return static_cast<std::int64_t>(other) - static_cast<std::int64_t>(one);
}

/// Numbers of either sign in few bytes: 0, -1, 1, -2, ...
std::uint64_t folded(std::int64_t number)
{
    return (static_cast<std::uint64_t>(number) << 1U) ^ static_cast<std::uint64_t>(number >> 63);
}

std::int64_t unfolded(std::uint64_t number)
{
    return static_cast<std::int64_t>(number >> 1U) ^ -static_cast<std::int64_t>(number & 1U);
}

// A value behind another one: twice its difference, or 1 and all of its bits.

void addValue(VarintLog& log, bool isCounter, std::uint64_t before, std::uint64_t value)
{
    const auto difference = isCounter ? step(before, value) : std::nullopt;
    log.add(difference ? folded(*difference) << 1U : std::uint64_t{1});
    if (!difference)
        log.add(value);
}

std::uint64_t nextValue(VarintLog::Reader& log, std::uint64_t before)
{
    const std::uint64_t code = log.next();
    if (code == 1)
        return log.next();
    const auto from = static_cast<std::int64_t>(std::bit_cast<double>(before));
    return bitsOf(static_cast<double>(from + unfolded(code >> 1U)));
}

/// The other sprite of a hit: its class, and whether it is the one whose block runs.
std::uint64_t packed(std::int32_t classIndex, bool isMe)
{
    return static_cast<std::uint64_t>(classIndex + 1) * 2 + (isMe ? 1 : 0);
}

} // namespace

RunIndex::RunIndex(const Recording& recording, PictureReader& pictures)
    : m_recording(recording)
    , m_pictures(pictures)
{
}

RunIndex::~RunIndex() = default;

// Playing.

void RunIndex::beginAnew()
{
    const RunState& beginning = m_recording.beginning();
    m_replay.emplace(m_recording, m_pictures);
    m_recorded = m_recording.version();
    ++m_version;
    m_program = beginning.program;
    m_frames = 0;
    m_hasMistake = false;
    m_bytes = 0;
    m_pending = Effect();
    m_asked = Moment();
    m_askedLine = 0;
    m_marks.clear();
    m_states.clear();
    m_markedIn.fill(-1);

    m_lines = ProgramLines(*m_program, beginning.lines->upperBound());
    m_records.assign(static_cast<std::size_t>(m_lines.lineCount()) + 1, {});
    m_variables.assign(beginning.variables.counters.size() + beginning.variables.texts.size(), {});
    for (std::size_t i = 0; i < beginning.variables.counters.size(); ++i)
        m_variables[i].value = unsetCounter;
    m_events.assign(m_program->classes.size() * happeningCount, {});
    for (int line = 1; line <= m_lines.lineCount(); ++line)
        if (const ZBLStatement* statement = m_lines.line(line).statement)
            setEffect(*statement);
}

void RunIndex::setEffect(const ZBLStatement& statement)
{
    Effect& effect = m_records[static_cast<std::size_t>(statement.line())].effect;
    if (statement.type() == StatementType::SetState) {
        effect.kind = Effect::Kind::SetState;
    } else if (statement.type() == StatementType::Mutate) {
        const ZBLVarExp& target = static_cast<const ZBLMutateExp&>(statement).target();
        effect.kind = target.type == ValueKind::Counter ? Effect::Kind::Counter : Effect::Kind::Text;
        effect.slot = target.slot;
    } else if (statement.type() == StatementType::Action) {
        const auto& action = static_cast<const ZBLMethodExp&>(statement);
        effect.isIt = action.object().name() == ObjectName::It;
        if (action.action() == Action::Destroy)
            effect.kind = Effect::Kind::Destroy;
        else if (action.action() == Action::DestroyAll)
            effect.kind = Effect::Kind::DestroyAll;
    }
}

bool RunIndex::extend(std::int64_t frames)
{
    if (m_recording.isEmpty())
        return false;
    if (m_recorded != m_recording.version())
        beginAnew();
    const std::int64_t whole = m_recording.frames();
    const bool isToBreak = m_recording.isBroken() && !m_hasMistake && m_frames + frames > whole;
    const std::int64_t to = isToBreak ? whole + 1 : std::min(m_frames + frames, whole);
    m_statement = 0;
    if (m_frames < to)
        m_replay->watch(m_frames, to, *this, [this](const RunState& state) {
            settle();
            m_frames = state.tick;
            m_statement = 0;
            m_pendingLine = 0;
            return true;
        });
    if (isToBreak && m_frames == whole) {
        m_pending = Effect();
        m_hasMistake = true;
        mark(MarkKind::Mistake, {whole, m_statement}, m_pendingLine);
    }
    return m_frames < m_recording.frames() || (m_recording.isBroken() && !m_hasMistake);
}

// What the watcher is told.

void RunIndex::statement(int line)
{
    settle();
    ++m_statement;
    lineRuns(line, m_statement);
    m_pendingLine = line;
    const Effect& effect = m_records[static_cast<std::size_t>(line)].effect;
    if (effect.kind != Effect::Kind::None)
        begins(effect, line);
}

void RunIndex::begins(const Effect& effect, int line)
{
    switch (effect.kind) {
    case Effect::Kind::Counter:
    case Effect::Kind::Text:
        m_pending = effect;
        m_before = valueOf(effect);
        break;
    case Effect::Kind::Destroy:
        if (const ZBSprite* sprite = boundSprite(run(), effect.isIt); sprite && !sprite->destroyed)
            happens(Happening::Destroyed, *sprite, now(), line);
        break;
    case Effect::Kind::DestroyAll:
        for (const ZBSprite& sprite : liveSprites(run()))
            if (!sprite.destroyed)
                happens(Happening::Destroyed, sprite, now(), line);
        break;
    case Effect::Kind::SetState:
        m_asked = now();
        m_askedLine = line;
        break;
    case Effect::Kind::None:
        break;
    }
}

/// The statement that was announced last has run.
void RunIndex::settle()
{
    const Effect effect = std::exchange(m_pending, {});
    if (effect.kind == Effect::Kind::None || !run().programLoaded)
        return;
    const std::uint64_t value = valueOf(effect);
    if (value != m_before)
        changed(variableOf(effect), value);
}

void RunIndex::eventBegins(EventName event)
{
    settle();
    const ZBSprite* const me = boundSprite(run(), false);
    const ZBSprite* const it = boundSprite(run(), true);
    if (event != EventName::Collision || !me || !it)
        return;
    const int line = openingLineOf(run(), *me, event);
    happens(Happening::Hit, *me, next(), line, packed(it->classIndex, false));
    if (it->classIndex != me->classIndex)
        happens(Happening::Hit, *it, next(), line, packed(me->classIndex, true));
}

void RunIndex::stateEntered()
{
    settle();
    if (run().inLoop)
        return;
    m_states.push_back({now(), run().stateIndex, m_asked, m_askedLine});
    mark(MarkKind::State, now(), m_askedLine);
}

void RunIndex::pauses(int line)
{
    settle();
    lineRuns(line, m_statement + 1);
    mark(MarkKind::Pause, next(), line);
}

void RunIndex::created(int line)
{
    settle();
    lineRuns(line, m_statement + 1);
    m_pendingLine = line;
    if (run().running && run().spriteCount > 0)
        happens(Happening::Created, liveSprites(run()).back(), next(), line);
}

// What is kept.

void RunIndex::lineRuns(int line, std::int32_t statement)
{
    LineRecord& record = m_records[static_cast<std::size_t>(line)];
    ++record.count;
    const std::int32_t here = frame();
    if (record.lastFrame == here)
        return;
    if (record.firstFrame < 0 || record.lastFrame != here - 1) {
        endStretch(record);
        record.firstFrame = here;
        record.firstStatement = statement;
    }
    record.lastFrame = here;
}

void RunIndex::endStretch(LineRecord& record)
{
    if (record.firstFrame < 0)
        return;
    record.runs.add(record.firstFrame - record.written);
    record.runs.add(record.lastFrame - record.firstFrame);
    record.runs.add(record.firstStatement);
    record.written = record.firstFrame;
}

RunIndex::VariableRecord& RunIndex::variableOf(const Effect& effect)
{
    const std::size_t before = effect.kind == Effect::Kind::Text ? run().variables.counters.size() : 0;
    return m_variables[before + static_cast<std::size_t>(effect.slot)];
}

std::uint64_t RunIndex::valueOf(const Effect& effect) const
{
    const auto slot = static_cast<std::size_t>(effect.slot);
    return effect.kind == Effect::Kind::Counter ? bitsOf(run().variables.counters[slot])
                                                : bitsOf(run().variables.texts[slot]);
}

void RunIndex::changed(VariableRecord& variable, std::uint64_t value)
{
    Entry& last = variable.last;
    const bool isSameFrame = last.times > 0 && last.frame == frame();
    if (isSameFrame && variable.inFrame == eachInFrame) {
        last.value = value;
        ++last.times;
        return;
    }
    if (isFull())
        return;
    if (last.times > 0)
        write(variable);
    last = {frame(), m_statement, m_pendingLine, 1, value};
    variable.inFrame = isSameFrame ? variable.inFrame + 1 : 1;
}

void RunIndex::write(VariableRecord& variable)
{
    const Entry& entry = variable.last;
    const std::size_t before = variable.log.bytes();
    const auto index = static_cast<std::size_t>(&variable - m_variables.data());
    variable.log.add(entry.frame - variable.written);
    variable.log.add(entry.statement);
    variable.log.add(entry.line);
    variable.log.add(entry.times);
    addValue(variable.log, index < run().variables.counters.size(), variable.value, entry.value);
    variable.written = entry.frame;
    variable.value = entry.value;
    m_bytes += variable.log.bytes() - before;
}

void RunIndex::happens(Happening what, const ZBSprite& sprite, Moment moment, int line, std::uint64_t other)
{
    constexpr std::array marks = {MarkKind::Creation, MarkKind::Destruction, MarkKind::Collision};
    const auto kind = static_cast<std::size_t>(what);
    mark(marks[kind], moment, line);
    if (sprite.classIndex < 0)
        return;
    EventRecord& record = m_events[static_cast<std::size_t>(sprite.classIndex) * happeningCount + kind];
    Entry& last = record.last;
    if (last.times > 0 && last.frame == frame()) {
        ++last.times;
        return;
    }
    if (isFull())
        return;
    if (last.times > 0) {
        const std::size_t before = record.log.bytes();
        record.log.add(last.frame - record.written);
        record.log.add(last.statement);
        record.log.add(last.line);
        record.log.add(last.times);
        record.log.add(last.value);
        record.written = last.frame;
        m_bytes += record.log.bytes() - before;
    }
    last = {frame(), moment.statement, line, 1, other};
}

void RunIndex::mark(MarkKind kind, Moment moment, int line)
{
    const auto here = static_cast<std::int32_t>(moment.frame);
    if (std::exchange(m_markedIn[static_cast<std::size_t>(kind)], here) != here)
        m_marks.push_back({moment, kind, line});
}

std::size_t RunIndex::bytes() const
{
    std::size_t bytes =
        m_bytes + m_marks.capacity() * sizeof(Mark) + m_states.capacity() * sizeof(StateEntry);
    for (const LineRecord& record : m_records)
        bytes += sizeof record + record.runs.bytes();
    return bytes + m_variables.size() * sizeof(VariableRecord) + m_events.size() * sizeof(EventRecord);
}

// Answers.

std::int64_t RunIndex::timesRun(int line) const
{
    const auto index = static_cast<std::size_t>(line);
    return line > 0 && index < m_records.size() ? m_records[index].count : 0;
}

std::vector<RunIndex::LineRun> RunIndex::runsOf(int line) const
{
    std::vector<LineRun> runs;
    if (timesRun(line) == 0)
        return runs;
    const LineRecord& record = m_records[static_cast<std::size_t>(line)];
    std::int32_t first = 0;
    for (VarintLog::Reader log(record.runs); !log.atEnd();) {
        first += log.nextInt();
        const std::int32_t last = first + log.nextInt();
        runs.push_back({{first, log.nextInt()}, last});
    }
    runs.push_back({{record.firstFrame, record.firstStatement}, record.lastFrame});
    return runs;
}

std::optional<Moment> RunIndex::firstRun(int line) const
{
    if (timesRun(line) == 0)
        return std::nullopt;
    const LineRecord& record = m_records[static_cast<std::size_t>(line)];
    if (record.runs.bytes() == 0)
        return Moment{record.firstFrame, record.firstStatement};
    VarintLog::Reader log(record.runs);
    const std::int32_t first = log.nextInt();
    static_cast<void>(log.next()); // how long it went on
    return Moment{first, log.nextInt()};
}

std::int64_t RunIndex::lastFrameOf(int line) const
{
    return timesRun(line) > 0 ? m_records[static_cast<std::size_t>(line)].lastFrame : -1;
}

std::vector<RunIndex::Change> RunIndex::changesOf(ValueKind kind, std::int32_t slot) const
{
    std::vector<Change> changes;
    if (!m_program)
        return changes;
    const std::size_t before = kind == ValueKind::Text ? m_program->tree.variables().counters().size() : 0;
    const auto index = before + static_cast<std::size_t>(slot);
    if (slot < 0 || index >= m_variables.size())
        return changes;
    const VariableRecord& record = m_variables[index];
    std::uint64_t value = kind == ValueKind::Counter ? unsetCounter : bitsOf(nullptr);
    const auto add = [&](const Entry& entry) {
        changes.push_back({{entry.frame, entry.statement},
                           entry.line,
                           entry.times,
                           valueFrom(kind, value),
                           valueFrom(kind, entry.value)});
        value = entry.value;
    };
    Entry entry;
    for (VarintLog::Reader log(record.log); !log.atEnd();) {
        entry.frame += log.nextInt();
        entry.statement = log.nextInt();
        entry.line = log.nextInt();
        entry.times = log.nextInt();
        entry.value = nextValue(log, value);
        add(entry);
    }
    if (record.last.times > 0)
        add(record.last);
    return changes;
}

std::vector<RunIndex::ClassEvent> RunIndex::happenedTo(int classIndex, Happening what) const
{
    std::vector<ClassEvent> events;
    const auto index = static_cast<std::size_t>(classIndex) * happeningCount + static_cast<std::size_t>(what);
    if (classIndex < 0 || index >= m_events.size())
        return events;
    const auto add = [&](const Entry& entry) {
        events.push_back({{entry.frame, entry.statement},
                          entry.line,
                          entry.times,
                          static_cast<int>(entry.value >> 1U) - 1,
                          (entry.value & 1U) != 0});
    };
    Entry entry;
    for (VarintLog::Reader log(m_events[index].log); !log.atEnd();) {
        entry.frame += log.nextInt();
        entry.statement = log.nextInt();
        entry.line = log.nextInt();
        entry.times = log.nextInt();
        entry.value = log.next();
        add(entry);
    }
    if (m_events[index].last.times > 0)
        add(m_events[index].last);
    return events;
}
