// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "BenchGame.h"
#include "BenchProgram.h"
#include "StatementInLua.h"

#include <benchmark/benchmark.h>

#include <array>
#include <string>

// Each form of a statement apart, beside Lua with globals and a table for the sprite. A form is written many
// times behind each other in the block of one sprite, so that what a frame costs besides is shared by many.

namespace
{

constexpr int copies = 400;

struct Form {
    const char* name;
    const char* statement; ///< of the sprite's NORMAL block
    const char* lua;
};

constexpr auto forms = std::to_array<Form>({
    {"set_counter_number", "set counter$a 7\n", "a = 7\n"},
    {"set_counter_counter", "set counter$a counter$b\n", "a = b\n"},
    {"set_counter_property", "set counter$a me.x\n", "a = me.x\n"},
    {"set_counter_random", "set counter$a random(1,6)\n", "a = math.random(1, 6)\n"},
    {"set_text", "set text$t \"play\"\n", "t = \"play\"\n"},
    {"change_number", "change counter$a 1\n", "a = a + 1\n"},
    {"change_counter", "change counter$a counter$b\n", "a = a + b\n"},
    {"change_property", "change counter$a me.y\n", "a = a + me.y\n"},
    {"if_counter_number", "if counter$a > 1e300 {\n}if\n", "if a > 1e300 then end\n"},
    {"if_counter_counter", "if counter$a < counter$b {\n}if\n", "if a < b then end\n"},
    {"if_text", "if text$t = \"left\" {\n}if\n", "if t == \"left\" then end\n"},
    {"if_property_number", "if me.x > 99 {\n}if\n", "if me.x > 99 then end\n"},
    {"if_property_counter", "if me.x > counter$big {\n}if\n", "if me.x > big then end\n"},
    {"if_property_property", "if me.x > me.y {\n}if\n", "if me.x > me.y then end\n"},
    {"if_random", "if random(1,6) = 7 {\n}if\n", "if math.random(1, 6) == 7 then end\n"},
    {"if_class", "if me.class = ball {\n}if\n", "if me.class == \"ball\" then end\n"},
    {"if_color", "if me.red = \"true\" {\n}if\n", "if me.red == \"true\" then end\n"},
    {"if_key", "if keyboard.left = \"true\" {\n}if\n", "if keyboard.left == \"true\" then end\n"},
    {"if_any_key", "if keyboard.anykey = \"true\" {\n}if\n", "if keyboard.anykey == \"true\" then end\n"},
    {"hide", "hide me\n", "me.hidden = true\n"},
    {"hide_show", "hide me\nshow me\n", "me.hidden = true\nme.hidden = false\n"},
    {"move", "move me\n", "move(me)\n"},
    {"moveforward", "moveforward me 0.001\n", "moveforward(me, 0.001)\n"},
    {"moveleft", "moveleft me 0.001\n", "moveby(me, -0.001, 0)\n"},
    {"moveup", "moveup me counter$b\n", "moveby(me, 0, b)\n"},
    {"unmove", "unmove me\n", "unmove(me)\n"},
    {"setposition", "setposition me 5 6 0\n", "setposition(me, 5, 6, 0)\n"},
    {"changeposition", "changeposition me 0.001 0 0\n", "changeposition(me, 0.001, 0, 0)\n"},
    {"setspeed", "setspeed me 0.001\n", "setspeed(me, 0.001)\n"},
    {"changespeed", "changespeed me 0\n", "setspeed(me, me.speed + 0)\n"},
    {"setdirection", "setdirection me 37\n", "setdirection(me, 37)\n"},
    {"changedirection", "changedirection me 15\n", "setdirection(me, me.direction + 15)\n"},
    {"rebound", "rebound me game\n", "rebound(me)\n"},
});

void formInZorbino(benchmark::State& state, const Form& form)
{
    BenchGame game;
    game.start(program({{"begin",
                         "set counter$a 0\nset counter$b 0\nset counter$big 1000\nset text$t \"play\"\n"
                         "create dot 0 \"dot\" 0 0.001 5 6 0\n",
                         ""}},
                       repeat(form.statement, copies)),
               RunKind::Plain);
    for (auto _ : state)
        game.frame();
    state.SetItemsProcessed(state.iterations() * copies);
}

void formInLua(benchmark::State& state, const Form& form)
{
    Lua lua(std::string(luaSprite) + "function frame()\n" + repeat(form.lua, copies) + "end\n");
    for (auto _ : state)
        lua.call("frame");
    state.SetItemsProcessed(state.iterations() * copies);
}

const bool registered = [] {
    for (const Form& form : forms) {
        const std::string name = std::string("Form/") + form.name;
        benchmark::RegisterBenchmark((name + "_Lua").c_str(), formInLua, form);
        benchmark::RegisterBenchmark((name + "_Zorbino").c_str(), formInZorbino, form);
    }
    return true;
}();

} // namespace
