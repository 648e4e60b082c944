// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <lua.hpp>

#include <string>
#include <string_view>
#include <vector>

// Programs to measure, and the peer that they are measured beside.

/// One state of a program.
struct State {
    std::string name;
    std::string initialize;
    std::string loop;
};

/// A program with the given states and one class "dot", whose sprites run `normal` in each frame.
std::string program(const std::vector<State>& states, std::string_view normal = "");

std::string repeat(std::string_view text, int times);

/// A Lua state with the standard library and a compiled chunk that has been run. Ends the process with a
/// message where Lua finds a mistake.
class Lua
{
public:
    explicit Lua(const std::string& chunk);
    ~Lua() { lua_close(m_state); }
    Lua(const Lua&) = delete;
    Lua& operator=(const Lua&) = delete;

    /// Calls a function of the chunk without arguments.
    void call(const char* function);

private:
    void check(int result);

    lua_State* m_state;
};
