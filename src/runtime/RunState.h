#pragma once

#include "language/LineArray.h"
#include "platform/Random.h"
#include "runtime/CollisionGrid.h"
#include "runtime/EventQueue.h"
#include "runtime/ProgramCode.h"
#include "runtime/ZBKeyboard.h"
#include "runtime/ZBMap.h"
#include "runtime/ZBSprite.h"

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

/// Everything that changes while a game runs, in one place: a copy of it is a picture of the run that can be
/// put back. What it shares (the program, graphics, the background) never changes once made.
struct RunState {
    std::shared_ptr<const Program> program; ///< kept after a reset: what was read from it is still named
    std::shared_ptr<const LineArray> lines;
    bool programLoaded = false; ///< false after a reset: nothing is found in the program any more

    std::int32_t frameNumber = 0;
    int stateIndex = -1; ///< of the program's states, -1 for a state that it does not have
    std::string state = "begin";
    bool inLoop = false; ///< the sub-state: "loop" or "initialize"
    Text nextState = nullptr;

    VariableValues variables;
    std::vector<ZBSprite> sprites; ///< never shrinks in a run: an old slot still names a sprite
    std::int32_t spriteCount = 0;  ///< how many of them are live
    CollisionGrid grid;            ///< where the live ones are
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
    ZBGame game;
    ZBMap map;
    Random random;
    std::int32_t lastID = 0;
    std::vector<std::shared_ptr<const ZBGraphic>> graphics;
    std::shared_ptr<const Surface> background;

    bool running = false;
    bool haltRequested = false;
    int traceDepth = 0; ///< filled when a copy is made: a frame that ended early leaves the trace indented
};
