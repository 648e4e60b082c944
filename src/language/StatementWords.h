#pragma once

#include "language/ZBLStatement.h"

#include <memory>
#include <string_view>

/// What an action statement does.
enum class Action : std::uint8_t {
    ChangeDirection,
    ChangePosition,
    ChangeSpeed,
    Destroy,
    DestroyAll,
    Hide,
    Move,
    MoveDown,
    MoveForward,
    MoveHigher,
    MoveLeft,
    MoveLower,
    MoveRight,
    MoveUp,
    Rebound,
    SetBackground,
    SetDirection,
    SetMap,
    SetMusic,
    SetPosition,
    SetSpeed,
    Show,
    Undestroy,
    Unmove,
};

/// What an action statement reads behind its word.
enum class Operands : std::uint8_t {
    None,
    Sprite,         ///< me or it
    SpriteAndValue, ///< me or it, an amount
    SpriteAndPlace, ///< me or it, x, y, z
    TwoObjects,     ///< any two object words
    GameAndValue,   ///< the word game, a value
};

struct ActionWord {
    std::string_view word;
    Action action;
    Operands operands;
};

/// The row of an action word, or null.
const ActionWord* findActionWord(std::string_view word);

/// A new, empty statement of the class that reads lines beginning with `word`; null where no statement does.
std::unique_ptr<ZBLStatement> makeStatement(std::string_view word);
