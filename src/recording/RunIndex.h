// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "recording/ProgramLines.h"
#include "recording/Recording.h"
#include "recording/Replay.h"
#include "recording/VarintLog.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

/// What happened when in a recorded run: found by playing it once, slice by slice, and kept in a few bytes
/// for each thing. Moments are those at which one sees it coming: the statement that does it is about to run.
/// A moment that has one statement more than its frame stands for the end of the frame, as it does for
/// Replay.
class RunIndex : private RunWatcher
{
public:
    /// Further happenings are not kept above this; lines, marks and states always are.
    static constexpr std::size_t mostBytes = std::size_t{24} << 20U;

    enum class MarkKind : std::uint8_t { State, Creation, Destruction, Collision, Pause, Mistake };
    /// Something that a slider shows; the first of its kind in its frame.
    struct Mark {
        Moment moment;
        MarkKind kind = MarkKind::State;
        int line = 0; ///< 0: none
    };
    /// A line ran in each of some frames, one behind the other.
    struct LineRun {
        Moment first;               ///< where it ran first in the first of them
        std::int64_t lastFrame = 0; ///< whole frames before the last of them
    };
    /// A variable got another value. Beyond `eachInFrame` changes in one frame the last stands for several.
    struct Change {
        Moment moment;
        int line = 0;
        std::int32_t times = 1;
        ZBLValueExp before; ///< no kind: not set yet
        ZBLValueExp after;
    };
    enum class Happening : std::uint8_t { Created, Destroyed, Hit };
    /// Something happened to sprites of a class: the first of it in a frame.
    struct ClassEvent {
        Moment moment;
        int line = 0; ///< of the statement; of the opening line of the COLLISION block
        std::int32_t times = 1;
        int otherClass = -1; ///< Hit: that of the other one
        bool isIt = false;   ///< Hit: it was touched by the other one, whose block ran
    };
    struct StateEntry {
        Moment moment;
        std::int32_t state = -1; ///< of the program's states
        Moment asked;            ///< at the setstate statement
        int line = 0;            ///< its line; 0 for the first state
    };
    static constexpr std::int32_t eachInFrame = 4;

    RunIndex(const Recording& recording, PictureReader& pictures);
    ~RunIndex() override;
    RunIndex(const RunIndex&) = delete;
    RunIndex& operator=(const RunIndex&) = delete;

    /// Plays so many more frames, after a look at whether what has been recorded is another run by now; then
    /// it begins anew. Says whether there are more to play.
    bool extend(std::int64_t frames);
    /// Frames that have been looked at.
    std::int64_t frames() const { return m_frames; }
    /// Whole frames before the last one that was looked at, which may have ended in a mistake; -1: none.
    std::int64_t lastFrame() const { return m_frames - (m_hasMistake ? 0 : 1); }
    /// Changes when it has begun anew.
    std::uint64_t version() const { return m_version; }
    /// Too much has happened: what was found first is all there is.
    bool isFull() const { return m_bytes >= mostBytes; }
    std::size_t bytes() const;

    /// In the order in which they happened.
    const std::vector<Mark>& marks() const { return m_marks; }
    const std::vector<StateEntry>& states() const { return m_states; }

    // Lines count from 1.
    const ProgramLines& lines() const { return m_lines; }
    std::int64_t timesRun(int line) const;
    /// In each of these stretches of frames the line ran.
    std::vector<LineRun> runsOf(int line) const;
    /// Where it ran first; nothing where it never has.
    std::optional<Moment> firstRun(int line) const;
    /// Whole frames before the last one in which it ran; -1: none.
    std::int64_t lastFrameOf(int line) const;

    /// By the slot that the program's variable has among those of its kind.
    std::vector<Change> changesOf(ValueKind kind, std::int32_t slot) const;
    std::vector<ClassEvent> happenedTo(int classIndex, Happening what) const;
    /// Null before the first call of extend.
    const Program* program() const { return m_program.get(); }

private:
    static constexpr std::size_t happeningCount = 3;

    /// What a statement may do that is to be seen.
    struct Effect {
        enum class Kind : std::uint8_t { None, Counter, Text, Destroy, DestroyAll, SetState };
        Kind kind = Kind::None;
        bool isIt = false;
        std::int32_t slot = 0;
    };
    struct LineRecord {
        std::int64_t count = 0;
        std::int32_t firstFrame = -1; ///< of the stretch that goes on
        std::int32_t lastFrame = -1;
        std::int32_t firstStatement = 0;
        std::int32_t written = 0; ///< the first frame of the stretch last written
        Effect effect;
        VarintLog runs; ///< that have ended
    };
    /// A change as it is kept: numbers by their bits, texts by their addresses.
    struct Entry {
        std::int32_t frame = 0;
        std::int32_t statement = 0;
        std::int32_t line = 0;
        std::int32_t times = 0; ///< 0: there is none yet
        std::uint64_t value = 0;
    };
    struct VariableRecord {
        Entry last;
        std::int32_t inFrame = 0; ///< how many there are in its frame
        std::int32_t written = 0; ///< the frame last written
        std::uint64_t value = 0;  ///< the value last written
        VarintLog log;            ///< all but the last
    };
    struct EventRecord {
        Entry last; ///< the value is the other class
        std::int32_t written = 0;
        VarintLog log; ///< all but the last
    };

    // RunWatcher
    void statement(int line) override;
    void eventBegins(EventName event) override;
    void eventEnds() override { settle(); }
    void stateEntered() override;
    void pauses(int line) override;
    void created(int line) override;

    void beginAnew();
    void setEffect(const ZBLStatement& statement);
    const RunState& run() const { return m_replay->state(); }
    std::int32_t frame() const { return static_cast<std::int32_t>(run().tick - 1); }
    Moment now() const { return {run().tick - 1, m_statement}; }
    Moment next() const { return {run().tick - 1, m_statement + 1}; }
    void lineRuns(int line, std::int32_t statement);
    void endStretch(LineRecord& record);
    void begins(const Effect& effect, int line);
    void settle();
    void changed(VariableRecord& variable, std::uint64_t value);
    void write(VariableRecord& variable);
    void happens(Happening what, const ZBSprite& sprite, Moment moment, int line, std::uint64_t other = 0);
    void mark(MarkKind kind, Moment moment, int line);
    VariableRecord& variableOf(const Effect& effect);
    std::uint64_t valueOf(const Effect& effect) const;

    const Recording& m_recording;
    PictureReader& m_pictures;
    std::shared_ptr<const Program> m_program;
    std::optional<Replay> m_replay;
    std::optional<std::uint64_t> m_recorded; ///< the recording's version that this is of
    std::uint64_t m_version = 0;
    std::int64_t m_frames = 0;
    bool m_hasMistake = false;
    std::size_t m_bytes = 0; ///< of the logs

    std::int32_t m_statement = 0; ///< of the frame that is played
    Effect m_pending;             ///< of the statement that was announced last
    int m_pendingLine = 0;
    std::uint64_t m_before = 0; ///< what its variable was
    Moment m_asked;             ///< where the last setstate ran
    int m_askedLine = 0;

    ProgramLines m_lines;
    std::vector<LineRecord> m_records;        ///< by line
    std::vector<VariableRecord> m_variables;  ///< counters, then texts
    std::vector<EventRecord> m_events;        ///< by class and happening
    std::array<std::int32_t, 6> m_markedIn{}; ///< by kind: the frame of its last mark
    std::vector<Mark> m_marks;
    std::vector<StateEntry> m_states;
};
