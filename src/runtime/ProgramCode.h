#pragma once

#include "language/ZBLIfExp.h"
#include "language/ZBLProgramExp.h"

#include <cstdint>
#include <deque>
#include <vector>

/// What one step of the code does. Values are known to be counters or texts when a program has been read,
/// since names and literals show their kind; so the common forms have steps of their own, and the rest asks
/// its statement.
enum class Op : std::uint8_t {
    End,
    Jump,       ///< to `jump`
    Announce,   ///< trace: the statement on `line` is about to run
    AnnounceIf, ///< the same for an if
    EndIf,      ///< trace: the end of an if
    // counter `a` = constant, counter `b`; text `a` = constant, text `b`
    SetCounterConstant,
    SetCounterVariable,
    SetTextConstant,
    SetTextVariable,
    // counter `a` += constant, counter `b`
    ChangeConstant,
    ChangeVariable,
    // counter `a` compared with a constant, with counter `b`; six operators each, in the order of
    // ZBLIfExp::Operator. Goes on with the next step where the test holds, else with `jump`.
    IfCounterConstant,
    IfCounterVariable = IfCounterConstant + 6,
    // text `a` compared with a constant, with text `b`; = and !=
    IfTextConstant = IfCounterVariable + 6,
    IfTextVariable = IfTextConstant + 2,
    // the statement itself is asked
    If = IfTextVariable + 2,
    Mutate,
    Action,
    Create,
    SetState,
    Pause,
    count
};

struct Step {
    Op op = Op::End;
    std::int32_t a = 0;
    union {
        double number = 0;
        Text text;
        std::int32_t b;
        const ZBLStatement* statement;
    };
    std::int32_t jump = 0;
    std::int32_t line = 0;
};

/// A sequence made ready to run, in two forms: one that announces every statement to the trace, one that does
/// no such work.
class SequenceCode
{
public:
    explicit SequenceCode(const ZBLExp& source);

    bool isEmpty() const { return m_source->isempty(); }
    /// The line that opens the block.
    int openingLine() const { return m_source->firstLine() - 1; }
    int stepCount() const { return static_cast<int>(m_quick.size()); }
    const Step* quick() const { return m_quick.data(); }
    /// Made when it is first asked for: most blocks of most runs are never traced.
    const Step* traced() const;
    /// How many ifs stand around the statement on line `line`. Looks for it: only asked when a statement has
    /// failed.
    int depthAt(int line) const;

private:
    const ZBLExp* m_source;
    std::vector<Step> m_quick;
    mutable std::vector<Step> m_traced;
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
    std::deque<ClassCode> classes;
    std::deque<StateCode> states;

    /// Fills the code from the tree.
    void compile();
};
