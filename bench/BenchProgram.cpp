// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "BenchProgram.h"

#include "platform/TextFile.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

std::string program(const std::vector<State>& states, std::string_view normal, std::string_view events)
{
    std::string text = "program{\nclasses{\ndot{\nnormal{\n";
    text.append(normal).append("}normal\n").append(events).append("}dot\n}classes\nstates{\n");
    for (const State& each : states)
        text += each.name + "{\ninitialize{\n" + each.initialize + "}initialize\nloop{\n" + each.loop +
                "}loop\n}" + each.name + "\n";
    text += "}states\n}program\n";
    return withProductLineEnds(std::move(text));
}

namespace
{

constexpr double fieldSpeed = 0.75;

/// The sprites that are there already have moved `frames` times when this one is made.
std::string movingSprite(int i, int frames)
{
    const bool against = i > latticeSide && i % latticeSide == latticeSide / 2;
    const double x = latticeX(i) + (against ? -fieldSpeed : fieldSpeed) * frames;
    return "create dot " + std::to_string(i) + " \"dot\" " + (against ? "180 " : "0 ") +
           std::to_string(fieldSpeed) + " " + std::to_string(x) + " " + std::to_string(latticeY(i)) + " 0\n";
}

} // namespace

std::vector<State> creationStates(int count, const std::string& loop)
{
    return creationStates(count, loop, movingSprite);
}

std::vector<State> creationStates(int count, const std::string& loop,
                                  const std::function<std::string(int sprite, int frames)>& creation)
{
    std::vector<State> states;
    int made = 0;
    while (made < count) {
        const auto frame = static_cast<int>(states.size());
        State next{frame == 0 ? "begin" : "more" + std::to_string(frame), "", ""};
        const int batch = std::min(count - made, std::max((1001 - made) / 2, 1));
        for (const int end = made + batch; made < end; ++made)
            next.initialize += creation(made, frame);
        states.push_back(next);
    }
    for (std::size_t i = 0; i < states.size(); ++i)
        states[i].initialize +=
            "setstate " + (i + 1 < states.size() ? states[i + 1].name : std::string("play")) + "\n";
    states.push_back({states.empty() ? "begin" : "play", "", loop});
    return states;
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

double Lua::number(const char* name)
{
    lua_getglobal(m_state, name);
    const double value = lua_tonumber(m_state, -1);
    lua_pop(m_state, 1);
    return value;
}

void Lua::check(int result)
{
    if (result == LUA_OK)
        return;
    std::fprintf(stderr, "lua: %s\n", lua_tostring(m_state, -1));
    std::exit(EXIT_FAILURE);
}
