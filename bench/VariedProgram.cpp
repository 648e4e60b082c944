// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "VariedProgram.h"

#include "platform/TextFile.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace
{

constexpr int names = 300;
constexpr int deepest = 3;       // if in if in if
constexpr int linesOfBlock = 40; // of a class's event
constexpr std::array<std::string_view, 6> words = {"play", "left", "waiting", "yes", "goldendoor", "no"};
constexpr std::array<std::string_view, 4> properties = {"me.x", "me.y", "me.z", "me.speed"};
constexpr std::array<std::string_view, 4> keys = {"left", "right", "up", "space"};

class Writer
{
public:
    void write(int lines)
    {
        open("PROGRAM{");
        open("CLASSES{");
        for (int number = 0; m_lines < lines - 12; ++number)
            classBlock("Thing" + std::to_string(number), lines - 12);
        close("}CLASSES");
        open("STATES{");
        open("begin{");
        open("LOOP{");
        close("}LOOP");
        close("}begin");
        close("}STATES");
        close("}PROGRAM");
    }
    VariedProgram take() { return {withProductLineEnds(std::move(m_zorbino)), std::move(m_lua)}; }

private:
    int random(int count)
    {
        m_random = m_random * 6364136223846793005U + 1442695040888963407U;
        return static_cast<int>((m_random >> 33U) % static_cast<std::uint64_t>(count));
    }
    template<typename List> std::string oneOf(const List& list)
    {
        return std::string(list[static_cast<std::size_t>(random(static_cast<int>(list.size())))]);
    }
    std::string number() { return std::to_string(random(200) - 100); }
    std::string name() { return "name" + std::to_string(random(names)); }

    void zorbino(const std::string& text)
    {
        m_zorbino.append(static_cast<std::size_t>(2 * m_depth), ' ').append(text).append("\n");
        ++m_lines;
    }
    void both(const std::string& text, const std::string& lua)
    {
        zorbino(text);
        m_lua.append(static_cast<std::size_t>(2 * m_depth), ' ').append(lua).append("\n");
    }
    void open(const std::string& text)
    {
        zorbino(text);
        ++m_depth;
    }
    void close(const std::string& text)
    {
        --m_depth;
        zorbino(text);
    }

    void classBlock(const std::string& className, int lines)
    {
        m_class = className;
        open(className + "{");
        for (const char* event : {"NORMAL", "COLLISION"}) {
            both(std::string(event) + "{", "function " + className + event + "()");
            ++m_depth;
            for (const int end = std::min(m_lines + linesOfBlock, lines); m_lines < end;)
                statement(0);
            --m_depth;
            both("}" + std::string(event), "end");
        }
        close("}" + className);
    }

    void statement(int depth)
    {
        const int kind = random(100);
        if (kind < 25 && depth < deepest)
            choice(depth);
        else if (kind < 50)
            variable();
        else if (kind < 80)
            action();
        else if (kind < 85)
            creation();
        else if (kind < 93)
            both("; a note for those who read this", "-- a note for those who read this");
        else
            both("", "");
    }

    void choice(int depth)
    {
        condition();
        ++m_depth;
        statement(depth + 1);
        statement(depth + 1);
        --m_depth;
        if (random(2) == 0) {
            both("}ELSE{", "else");
            ++m_depth;
            statement(depth + 1);
            --m_depth;
        }
        both("}IF", "end");
    }

    void condition()
    {
        const std::string of = name();
        const std::string value = number();
        const std::string word = oneOf(words);
        const std::string property = oneOf(properties);
        const std::string key = oneOf(keys);
        switch (random(4)) {
        case 0:
            return both("IF counter$" + of + " = " + value + " {", "if " + of + " == " + value + " then");
        case 1:
            return both("IF text$" + of + " != \"" + word + "\" {",
                        "if t" + of + " ~= \"" + word + "\" then");
        case 2:
            return both("IF " + property + " > " + value + " {", "if " + property + " > " + value + " then");
        default:
            return both("IF keyboard." + key + " = \"true\" {", "if keyboard." + key + " == \"true\" then");
        }
    }

    void variable()
    {
        const std::string of = name();
        const std::string other = name();
        const std::string value = number();
        const std::string word = oneOf(words);
        const std::string property = oneOf(properties);
        switch (random(5)) {
        case 0:
            return both("SET counter$" + of + " " + value, of + " = " + value);
        case 1:
            return both("SET text$" + of + " \"" + word + "\"", "t" + of + " = \"" + word + "\"");
        case 2:
            return both("SET counter$" + of + " " + property, of + " = " + property);
        case 3:
            return both("CHANGE counter$" + of + " counter$" + other, of + " = " + of + " + " + other);
        default:
            return both("CHANGE counter$" + of + " " + value, of + " = " + of + " + " + value);
        }
    }

    void action()
    {
        const std::string value = number();
        switch (random(6)) {
        case 0:
            return both("MOVE me", "move(me)");
        case 1:
            return both("HIDE me", "hide(me)");
        case 2:
            return both("MOVELEFT me " + value, "moveleft(me, " + value + ")");
        case 3:
            return both("SETDIRECTION me random(0,359)", "setdirection(me, math.random(0, 359))");
        case 4:
            return both("REBOUND me game", "rebound(me, game)");
        default:
            return both("CHANGESPEED me " + value, "changespeed(me, " + value + ")");
        }
    }

    void creation()
    {
        const std::string tag = oneOf(words);
        const std::string x = number();
        const std::string y = number();
        both("CREATE " + m_class + " \"" + tag + "\" \"ball\" random(0,90) 3.5 " + x + " " + y + " 0",
             "create(" + m_class + ", \"" + tag + "\", \"ball\", math.random(0, 90), 3.5, " + x + ", " + y +
                 ", 0)");
    }

    std::string m_zorbino;
    std::string m_lua;
    std::string m_class;
    std::uint64_t m_random = 1;
    int m_lines = 0;
    int m_depth = 0;
};

} // namespace

VariedProgram variedProgram(int lines)
{
    Writer writer;
    writer.write(lines);
    return writer.take();
}
