// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/LineArray.h"
#include "platform/Random.h"
#include "runtime/ProgramCode.h"
#include "runtime/world/EventQueue.h"
#include "runtime/world/ZBKeyboard.h"
#include "runtime/world/ZBMap.h"
#include "runtime/world/ZBSprite.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// The variables of a run. Those that have not been set hold no number and no text.
struct VariableValues {
    std::vector<double> counters; ///< by slot; not a number: not set
    std::vector<Text> texts;      ///< by slot; null: not set
    /// The slots in the order in which they were first set; texts count behind the counters.
    std::vector<std::int32_t> order;
};

/// The names that the game object answers.
struct ZBGame {
    Text backgroundName = nullptr;
    Text musicName = nullptr;
    Text mapName = nullptr;
};

/// A place in a run where something may happen to it from outside: the beginning of tick `tick` (1 for the
/// first of a run) or, where `block` is above 0, just before the statement on line `line` runs in the
/// `block`th block of that tick. A block runs each of its lines once at most.
struct InputTime {
    std::int64_t tick = 0;
    std::int32_t block = 0;
    std::int32_t line = 0;

    auto operator<=>(const InputTime&) const = default; // NOLINT(modernize-use-nullptr)
};

/// A key that goes down or up.
struct KeyInput {
    InputTime time;
    bool down = false;
    int code = 0;

    bool operator==(const KeyInput&) const = default;
};

/// The parts of a frame that run statements, and the time between frames.
enum class Phase : std::uint8_t { Idle, Initialize, InitializeEvents, Loop, LoopEvents };

/// What is to happen first when a block goes on.
enum class Pending : std::uint8_t {
    Nothing,
    Release,    ///< the statement at `step` has been announced and waits
    GoOn,       ///< something was told; the block goes on at `step` all the same
    GiveUp,     ///< something was told; the statement at `step` ends its block
    GiveUpTest, ///< the same, and it was the test of an if
};

/// Where a frame stands. Between frames `phase` is Idle and no block runs.
struct FramePosition {
    Phase phase = Phase::Idle;
    Pending pending = Pending::Nothing;
    SequenceCode::Form form = SequenceCode::Form::Quick; ///< of the block's code that runs
    const SequenceCode* block = nullptr;     ///< the program's, which never changes; null: none runs
    const Program::ClassCode* cls = nullptr; ///< whose event block it is; null for a state's block
    EventName event = EventName::Normal;
    std::int32_t step = 0; ///< of the block's code in that form
};

/// Everything that changes while a game runs, in one place: a copy of it is a picture of the run that can be
/// put back at any statement. What it shares (the program, graphics, the map, the background) never changes
/// once made.
struct RunState {
    RunState();

    std::shared_ptr<const Program> program; ///< kept after a reset: what was read from it is still named
    std::shared_ptr<const LineArray> lines;
    bool programLoaded = false; ///< false after a reset: nothing is found in the program any more

    std::int32_t frameNumber = 0;
    int stateIndex = -1; ///< of the program's states, -1 for a state that it does not have
    std::string state = "begin";
    bool inLoop = false; ///< the sub-state: "loop" or "initialize"
    Text nextState = nullptr;
    FramePosition position;
    std::int64_t workInPass = 0; ///< what the events of this pass have cost

    VariableValues variables;
    std::vector<ZBSprite> sprites; ///< never shrinks in a run: an old slot still names a sprite
    std::int32_t spriteCount = 0;  ///< how many of them are live
    EventQueue events;

    // ME and IT: indices into the sprite table, or the sprite that stood there before a new one took its
    // place.
    std::int32_t me = -1;
    std::int32_t it = -1;
    bool meValid = false;
    bool itValid = false;
    std::optional<ZBSprite> detachedMe;
    std::optional<ZBSprite> detachedIt;

    ZBKeyboard keyboard;
    std::vector<KeyInput> inputs; ///< those that have not counted yet, in the order in which they will
    std::int64_t tick = 0;        ///< frames begun in this run, whatever their numbers
    std::int32_t blocks = 0;      ///< blocks that have begun in this tick
    ZBGame game;
    std::shared_ptr<const ZBMap> map;
    Random random;
    std::int32_t lastID = 0;
    std::vector<std::shared_ptr<const ZBGraphic>> graphics;
    std::shared_ptr<const Surface> background;
    bool sceneChanged = true; ///< what is seen, since the last frame was drawn

    bool running = false;
    bool haltRequested = false;
    int traceDepth = 0; ///< of the history's indentation; a frame that ended early leaves it raised

    std::string_view subState() const { return inLoop ? "loop" : "initialize"; }
    bool inFrame() const { return position.phase != Phase::Idle; }
    void enterState(std::string_view name);
    void countFrame();
    void forgetVariables();
    /// Forgets the program and the run; sprites, state and the place in the frame stay as they are.
    void reset();
    /// What the start of a run sets; the random numbers begin at `seed`.
    void start(std::uint64_t seed);
    /// Makes the inputs count that are due now, and adds them to `log`, where there is one, with the time at
    /// which they did.
    void takeInputs(std::vector<KeyInput>* log);
    /// Where the run stands: at the statement that waits, or at the beginning of its tick.
    InputTime now() const;
    /// The line of the statement at which the frame's block stands; 0 where none runs.
    std::int32_t currentLine() const;
    /// One line per variable in the order of their first setting, then one per sprite.
    std::vector<std::string> dump() const;
};
