#include "runtime/ZB.h"

#include "platform/TextFile.h"

#include <algorithm>
#include <array>

namespace
{

struct Usage {
    std::string_view word;
    std::string_view line;
};

// clang-format off
constexpr auto usages = std::to_array<Usage>({
    {"move",            "MOVE <object>"},
    {"create",          "CREATE <class> <tag> <sprite-graphic> <direction> <speed> <x> <y> <z>"},
    {"moveleft",        "MOVELEFT <object> <amount>"},
    {"moveright",       "MOVERIGHT <object> <amount>"},
    {"moveup",          "MOVEUP <object> <amount>"},
    {"movedown",        "MOVEDOWN <object> <amount>"},
    {"moveforward",     "MOVEFORWARD <object> <amount>"},
    {"movehigher",      "MOVEHIGHER <object> <amount>"},
    {"movelower",       "MOVELOWER <object> <amount>"},
    {"changedirection", "CHANGEDIRECTION <object> <angle>"},
    {"changeposition",  "CHANGEPOSITION <object> <x> <y> <z>"},
    {"setspeed",        "SETSPEED <object> <speed>"},
    {"changespeed",     "CHANGESPEED <object> <amount>"},
    {"setposition",     "SETPOSITION <object> <x> <y> <z>"},
    {"setdirection",    "SETDIRECTION <object> <angle>"},
    {"rebound",         "REBOUND <object 1> <object 2>"},
    {"hide",            "HIDE <object>"},
    {"show",            "SHOW <object>"},
    {"destroy",         "DESTROY <object>"},
    {"destroyall",      "DESTROYALL (no arguments)"},
    {"setbackground",   "SETBACKGROUND game <picture name>"},
    {"setmap",          "SETMAP game <map name>"},
    {"setmusic",        "SETMUSIC game <music name>"},
    {"unmove",          "UNMOVE <object>"},
    {"setstate",        "SETSTATE <newstate>"},
    {"if",              "IF <A> <op> <B> { ... }ELSE{ ... }IF"},
    {"change",          "CHANGE <variable> <delta>"},
    {"set",             "SET <variable> <value>"},
    {"pause",           "PAUSE"},
});
// clang-format on

} // namespace

std::string_view StatementHelp(std::string_view word)
{
    if (word.size() >= 2 && word.ends_with('{'))
        word.remove_suffix(1);
    while (word.starts_with(' '))
        word.remove_prefix(1);
    while (word.ends_with(' '))
        word.remove_suffix(1);
    const std::string wanted = lowerCase(word);
    const auto* row = std::ranges::find(usages, wanted, &Usage::word);
    return row != usages.end() ? row->line : std::string_view();
}
