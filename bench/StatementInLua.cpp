// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "StatementInLua.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <vector>

const std::string_view luaSprite = R"(
a, b, big, t = 0, 0, 1000, "play"
me = { x = 5, y = 6, z = 0, px = 5, py = 6, pz = 0, direction = 0, speed = 0.001, dx = 0.001, dy = 0,
       class = "dot", red = "False", hidden = false, square = 0 }
it = { x = 5, y = 6, z = 0, px = 5, py = 6, pz = 0, direction = 0, speed = 0.001, dx = 0.001, dy = 0,
       class = "dot", red = "False", hidden = false, square = 0 }
game = { map = "", background = "" }
mouse = {}
keyboard = { left = "False", anykey = "False" }
squares = {}
for i = 1, 25 do squares[i] = 0 end
local floor, cos, sin, rad = math.floor, math.cos, math.sin, math.rad
function place(s, x, y, z)
  s.px, s.py, s.pz = s.x, s.y, s.z
  s.x, s.y, s.z = x, y, z
  local column, row = floor((x + 100) / 40), floor((100 - y) / 40)
  if column >= 0 and column < 5 and row >= 0 and row < 5 then s.square = squares[row * 5 + column + 1] end
end
function move(s) place(s, s.x + s.dx, s.y + s.dy, s.z) end
function moveby(s, dx, dy) place(s, s.x + dx, s.y + dy, s.z) end
function moveforward(s, by) place(s, s.x + by * cos(rad(s.direction)), s.y + by * sin(rad(s.direction)), s.z) end
function unmove(s) place(s, s.px, s.py, s.pz) end
function setposition(s, x, y, z) place(s, x, y, z) end
function changeposition(s, x, y, z) place(s, s.x + x, s.y + y, s.z + z) end
function turned(s) s.dx, s.dy = s.speed * cos(rad(s.direction)), s.speed * sin(rad(s.direction)) end
function setspeed(s, speed) s.speed = speed turned(s) end
function setdirection(s, direction) s.direction = direction turned(s) end
function rebound(s)
  if s.x > 100 or s.x < -100 then setdirection(s, 180 - s.direction) end
  if s.y > 100 or s.y < -100 then setdirection(s, -s.direction) end
end
function create(class, tag, graphic, direction, speed, x, y, z)
  made = { class = class, tag = tag, graphic = graphic, direction = direction, speed = speed, x = x, y = y, z = z,
           px = x, py = y, pz = z }
  turned(made)
end
)";

const std::string_view luaCrowd = R"(
local abs = math.abs
local sprites, queue, names, first, last = {}, {}, {}, 1, 0
for i = 1, crowd do sprites[i] = { x = i * 37 % 200 - 100, y = i * 91 % 200 - 100 } end
hits = 0
local function touch(s)
  local x, y = s.x, s.y
  for i = 1, crowd do
    local o = sprites[i]
    if abs(x - o.x) < 6 and abs(y - o.y) < 6 then hits = hits + 1 end
  end
end
local place, cos, sin, rad = place, math.cos, math.sin, math.rad
function move(s) place(s, s.x + s.dx, s.y + s.dy, s.z) touch(s) end
function moveby(s, dx, dy) place(s, s.x + dx, s.y + dy, s.z) touch(s) end
function moveforward(s, by)
  place(s, s.x + by * cos(rad(s.direction)), s.y + by * sin(rad(s.direction)), s.z)
  touch(s)
end
function unmove(s) place(s, s.px, s.py, s.pz) touch(s) end
function event(name)
  last = last + 1
  queue[last], names[last] = me, name
  me, names[first], queue[first] = queue[first], nil, nil
  first = first + 1
end
)";

namespace
{

std::vector<std::string_view> wordsOf(std::string_view line)
{
    std::vector<std::string_view> words;
    for (std::size_t at = 0; (at = line.find_first_not_of(' ', at)) != std::string_view::npos;) {
        const std::size_t end = std::min(line.find(' ', at), line.size());
        words.push_back(line.substr(at, end - at));
        at = end;
    }
    return words;
}

/// Actions by their words. %1 is the first operand, the object.
const std::map<std::string_view, std::string_view> actions = {
    {"hide", "%1.hidden = true"},
    {"show", "%1.hidden = false"},
    {"destroy", "%1.destroyed = true"},
    {"undestroy", "%1.destroyed = false"},
    {"destroyall", "me.destroyed = true"},
    {"move", "move(%1)"},
    {"unmove", "unmove(%1)"},
    {"rebound", "rebound(%1)"},
    {"moveforward", "moveforward(%1, %2)"},
    {"moveleft", "moveby(%1, -%2, 0)"},
    {"moveright", "moveby(%1, %2, 0)"},
    {"moveup", "moveby(%1, 0, %2)"},
    {"movedown", "moveby(%1, 0, -%2)"},
    {"movehigher", "changeposition(%1, 0, 0, %2)"},
    {"movelower", "changeposition(%1, 0, 0, -%2)"},
    {"setposition", "setposition(%1, %2, %3, %4)"},
    {"changeposition", "changeposition(%1, %2, %3, %4)"},
    {"setspeed", "setspeed(%1, %2)"},
    {"changespeed", "setspeed(%1, %1.speed + %2)"},
    {"setdirection", "setdirection(%1, %2)"},
    {"changedirection", "setdirection(%1, %1.direction + %2)"},
    {"set", "%1 = %2"},
    {"change", "%1 = %1 + %2"},
    {"event", "event(%1)"},
    {"if", "if %1 %2 %3 then end"},
    {"create", "create(%1, %2, %3, %4, %5, %6, %7, %8)"},
    {"setstate", "state = %1"},
    {"setbackground", "%1.background = %2"},
    {"setmap", "%1.map = %2"},
    {"setmusic", "%1.music = %2"},
};

bool isNumber(std::string_view word)
{
    return word.find_first_not_of("+-.0123456789") == std::string_view::npos;
}

} // namespace

std::string StatementsInLua::operand(std::string_view word)
{
    if (word.starts_with("counter$"))
        return *m_counters.insert("c_" + std::string(word.substr(8))).first;
    if (word.starts_with("text$"))
        return *m_texts.insert("t_" + std::string(word.substr(5))).first;
    if (word.starts_with("random(")) {
        const std::size_t comma = word.find(',');
        const std::string_view low = word.substr(7, comma - 7);
        const std::string_view high = word.substr(comma + 1, word.size() - comma - 2);
        // Lua's takes whole numbers only.
        return isNumber(low) && isNumber(high) && word.find('.') == std::string_view::npos
                   ? "math.random(" + std::string(low) + ", " + std::string(high) + ")"
                   : "math.random()";
    }
    if (word == "=")
        return "==";
    if (word == "!=")
        return "~=";
    if (word == "me" || word == "it" || word == "game" || word.starts_with("\"") || isNumber(word) ||
        word.find_first_of(".<>") != std::string_view::npos)
        return isNumber(word) && word.starts_with("-") ? "(" + std::string(word) + ")" : std::string(word);
    return "\"" + std::string(word) + "\""; // a class or a state
}

void StatementsInLua::add(std::string_view statement)
{
    const std::vector<std::string_view> words = wordsOf(statement);
    const auto action = words.empty() ? actions.end() : actions.find(words.front());
    if (action == actions.end()) {
        std::fprintf(stderr, "no Lua for: %s\n", std::string(statement).c_str());
        std::exit(EXIT_FAILURE);
    }
    const std::string_view form = action->second;
    for (std::size_t i = 0; i < form.size(); ++i)
        if (form[i] == '%')
            m_body += operand(words.at(static_cast<std::size_t>(form[++i] - '0')));
        else
            m_body += form[i];
    m_body += '\n';
}

std::string StatementsInLua::chunk() const
{
    std::string text;
    for (const std::string& counter : m_counters)
        text += counter + " = 0\n";
    for (const std::string& each : m_texts)
        text += each + " = \"\"\n";
    return text + "function frame()\n" + m_body + "end\n";
}
