// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBLIfExp.h"
#include "language/ZBLProgramExp.h"
#include "runtime/world/ZBSprite.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

// What one step of the code does. Values are known to be counters or texts when a program has been read,
// since names and literals show their kind; so what games run most has steps of its own, and the rest asks
// its statement. Every table of steps is made of this one list.
//
// Jump goes to `jump`; Announce, AnnounceIf and EndIf are for the trace alone. Set and Change: counter or
// text `a` and a constant, the variable `b`, the sprite's number `b` or the number source `b`. The
// comparisons come in the order of TestOperator and go on with the next step where they hold, else with
// `jump`: counter `a`, the sprite's number `a` or number source `a` with a constant, with counter `b`, with
// number source `b`; a sprite's class with a text; a map color under a sprite and a key, or any key, with
// "true". Hide to Place act on the sprite `a`. The last six ask the statement itself.
// clang-format off
#define ZB_COMPARISONS(STEP, name)                                                                                     \
    STEP(name##Equal) STEP(name##NotEqual) STEP(name##Less) STEP(name##Greater) STEP(name##LessOrEqual)                \
    STEP(name##GreaterOrEqual)
#define ZB_STEPS(STEP)                                                                                                 \
    STEP(End) STEP(Jump) STEP(Announce) STEP(AnnounceIf) STEP(EndIf)                                                   \
    STEP(SetCounterConstant) STEP(SetCounterVariable) STEP(SetTextConstant) STEP(SetTextVariable)                      \
    STEP(SetSprite) STEP(SetNumber) STEP(ChangeConstant) STEP(ChangeVariable) STEP(ChangeNumber)                       \
    ZB_COMPARISONS(STEP, IfConstant) ZB_COMPARISONS(STEP, IfVariable)                                                  \
    ZB_COMPARISONS(STEP, IfSprite) ZB_COMPARISONS(STEP, IfSpriteVariable)                                              \
    ZB_COMPARISONS(STEP, IfNumber)                                                                                     \
    STEP(IfTextConstantEqual) STEP(IfTextConstantNotEqual) STEP(IfTextVariableEqual) STEP(IfTextVariableNotEqual)      \
    STEP(IfClassEqual) STEP(IfClassNotEqual) STEP(IfColorEqual) STEP(IfColorNotEqual)                                  \
    STEP(IfKeyEqual) STEP(IfKeyNotEqual) STEP(IfAnyKeyEqual) STEP(IfAnyKeyNotEqual)                                    \
    STEP(Hide) STEP(Show) STEP(Act) STEP(ActBy) STEP(Place)                                                            \
    STEP(If) STEP(Mutate) STEP(Action) STEP(Create) STEP(SetState) STEP(Pause)
// clang-format on

enum class Op : std::uint8_t {
#define ZB_STEP_NAME(name) name,
    ZB_STEPS(ZB_STEP_NAME)
#undef ZB_STEP_NAME
};

/// ME or IT, and what of it: a number, a map color or an action, in 32 bits.
struct SpritePart {
    static std::int32_t packed(ObjectName object, std::int32_t part)
    {
        return part * 2 + (object == ObjectName::It ? 1 : 0);
    }
    static bool isIt(std::int32_t packed) { return (packed & 1) != 0; }
    static std::int32_t part(std::int32_t packed) { return packed >> 1; }
};

/// Where a step gets a number from without asking its statement.
struct NumberSource {
    enum class Kind : std::uint8_t { Constant, Counter, Sprite, Random, RandomBetween };
    Kind kind = Kind::Constant;
    std::int32_t index =
        0;             ///< the counter's slot, the sprite and which of its numbers, the source of a bound
    double number = 0; ///< the constant, or the lowest whole number that may be drawn
    std::uint64_t choices = 0; ///< how many may be drawn
};

/// The numbers of a sprite that programs can read, in the order in which sources count them.
inline constexpr std::array<double ZBSprite::*, 4> spriteNumbers = {&ZBSprite::x, &ZBSprite::y, &ZBSprite::z,
                                                                    &ZBSprite::speed};

struct Step {
    Op op = Op::End;
    /// No text that a file may hold has as many statements in a block as do not fit.
    std::uint32_t jumpTo : 24 = 0;
    std::int32_t a = 0;
    union {
        double number = 0;
        Text text;
        std::int32_t b;
    };

    std::int32_t jump() const { return static_cast<std::int32_t>(jumpTo); }
    void setJump(std::int32_t to) { jumpTo = static_cast<std::uint32_t>(to) & 0xffffffU; }
};
static_assert(sizeof(Step) == 16);

/// The steps of a block in one form.
struct BlockCode {
    std::vector<Step> steps;
    std::vector<const ZBLStatement*> statements; ///< of each step; null for those that have none
    std::vector<NumberSource> sources;
};

/// A sequence made ready to run, in three forms.
class SequenceCode
{
public:
    enum class Form : std::uint8_t {
        Quick,  ///< no work for the trace
        Traced, ///< every statement is announced to the trace
        Plain,  ///< traced, and every statement is asked itself: what the others are judged by
    };

    explicit SequenceCode(const ZBLExp& source)
        : m_source(&source)
    {
    }

    bool isEmpty() const { return m_source->isempty(); }
    /// The line that opens the block.
    int openingLine() const { return m_source->firstLine() - 1; }
    /// Steps of its quick form.
    int stepCount() const { return static_cast<int>(code(Form::Quick).steps.size()); }
    /// A form is made when it is first asked for: most blocks of most runs never need all of them.
    const BlockCode& code(Form form) const;
    /// How many ifs stand around the statement on line `line`. Looks for it: only asked when a statement has
    /// failed.
    int depthAt(int line) const;

private:
    const ZBLExp* m_source;
    mutable std::array<std::unique_ptr<const BlockCode>, 3> m_forms;
};

/// A program that has been read, with the code of its blocks.
struct Program {
    struct ClassCode {
        Text name = nullptr;              ///< first word of the class's opening line
        std::vector<SequenceCode> events; ///< by EventName
    };
    struct StateCode {
        std::vector<SequenceCode> parts; ///< INITIALIZE and LOOP
    };

    ZBLProgramExp tree;
    std::vector<ClassCode> classes;
    std::vector<StateCode> states;

    /// Fills the code from the tree.
    void compile();
};
