// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "runtime/RunFiles.h"
#include "runtime/RunListener.h"
#include "runtime/RunState.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

/// A moment of a run: so many frames are over and, where `statement` is above 0, the `statement`th statement
/// of the next frame is about to run.
struct Moment {
    std::int64_t frame = 0;
    std::int32_t statement = 0;

    auto operator<=>(const Moment&) const = default; // NOLINT(modernize-use-nullptr)
};

/// What it takes to have every moment of a run again: its program, its files and its beginning, the keys with
/// their times, and copies of the state on the way (keyframes), from which Replay goes on. A run is a pure
/// function of these, so nothing else is kept.
///
/// A keyframe is taken where replaying since the last one would cost more than the budget, or after 300
/// frames. Where all of them together pass the cap, every second one goes and the budget doubles.
class Recording : public RunListener
{
public:
    static constexpr std::int64_t longestStretch = 300; ///< frames from one keyframe to the next
    static constexpr std::size_t usualCap = std::size_t{100} << 20U;

    struct Keyframe {
        std::shared_ptr<const RunState> state; ///< between two frames
        std::size_t inputs = 0;                ///< how many had counted by then
    };

    explicit Recording(std::size_t cap = usualCap)
        : m_cap(cap)
    {
    }
    ~Recording() override;
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    /// A keyframe after every frame, none ever dropped: what the others are judged by.
    void keepEveryFrame() { m_keepsAll = true; }

    bool isEmpty() const { return m_keyframes.empty(); }
    std::uint64_t seed() const { return m_seed; }
    /// Frames that have come to their end.
    std::int64_t frames() const { return m_frames; }
    /// The frame behind the last whole one came upon a mistake, which ended the run.
    bool isBroken() const { return m_isBroken; }
    /// The run goes on: frames and keys may be added.
    bool isGrowing() const { return m_context != nullptr; }
    const std::vector<KeyInput>& inputs() const { return m_inputs; }
    const std::shared_ptr<RunFiles>& files() const { return m_files; }
    /// The state at the beginning of the run: program and lines are in it.
    const RunState& beginning() const { return *m_keyframes.front().state; }
    /// The last keyframe at `frame` or before.
    const Keyframe& keyframeBefore(std::int64_t frame) const;
    const std::vector<Keyframe>& keyframes() const { return m_keyframes; }
    /// About how much memory the keyframes take, beside what all of them share.
    std::size_t bytes() const { return m_bytes; }
    /// Changes whenever what has been recorded is no longer so.
    std::uint64_t version() const { return m_version; }
    /// Where the run that goes on stands in a frame; nothing between frames and when it has ended.
    std::optional<InputTime> growingAt() const;

    /// A copy that stays as it is now.
    std::shared_ptr<Recording> copy() const;
    /// Goes on in `context`, which stands at a moment of this run: what came after it is forgotten.
    void goOn(ZBContext& context);
    /// A run that is known by its keys alone. Keyframes come while it is played through: see passes.
    void begin(const RunState& beginning, std::shared_ptr<RunFiles> files, std::uint64_t seed);
    void setPlayed(std::vector<KeyInput> inputs, std::int64_t frames, bool isBroken);
    /// A frame of it has been played, the first time in its turn: it becomes a keyframe where one is due.
    void passes(const RunState& state);

    // RunListener
    void runBegins(ZBContext& context, std::uint64_t seed) override;
    void frameEnds() override;
    void runBreaks() override;
    void runEnds() override;

private:
    void follow(ZBContext* context);
    void addKeyframe(const RunState& state);
    void thin();

    std::vector<Keyframe> m_keyframes; ///< in the order of their frames; the first is the beginning
    std::vector<KeyInput> m_inputs;
    std::shared_ptr<RunFiles> m_files;
    std::uint64_t m_seed = 0;
    std::int64_t m_frames = 0;
    bool m_isBroken = false;
    ZBContext* m_context = nullptr; ///< where the run goes on
    std::size_t m_cap;
    bool m_keepsAll = false;
    std::size_t m_bytes = 0;
    std::int64_t m_budget = 0;        ///< work between keyframes
    std::int64_t m_workSinceLast = 0; ///< in steps, about 2 ns each
    std::uint64_t m_version = 0;
};
