#include "language/StatementWords.h"

#include "language/ZBLCreateExp.h"
#include "language/ZBLDebugExp.h"
#include "language/ZBLIfExp.h"
#include "language/ZBLMethodExp.h"
#include "language/ZBLMutateExp.h"
#include "language/ZBLSetStateExp.h"

#include <algorithm>
#include <array>

namespace
{

// clang-format off
constexpr auto actionWords = std::to_array<ActionWord>({
    {"changedirection", Action::ChangeDirection, Operands::SpriteAndValue},
    {"changeposition",  Action::ChangePosition,  Operands::SpriteAndPlace},
    {"changespeed",     Action::ChangeSpeed,     Operands::SpriteAndValue},
    {"destroy",         Action::Destroy,         Operands::Sprite},
    {"destroyall",      Action::DestroyAll,      Operands::None},
    {"hide",            Action::Hide,            Operands::Sprite},
    {"move",            Action::Move,            Operands::Sprite},
    {"movedown",        Action::MoveDown,        Operands::SpriteAndValue},
    {"moveforward",     Action::MoveForward,     Operands::SpriteAndValue},
    {"movehigher",      Action::MoveHigher,      Operands::SpriteAndValue},
    {"moveleft",        Action::MoveLeft,        Operands::SpriteAndValue},
    {"movelower",       Action::MoveLower,       Operands::SpriteAndValue},
    {"moveright",       Action::MoveRight,       Operands::SpriteAndValue},
    {"moveup",          Action::MoveUp,          Operands::SpriteAndValue},
    {"rebound",         Action::Rebound,         Operands::TwoObjects},
    {"setbackground",   Action::SetBackground,   Operands::GameAndValue},
    {"setdirection",    Action::SetDirection,    Operands::SpriteAndValue},
    {"setmap",          Action::SetMap,          Operands::GameAndValue},
    {"setmusic",        Action::SetMusic,        Operands::GameAndValue},
    {"setposition",     Action::SetPosition,     Operands::SpriteAndPlace},
    {"setspeed",        Action::SetSpeed,        Operands::SpriteAndValue},
    {"show",            Action::Show,            Operands::Sprite},
    {"undestroy",       Action::Undestroy,       Operands::Sprite},
    {"unmove",          Action::Unmove,          Operands::Sprite},
});
// clang-format on
static_assert(std::ranges::is_sorted(actionWords, {}, &ActionWord::word), "findActionWord halves the table");

} // namespace

const ActionWord* findActionWord(std::string_view word)
{
    const auto* row = std::ranges::lower_bound(actionWords, word, {}, &ActionWord::word);
    return row != actionWords.end() && row->word == word ? row : nullptr;
}

std::unique_ptr<ZBLStatement> makeStatement(std::string_view word)
{
    if (word == "if")
        return std::make_unique<ZBLIfExp>();
    if (word == "set" || word == "change")
        return std::make_unique<ZBLMutateExp>();
    if (word == "create")
        return std::make_unique<ZBLCreateExp>();
    if (word == "setstate")
        return std::make_unique<ZBLSetStateExp>();
    if (word == "pause")
        return std::make_unique<ZBLDebugExp>();
    if (findActionWord(word))
        return std::make_unique<ZBLMethodExp>();
    return nullptr;
}
