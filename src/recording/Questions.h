// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "recording/RunIndex.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Something that can be asked about a run.
struct Question {
    enum class Kind : std::uint8_t {
        CounterChanged,
        TextChanged,
        SpriteCreated,
        SpriteDestroyed,
        SpriteHit,
        StateEntered,
        LineRan,
        InThisFrame,
    };
    Kind kind = Kind::InThisFrame;
    std::int32_t subject = 0; ///< the variable's slot, the index of class or state, the line
    std::string text;         ///< "When did counter$score change?"
};

/// A moment of which an answer speaks.
struct Answer {
    Moment moment;
    int line = 0;     ///< of the program; 0: none
    std::string text; ///< "Frame 214, line 12: counter$score went from 3 to 4"
};

struct Answers {
    std::vector<Answer> list;
    bool hasEarlier = false; ///< there are more before the first, or behind the last
    bool hasLater = false;
    std::string note; ///< what there is to say where the list is empty, or about all of it; often nothing
};

/// Makes questions from what a program has, and answers from what happened when it ran.
class Questions
{
public:
    static constexpr std::size_t mostAnswers = 1000;

    explicit Questions(const RunIndex& index)
        : m_index(index)
    {
    }

    /// What can be asked about the whole run, in the order of the program; lines can be asked for as well.
    std::vector<Question> all() const;
    static Question aboutLine(int line);
    static Question aboutFrame();

    /// The answers around a moment, as far as the index has come. A frame is asked of inFrame.
    Answers answer(const Question& question, Moment around = {}) const;
    /// What happened in the frame that one sees at the moment: its statements and events one by one, at most
    /// mostAnswers. The replay stands where it stood.
    static Answers inFrame(Replay& replay, Moment moment);

private:
    std::string className(int index) const;
    std::string stateName(int index) const;
    Answers changes(const Question& question, Moment around) const;
    Answers events(const Question& question, Moment around) const;
    std::string eventText(const RunIndex::ClassEvent& event, const Question& question) const;
    Answers states(std::int32_t state, Moment around) const;
    Answers runs(int line, Moment around) const;

    const RunIndex& m_index;
};
