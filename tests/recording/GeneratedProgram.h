// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Random.h"

#include <array>
#include <cstdint>
#include <string>

/// A program that does a bit of everything, by chance, and makes no mistake: for the pictures of the first
/// bundled game. Another seed, another program.
class GeneratedProgram
{
public:
    explicit GeneratedProgram(std::uint64_t seed)
        : m_chance(seed)
    {
    }

    std::string text()
    {
        std::string text = "program{\nclasses{\n";
        for (const char* name : {"ball", "star", "cloud"})
            text += classText(name);
        text += "}classes\nstates{\n";
        const std::string zero = "set counter$a 1\nset counter$b 2\nset counter$c 3\nset counter$born 0\n"
                                 "set text$t \"none\"\n";
        text += stateText("begin", zero, "play");
        text += stateText("play", "change counter$c 1\n", "begin");
        return text + "}states\n}program\n";
    }

private:
    template<std::size_t count> std::string oneOf(const std::array<const char*, count>& choices)
    {
        return choices[static_cast<std::size_t>(m_chance.below(count))];
    }

    // One call a statement: the order of those in one is the compiler's choice.
    std::string classText(const std::string& name)
    {
        std::string text = name + "{\nnormal{\n";
        if (m_chance.below(4) != 0)
            text += "move me\nrebound me game\n";
        text += statements(4, true);
        text += "}normal\ncollision{\n";
        text += statements(3);
        text += "}collision\ncreate{\n";
        text += statements(2);
        text += "}create\ndestroy{\nchange counter$born -1\n";
        text += variable();
        return text + "}destroy\n}" + name + "\n";
    }

    std::string stateText(const std::string& name, const std::string& first, const std::string& next)
    {
        const std::array classes = {"ball", "star", "cloud"};
        std::string text = name + "{\ninitialize{\n" + first;
        text += "}initialize\nloop{\nif counter$born < 30 {\ncreate " + oneOf(classes);
        text += " counter$born \"ball\" random(0,359) random(1,4) random(-90,90) random(-90,90) 0\n"
                "change counter$born 1\n}if\n";
        text += variable();
        text += choice(false);
        text += "set counter$c random(0,300)\n"
                "if counter$c = 7 {\nsetbackground game \"lost.jpg\"\n}if\n"
                "if counter$c = 8 {\nsetbackground game \"candy.jpg\"\n}if\n"
                "if counter$c = 9 {\npause\n}if\n"
                "if counter$c = 10 {\nsetstate ";
        return text + next + "\n}if\n}loop\n}" + name + "\n";
    }

    /// `moves`: also those that move the sprite. Where they stand in the answer to a collision they might
    /// cause each other for ever.
    std::string statements(int count, bool moves = false)
    {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += m_chance.below(3) == 0 ? choice(true, moves) : simple(moves);
        return text;
    }

    std::string choice(bool ofSprite, bool moves = false)
    {
        const std::array conditions = {
            "counter$a > 40",           "counter$b < 3",         "text$t = \"left\"",    "counter$c > 250",
            "keyboard.left = \"true\"", "keyboard.a = \"true\"", "counter$a = counter$b"};
        std::string text = "if " + oneOf(conditions) + " {\n";
        text += ofSprite ? simple(moves) : variable();
        if (m_chance.below(2) == 0)
            text += "}else{\n" + (ofSprite ? simple(moves) : variable());
        return text + "}if\n";
    }

    std::string simple(bool moves)
    {
        const std::array still = {"hide me\n",
                                  "show me\n",
                                  "setdirection me random(0,359)\n",
                                  "changedirection me 7\n",
                                  "setspeed me random(0,5)\n",
                                  "if counter$c > 297 {\ndestroy me\n}if\n",
                                  "set counter$b me.x\n"};
        const std::array moving = {"moveleft me 2\n", "setposition me random(-90,90) random(-90,90) 0\n",
                                   "movehigher me 1\n", "unmove me\n"};
        if (m_chance.below(3) == 0)
            return variable();
        return moves && m_chance.below(2) == 0 ? oneOf(moving) : oneOf(still);
    }

    std::string variable()
    {
        const std::array deeds = {"set counter$a random(0,100)\n", "change counter$b 0.1\n",
                                  "set text$t \"left\"\n",         "set text$t keyboard.left\n",
                                  "set counter$b counter$a\n",     "change counter$a -1\n"};
        return oneOf(deeds);
    }

    Random m_chance;
};
