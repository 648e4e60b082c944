// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBLValueExp.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

// Every word that the language knows stands in one table. The reader, the editor's help line and the tests of
// the documents are fed from it.

/// The nodes that read statements.
enum class StatementType : std::uint8_t { If, Mutate, SetState, Pause, Action, Create };

/// What a statement about a variable does.
enum class Verb : std::uint8_t { Set, Change };

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

/// The blocks of the language itself; classes and states are named by the program.
enum class Block : std::uint8_t { Program, Classes, States, Else };

/// The events that a class can have blocks for.
enum class EventName : std::uint8_t { Normal, Collision, MapChange, Create, Destroy };
inline constexpr std::size_t eventNameCount = 5;

/// The blocks of a state: what runs when it is entered, and what runs in each frame.
enum class StatePart : std::uint8_t { Initialize, Loop };
inline constexpr std::size_t statePartCount = 2;

enum class ObjectName : std::uint8_t { Me, It, Game, Keyboard, Mouse, Joystick };

/// Whose properties an object has.
enum class PropertyOwner : std::uint8_t { Nobody, Sprite, Game, Keyboard };

/// The properties that objects have. A name that its object does not have is Unknown and reported when it is
/// read.
enum class Property : std::uint8_t {
    Unknown,
    // of sprites
    X,
    Y,
    Z,
    Speed,
    Class,
    Red,
    Orange,
    Yellow,
    Green,
    Cyan,
    Blue,
    Purple,
    // of the keyboard
    AnyKey,
    Key,
    // of the game
    Background,
    Music,
    Map,
};

/// The properties that tell of the colors under a sprite, by the numbers of the map's colors.
inline constexpr std::array colorProperties = {Property::Red,   Property::Orange, Property::Yellow,
                                               Property::Green, Property::Cyan,   Property::Blue,
                                               Property::Purple};

/// The comparisons of an if.
enum class TestOperator : std::uint8_t { Equal, NotEqual, Less, Greater, LessOrEqual, GreaterOrEqual };

// What a word can mean. A word may have several meanings: "create" begins a statement and names an event.

struct ActionForm {
    Action action = Action::Move;
    Operands operands = Operands::None;
};

struct StatementWord {
    StatementType type = StatementType::Pause;
    std::variant<std::monostate, Verb, ActionForm> what; ///< by type: Mutate a Verb, Action an ActionForm
    std::string_view usage;                              ///< the editor's help line; one word has none
};

struct ObjectWord {
    ObjectName name = ObjectName::Me;
    PropertyOwner properties = PropertyOwner::Nobody;
};

struct PropertyWord {
    PropertyOwner owner = PropertyOwner::Nobody;
    Property property = Property::Unknown;
};

/// A name behind "keyboard.", beside the single characters.
struct KeyWord {
    std::int16_t code = 0; ///< the virtual-key code that key events carry
};

/// What stands in front of a variable's name.
struct VariablePrefix {
    ValueKind kind = ValueKind::None;
};

/// "random(", what stands in front of two bounds.
struct RandomWord {
};

using Meaning = std::variant<StatementWord, Block, EventName, StatePart, ObjectWord, PropertyWord, KeyWord,
                             TestOperator, VariablePrefix, RandomWord>;

struct KnownWord {
    std::string_view text;
    Meaning meaning;
};

/// All words with all their meanings.
std::span<const KnownWord> vocabulary();

/// The meaning of that kind that a word has (any alternative of Meaning but PropertyWord), or null.
template<typename Kind> const Kind* findWord(std::string_view word);
/// The property of that name, Unknown where its owner has none.
Property findProperty(PropertyOwner owner, std::string_view name);

/// The word that means this.
std::string_view wordFor(Action action);
std::string_view wordFor(Verb verb);
std::string_view wordFor(EventName event);
std::string_view wordFor(StatePart part);
std::string_view wordFor(ObjectName object);
std::string_view wordFor(TestOperator op);

/// What can stand in one place behind a statement's word.
enum class OperandRole : std::uint8_t { Sprite, Object, Game, Value, Variable, Operator, StateName };
/// What a statement reads behind its word, word by word.
std::span<const OperandRole> rolesOf(const StatementWord& statement);

/// The usage line of a statement word ("MOVE <object>"), or an empty text. Blanks around the word, its case
/// and one "{" at its end do not matter.
std::string_view StatementHelp(std::string_view word);
