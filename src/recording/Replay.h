// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "headless/QuietPorts.h"
#include "platform/PictureReader.h"
#include "recording/Recording.h"
#include "runtime/ZBContext.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Stands at any moment of a recorded run: puts back the keyframe before it and plays on from there. What it
/// shows there (state, picture, history) is what the first run showed. Only the history asks for more than
/// one keyframe.
class Replay : private QuietScreen, private QuietSpy
{
public:
    static constexpr std::size_t historyLimit = 500;

    Replay(const Recording& recording, PictureReader& pictures);

    /// Goes to a moment, or to the last one there is before it. False where there is no run.
    bool seek(Moment moment);
    Moment moment() const { return m_moment; }
    /// The last moment that the recording has: of a broken run the statement that made the mistake, of one
    /// that waits the statement that does.
    Moment last();
    /// How many statements the frame behind so many whole ones runs.
    std::int32_t statementsAfter(std::int64_t frame);
    /// To the next or the last statement or, where the frame has no more, the end of the frame. False at the
    /// ends of the run.
    bool stepForward();
    bool stepBack();

    const RunState& state() const { return m_context.state(); }
    /// The line of the statement that is about to run; 0 between frames.
    int line() const;
    std::vector<std::string> variables() const { return m_context.DumpVariablesInto(); }
    /// What the game window showed at this moment.
    const Surface& picture();
    struct History {
        std::vector<std::string> lines; ///< the last, at most historyLimit
        bool isWhole = false;           ///< there is nothing before them
    };
    /// The history up to this moment. Where it takes more than so many stretches between keyframes to come to
    /// historyLimit lines, only the lines of the last stretches.
    History history(const TraceBoxes& boxes, std::size_t stretches);
    void setShowMap(bool on);

    /// Plays from the end of one frame to the end of another, or into the frame that broke the run, while
    /// somebody looks on. `eachFrame` is asked after each whether to go on. Stands at the end of the last
    /// whole frame that it has played, so that going on from there costs nothing.
    void watch(std::int64_t from, std::int64_t to, RunWatcher& watcher,
               const std::function<bool(const RunState&)>& eachFrame);
    /// Plays from the end of a frame to a moment that the recording has, while somebody looks on, and stands
    /// there. The statement that waits there has been announced.
    void watchTo(std::int64_t from, Moment to, RunWatcher& watcher);

private:
    // GameScreen, SpyPort
    bool wantsFrames() const override { return m_draws; }
    void refreshDisplay() override { m_hasDrawn = true; }
    void addHistoryLine(std::string_view line) override;

    void restore(const Recording::Keyframe& keyframe);
    void handOnInputs(std::int64_t tick);
    bool isAtFrame() const { return m_isValid && !m_context.inFrame(); }
    void startAt(std::int64_t frame);
    bool playFrame();
    Progress beginFrame(bool inSteps);
    Progress goOn();
    bool hasInputsWithin(std::int64_t tick) const;
    void playTo(Moment moment);
    void playOnTo(Moment moment);
    std::int32_t countStatements(std::int64_t frame, std::optional<InputTime> until);

    /// The frame that the recording has only begun.
    struct LastFrame {
        std::uint64_t version = 0;
        std::int64_t frames = -1;
        std::optional<InputTime> waits;

        bool operator==(const LastFrame&) const = default;
    };
    struct {
        LastFrame frame;
        std::int32_t statements = 0;
    } m_last;

    const Recording& m_recording;
    ZBContext m_context;
    Moment m_moment;
    std::uint64_t m_version = 0; ///< of the recording that the context has been filled from
    std::size_t m_inputs = 0;    ///< how many of the recording's keys the context has
    bool m_isValid = false;      ///< the context stands in the run, at the moment or on the way to it
    bool m_draws = false;
    bool m_hasDrawn = false;       ///< since the picture was cleared
    bool m_isPictureThere = false; ///< that of the moment
    bool m_keepsLines = false;
    std::deque<std::string> m_lines;
};
