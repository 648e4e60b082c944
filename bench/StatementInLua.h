// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <set>
#include <string>
#include <string_view>

/// What a sprite does in the kit, done in Lua: the place before, the map square under it, the motion's parts.
/// With some globals.
extern const std::string_view luaSprite;

/// Behind luaSprite, with a global "crowd": so many sprites that those that move look whom they hit, and a
/// queue of events that bind the sprite whose turn it is.
extern const std::string_view luaCrowd;

/// Executed statements as Lua with globals, one behind the other.
class StatementsInLua
{
public:
    /// A statement as the history shows it. Of an if it is the test: what ran in it follows by itself.
    /// "event" and its name is the beginning of an event.
    void add(std::string_view statement);
    /// Sets the variables and has a function "frame" that runs the statements.
    std::string chunk() const;

private:
    std::string operand(std::string_view word);

    std::string m_body;
    std::set<std::string> m_counters;
    std::set<std::string> m_texts;
};
