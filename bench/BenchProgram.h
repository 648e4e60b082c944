// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <lua.hpp>

#include <functional>
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

/// A program with the given states and one class "dot", whose sprites run `normal` in each frame. `events`
/// are further event blocks of the class.
std::string program(const std::vector<State>& states, std::string_view normal = "",
                    std::string_view events = "");

// Sprites stand on a lattice just wide enough that they do not touch. It fits the field once around: rows
// that move sideways and come back on the other side stay what they are.
inline constexpr int latticeSide = 33;
inline constexpr double latticeStep = 200.0 / latticeSide;
inline double latticeX(int i)
{
    return 97 - latticeStep * (i % latticeSide);
}
inline double latticeY(int i)
{
    return -97 + latticeStep * (i / latticeSide % latticeSide);
}

/// States that make `count` sprites, no more at a time than the event queue takes, and end in the state
/// "play". All move to the right, the foremost first, but in each row above the first one moves against the
/// others and hits them: so many that there is work, so few that the queue never fills, however long it goes
/// on.
std::vector<State> creationStates(int count, const std::string& loop);
/// The same with a statement of one's own for each sprite; it may depend on how many frames have gone by.
std::vector<State> creationStates(int count, const std::string& loop,
                                  const std::function<std::string(int sprite, int frames)>& creation);

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
    /// A global number.
    double number(const char* name);

private:
    void check(int result);

    lua_State* m_state;
};
