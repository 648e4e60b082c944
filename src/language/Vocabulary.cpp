// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/Vocabulary.h"

#include "platform/NumberText.h"
#include "platform/TextFile.h"

#include <algorithm>
#include <array>
#include <bit>

namespace
{

// Rows of the table
// ----------------------------------------------------------------------------------------------------------

constexpr KnownWord action(std::string_view word, Action action, Operands operands, std::string_view usage)
{
    return {word, StatementWord{StatementType::Action, ActionForm{action, operands}, usage}};
}

constexpr KnownWord mutation(std::string_view word, Verb verb, std::string_view usage)
{
    return {word, StatementWord{StatementType::Mutate, verb, usage}};
}

constexpr KnownWord statement(std::string_view word, StatementType type, std::string_view usage)
{
    return {word, StatementWord{type, {}, usage}};
}

constexpr KnownWord ofSprite(std::string_view word, Property property)
{
    return {word, PropertyWord{PropertyOwner::Sprite, property}};
}

constexpr KnownWord ofGame(std::string_view word, Property property)
{
    return {word, PropertyWord{PropertyOwner::Game, property}};
}

// clang-format off
constexpr auto table = std::to_array<KnownWord>({
    statement("create", StatementType::Create, "CREATE <class> <tag> <sprite-graphic> <direction> <speed> <x> <y> <z>"),
    action("destroy",         Action::Destroy,         Operands::Sprite,         "DESTROY <object>"),
    action("undestroy",       Action::Undestroy,       Operands::Sprite,         ""),
    action("destroyall",      Action::DestroyAll,      Operands::None,           "DESTROYALL (no arguments)"),
    action("hide",            Action::Hide,            Operands::Sprite,         "HIDE <object>"),
    action("show",            Action::Show,            Operands::Sprite,         "SHOW <object>"),
    action("move",            Action::Move,            Operands::Sprite,         "MOVE <object>"),
    action("moveforward",     Action::MoveForward,     Operands::SpriteAndValue, "MOVEFORWARD <object> <amount>"),
    action("moveleft",        Action::MoveLeft,        Operands::SpriteAndValue, "MOVELEFT <object> <amount>"),
    action("moveright",       Action::MoveRight,       Operands::SpriteAndValue, "MOVERIGHT <object> <amount>"),
    action("moveup",          Action::MoveUp,          Operands::SpriteAndValue, "MOVEUP <object> <amount>"),
    action("movedown",        Action::MoveDown,        Operands::SpriteAndValue, "MOVEDOWN <object> <amount>"),
    action("movehigher",      Action::MoveHigher,      Operands::SpriteAndValue, "MOVEHIGHER <object> <amount>"),
    action("movelower",       Action::MoveLower,       Operands::SpriteAndValue, "MOVELOWER <object> <amount>"),
    action("setposition",     Action::SetPosition,     Operands::SpriteAndPlace, "SETPOSITION <object> <x> <y> <z>"),
    action("changeposition",  Action::ChangePosition,  Operands::SpriteAndPlace, "CHANGEPOSITION <object> <x> <y> <z>"),
    action("unmove",          Action::Unmove,          Operands::Sprite,         "UNMOVE <object>"),
    action("rebound",         Action::Rebound,         Operands::TwoObjects,     "REBOUND <object 1> <object 2>"),
    action("setdirection",    Action::SetDirection,    Operands::SpriteAndValue, "SETDIRECTION <object> <angle>"),
    action("changedirection", Action::ChangeDirection, Operands::SpriteAndValue, "CHANGEDIRECTION <object> <angle>"),
    action("setspeed",        Action::SetSpeed,        Operands::SpriteAndValue, "SETSPEED <object> <speed>"),
    action("changespeed",     Action::ChangeSpeed,     Operands::SpriteAndValue, "CHANGESPEED <object> <amount>"),
    action("setbackground",   Action::SetBackground,   Operands::GameAndValue,   "SETBACKGROUND game <picture name>"),
    action("setmap",          Action::SetMap,          Operands::GameAndValue,   "SETMAP game <map name>"),
    action("setmusic",        Action::SetMusic,        Operands::GameAndValue,   "SETMUSIC game <music name>"),
    statement("setstate", StatementType::SetState, "SETSTATE <newstate>"),
    mutation("set",    Verb::Set,    "SET <variable> <value>"),
    mutation("change", Verb::Change, "CHANGE <variable> <delta>"),
    statement("if",    StatementType::If,    "IF <A> <op> <B> { ... }ELSE{ ... }IF"),
    statement("pause", StatementType::Pause, "PAUSE"),

    {"program", Block::Program},
    {"classes", Block::Classes},
    {"states",  Block::States},
    {"else",    Block::Else},

    {"normal",    EventName::Normal},
    {"collision", EventName::Collision},
    {"mapchange", EventName::MapChange},
    {"create",    EventName::Create},
    {"destroy",   EventName::Destroy},

    {"initialize", StatePart::Initialize},
    {"loop",       StatePart::Loop},

    {"me",       ObjectWord{ObjectName::Me, PropertyOwner::Sprite}},
    {"it",       ObjectWord{ObjectName::It, PropertyOwner::Sprite}},
    {"game",     ObjectWord{ObjectName::Game, PropertyOwner::Game}},
    {"keyboard", ObjectWord{ObjectName::Keyboard, PropertyOwner::Keyboard}},
    {"mouse",    ObjectWord{ObjectName::Mouse, PropertyOwner::Nobody}},
    {"joystick", ObjectWord{ObjectName::Joystick, PropertyOwner::Nobody}},

    ofSprite("x", Property::X),
    ofSprite("y", Property::Y),
    ofSprite("z", Property::Z),
    ofSprite("speed", Property::Speed),
    ofSprite("class", Property::Class),
    ofSprite("red", Property::Red),
    ofSprite("orange", Property::Orange),
    ofSprite("yellow", Property::Yellow),
    ofSprite("green", Property::Green),
    ofSprite("cyan", Property::Cyan),
    ofSprite("blue", Property::Blue),
    ofSprite("purple", Property::Purple),
    ofGame("background", Property::Background),
    ofGame("music", Property::Music),
    ofGame("map", Property::Map),
    {"anykey", PropertyWord{PropertyOwner::Keyboard, Property::AnyKey}},

    {"space", KeyWord{32}},
    {"left",  KeyWord{37}},
    {"up",    KeyWord{38}},
    {"right", KeyWord{39}},
    {"down",  KeyWord{40}},

    {"=",  TestOperator::Equal},
    {"!=", TestOperator::NotEqual},
    {"<",  TestOperator::Less},
    {">",  TestOperator::Greater},
    {"<=", TestOperator::LessOrEqual},
    {">=", TestOperator::GreaterOrEqual},

    {"counter$", VariablePrefix{ValueKind::Counter}},
    {"text$",    VariablePrefix{ValueKind::Text}},
    {"random(",  RandomWord{}},
});
// clang-format on

// What is made of the table while this is compiled
// ----------------------------------------------------------------------------------------------------------

template<typename Kind> struct Row {
    std::string_view word;
    Kind meaning;
};

template<typename Kind> consteval std::size_t rowCount()
{
    std::size_t count = 0;
    for (const KnownWord& word : table)
        count += std::holds_alternative<Kind>(word.meaning) ? 1U : 0U;
    return count;
}

/// What most words of one kind differ in: their length, their first, their middle and their last letter.
constexpr std::uint32_t shapeOf(std::string_view word)
{
    const auto letter = [&](std::size_t at) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(word[at]));
    };
    return static_cast<std::uint32_t>(word.size()) | letter(0) << 8U | letter(word.size() / 2) << 16U |
           letter(word.size() - 1) << 24U;
}

/// The rows of one kind with a perfect hash of their words: a factor, found while this is compiled, that
/// brings the shape of each to a slot of its own. So a word is looked for in one place.
template<typename Kind> struct WordIndex {
    /// With so much room a factor is found in a few dozen attempts.
    static constexpr std::size_t bits = std::bit_width(rowCount<Kind>() * 4);
    static constexpr std::uint8_t none = 255;
    std::array<Row<Kind>, rowCount<Kind>()> rows{};
    std::array<std::uint8_t, std::size_t{1} << bits> rowAt{};
    std::uint32_t factor = 1;

    consteval WordIndex()
    {
        std::size_t next = 0;
        for (const KnownWord& word : table)
            if (const Kind* meaning = std::get_if<Kind>(&word.meaning))
                rows[next++] = {word.text, *meaning};
        while (!takesPlaces())
            factor = factor * 1664525U + 1013904223U;
    }

    constexpr const Kind* find(std::string_view word) const
    {
        if (word.empty())
            return nullptr;
        const std::uint8_t row = rowAt[slotOf(word)];
        return row != none && rows[row].word == word ? &rows[row].meaning : nullptr;
    }

private:
    constexpr std::size_t slotOf(std::string_view word) const
    {
        return (shapeOf(word) * factor) >> (32U - bits);
    }

    constexpr bool takesPlaces()
    {
        rowAt.fill(none);
        for (std::size_t row = 0; row < rows.size(); ++row) {
            std::uint8_t& place = rowAt[slotOf(rows[row].word)];
            if (place != none)
                return false;
            place = static_cast<std::uint8_t>(row);
        }
        return true;
    }
};
template<typename Kind> constexpr WordIndex<Kind> indexOf;

/// The words of one kind by the number of what they mean. Not compiled where two words mean the same or a
/// meaning has no word.
template<typename Kind, std::size_t count, typename ValueOf> consteval auto wordsByMeaning(ValueOf valueOf)
{
    std::array<std::string_view, count> words{};
    for (const KnownWord& word : table) {
        const Kind* meaning = std::get_if<Kind>(&word.meaning);
        const auto value = meaning ? valueOf(*meaning) : std::nullopt;
        if (!value)
            continue;
        std::string_view& place = words.at(static_cast<std::size_t>(*value));
        if (!place.empty())
            throw "two words mean the same";
        place = word.text;
    }
    if (std::ranges::any_of(words, &std::string_view::empty))
        throw "a meaning has no word";
    return words;
}

constexpr auto itself = [](auto value) { return std::optional(value); };
constexpr auto actionOf = [](const StatementWord& statement) {
    const auto* form = std::get_if<ActionForm>(&statement.what);
    return form ? std::optional(form->action) : std::nullopt;
};
constexpr auto verbOf = [](const StatementWord& statement) {
    const auto* verb = std::get_if<Verb>(&statement.what);
    return verb ? std::optional(*verb) : std::nullopt;
};

constexpr auto actionWords =
    wordsByMeaning<StatementWord, static_cast<std::size_t>(Action::Unmove) + 1>(actionOf);
constexpr auto verbWords = wordsByMeaning<StatementWord, static_cast<std::size_t>(Verb::Change) + 1>(verbOf);
constexpr auto eventWords = wordsByMeaning<EventName, eventNameCount>(itself);
constexpr auto partWords = wordsByMeaning<StatePart, statePartCount>(itself);
constexpr auto objectWords = wordsByMeaning<ObjectWord, static_cast<std::size_t>(ObjectName::Joystick) + 1>(
    [](const ObjectWord& object) { return std::optional(object.name); });
constexpr auto operatorWords =
    wordsByMeaning<TestOperator, static_cast<std::size_t>(TestOperator::GreaterOrEqual) + 1>(itself);

template<typename Words, typename Kind> std::string_view lookUp(const Words& words, Kind meaning)
{
    return words[static_cast<std::size_t>(meaning)];
}

using enum OperandRole;
constexpr std::array testRoles = {Value, Operator, Value};
constexpr std::array mutationRoles = {Variable, Value};
constexpr std::array stateRoles = {StateName};
constexpr std::array createRoles = {Value, Value, Value, Value, Value, Value, Value, Value};
constexpr std::array placeRoles = {Sprite, Value, Value, Value};
constexpr std::array reboundRoles = {Object, Object};
constexpr std::array gameRoles = {Game, Value};

std::span<const OperandRole> rolesOf(Operands operands)
{
    switch (operands) {
    case Operands::None:
        break;
    case Operands::Sprite:
        return std::span(placeRoles).first<1>();
    case Operands::SpriteAndValue:
        return std::span(placeRoles).first<2>();
    case Operands::SpriteAndPlace:
        return placeRoles;
    case Operands::TwoObjects:
        return reboundRoles;
    case Operands::GameAndValue:
        return gameRoles;
    }
    return {};
}

} // namespace

std::span<const KnownWord> vocabulary()
{
    return table;
}

template<typename Kind> const Kind* findWord(std::string_view word)
{
    return indexOf<Kind>.find(word);
}
template const StatementWord* findWord(std::string_view);
template const Block* findWord(std::string_view);
template const EventName* findWord(std::string_view);
template const StatePart* findWord(std::string_view);
template const ObjectWord* findWord(std::string_view);
template const KeyWord* findWord(std::string_view);
template const TestOperator* findWord(std::string_view);
template const VariablePrefix* findWord(std::string_view);
template const RandomWord* findWord(std::string_view);

Property findProperty(PropertyOwner owner, std::string_view name)
{
    const auto* found = indexOf<PropertyWord>.find(name);
    return found && found->owner == owner ? found->property : Property::Unknown;
}

std::string_view wordFor(Action action)
{
    return lookUp(actionWords, action);
}

std::string_view wordFor(Verb verb)
{
    return lookUp(verbWords, verb);
}

std::string_view wordFor(EventName event)
{
    return lookUp(eventWords, event);
}

std::string_view wordFor(StatePart part)
{
    return lookUp(partWords, part);
}

std::string_view wordFor(ObjectName object)
{
    return lookUp(objectWords, object);
}

std::string_view wordFor(TestOperator op)
{
    return lookUp(operatorWords, op);
}

std::span<const OperandRole> rolesOf(const StatementWord& statement)
{
    switch (statement.type) {
    case StatementType::If:
        return testRoles;
    case StatementType::Mutate:
        return mutationRoles;
    case StatementType::SetState:
        return stateRoles;
    case StatementType::Create:
        return createRoles;
    case StatementType::Action:
        return rolesOf(std::get<ActionForm>(statement.what).operands);
    case StatementType::Pause:
        break;
    }
    return {};
}

std::string_view StatementHelp(std::string_view word)
{
    if (word.size() >= 2 && word.ends_with('{'))
        word.remove_suffix(1);
    const auto* statement = findWord<StatementWord>(lowerCase(trimSpaces(word)));
    return statement ? statement->usage : std::string_view();
}
