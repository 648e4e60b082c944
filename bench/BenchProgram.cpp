// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "BenchProgram.h"

#include "platform/TextFile.h"

#include <cstdio>
#include <cstdlib>

std::string program(const std::vector<State>& states, std::string_view normal)
{
    std::string text = "program{\nclasses{\ndot{\nnormal{\n";
    text.append(normal).append("}normal\n}dot\n}classes\nstates{\n");
    for (const State& each : states)
        text += each.name + "{\ninitialize{\n" + each.initialize + "}initialize\nloop{\n" + each.loop +
                "}loop\n}" + each.name + "\n";
    text += "}states\n}program\n";
    return withProductLineEnds(std::move(text));
}

std::string repeat(std::string_view text, int times)
{
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

Lua::Lua(const std::string& chunk)
    : m_state(luaL_newstate())
{
    luaL_openlibs(m_state);
    check(luaL_loadstring(m_state, chunk.c_str()));
    check(lua_pcall(m_state, 0, 0, 0));
}

void Lua::call(const char* function)
{
    lua_getglobal(m_state, function);
    check(lua_pcall(m_state, 0, 0, 0));
}

void Lua::check(int result)
{
    if (result == LUA_OK)
        return;
    std::fprintf(stderr, "lua: %s\n", lua_tostring(m_state, -1));
    std::exit(EXIT_FAILURE);
}
