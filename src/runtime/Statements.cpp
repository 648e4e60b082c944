// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/Statements.h"

#include "language/ZBLDebugExp.h"
#include "language/ZBLSetStateExp.h"
#include "runtime/Messages.h"

#include <cmath>
#include <limits>
#include <utility>

Statements::Statements(RunState& run, FaultList& faults, Trace& trace, Evaluator& evaluator, Actions& actions)
    : m_run(run)
    , m_faults(faults)
    , m_trace(trace)
    , m_evaluator(evaluator)
    , m_actions(actions)
{
}

void Statements::begin()
{
    const bool isTraced = m_trace.wantsStatements() || (m_stepMode && m_trace.isOn());
    m_run.position.form = m_plain    ? SequenceCode::Form::Plain
                          : isTraced ? SequenceCode::Form::Traced
                                     : SequenceCode::Form::Quick;
    m_run.position.step = 0;
    m_run.position.pending = Pending::Nothing;
    ++m_run.blocks;
}

BlockResult Statements::run()
{
#if ZB_THREADED_STEPS
    if (!m_plain)
        return runThreaded();
#endif
    return runPlain();
}

/// A number that is not drawn; no number where it cannot be had.
inline double Statements::numberThere(const NumberSource& source)
{
    switch (source.kind) {
    case NumberSource::Kind::Constant:
        return source.number;
    case NumberSource::Kind::Counter:
        return m_run.variables.counters[static_cast<std::size_t>(source.index)];
    case NumberSource::Kind::Sprite:
        if (const ZBSprite* sprite = m_evaluator.bound(SpritePart::isIt(source.index)))
            return sprite->*spriteNumbers[static_cast<std::size_t>(SpritePart::part(source.index))];
        break;
    default:
        break;
    }
    return std::numeric_limits<double>::quiet_NaN();
}

/// The number of one of a block's sources; no number where it cannot be had.
inline double Statements::numberFrom(const NumberSource* sources, std::int32_t index)
{
    const NumberSource& source = sources[index];
    if (source.kind == NumberSource::Kind::Random)
        return source.number + static_cast<double>(m_run.random.below(source.choices));
    if (source.kind != NumberSource::Kind::RandomBetween)
        return numberThere(source);
    const double low = numberThere(sources[source.index]);
    const double high = numberThere(sources[source.index + 1]);
    return std::isunordered(low, high) ? low + high : m_evaluator.draw(low, high);
}

#if ZB_THREADED_STEPS

// Threaded code (J. R. Bell, Communications of the ACM 16, 1973): every step jumps straight to the next one's
// label, which is what makes the branch predictor good at it.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic"

BlockResult Statements::runThreaded()
{
    static const void* const labels[] = {
#define ZB_STEP_LABEL(name) &&label##name,
        ZB_STEPS(ZB_STEP_LABEL)
#undef ZB_STEP_LABEL
    };
#define STEP(name) label##name
#define GO goto* labels[static_cast<std::size_t>(step->op)] // NOLINT(bugprone-macro-parentheses)
#define DISPATCH
#define DISPATCH_END
#include "runtime/StepLoop.inc"
#undef STEP
#undef GO
#undef DISPATCH
#undef DISPATCH_END
}

#pragma GCC diagnostic pop

#endif

BlockResult Statements::runPlain()
{
#define STEP(name) case Op::name
#define GO goto dispatch
#define DISPATCH                                                                                             \
    dispatch:                                                                                                \
    switch (step->op) {
#define DISPATCH_END }
#include "runtime/StepLoop.inc"
#undef STEP
#undef GO
#undef DISPATCH
#undef DISPATCH_END
}

/// The step with which the block goes on; null where it ends here.
const Step* Statements::resume(const BlockCode& code)
{
    FramePosition& position = m_run.position;
    const Step* step = &code.steps[static_cast<std::size_t>(position.step)];
    const Pending pending = std::exchange(position.pending, Pending::Nothing);
    switch (pending) {
    case Pending::Nothing:
    case Pending::GoOn:
        return step;
    case Pending::Release:
        if (step->op == Op::AnnounceIf)
            m_trace.TraceIfBegin();
        return step + 1;
    case Pending::GiveUp:
    case Pending::GiveUpTest:
        static_cast<void>(giveUp(code.statements[static_cast<std::size_t>(position.step)]->line(),
                                 pending == Pending::GiveUpTest));
        return nullptr;
    }
    return nullptr;
}

BlockResult Statements::wait(std::ptrdiff_t step)
{
    m_run.position.step = static_cast<std::int32_t>(step);
    m_run.position.pending = Pending::Release;
    return BlockResult::Waiting;
}

BlockResult Statements::tell(std::ptrdiff_t step, Pending next)
{
    m_run.position.step = static_cast<std::int32_t>(step);
    m_run.position.pending = next;
    return BlockResult::Told;
}

/// A statement has ended its block.
BlockResult Statements::fail(const BlockCode& code, const Step* step, bool isTest)
{
    const std::ptrdiff_t index = step - code.steps.data();
    if (!m_faults.isEmpty()) // the trace goes on when they have been told
        return tell(index, isTest ? Pending::GiveUpTest : Pending::GiveUp);
    return giveUp(code.statements[static_cast<std::size_t>(index)]->line(), isTest);
}

/// An if whose block failed is still ended in the trace; one whose test failed is not. In the quick form the
/// ifs around never began, so only such a test leaves its mark.
BlockResult Statements::giveUp(int line, bool isTest)
{
    if (m_run.position.form != SequenceCode::Form::Quick) {
        for (int around = m_run.position.block->depthAt(line); around > 0; --around)
            m_trace.TraceIfEnd();
    } else if (isTest) {
        m_trace.TraceIfBegin();
    }
    return BlockResult::Failed;
}

BlockResult Statements::pause(int line)
{
    const bool isCounted = m_run.position.form != SequenceCode::Form::Quick;
    m_trace.TracePause(line, isCounted ? 0 : m_run.position.block->depthAt(line));
    static_cast<void>(giveUp(line, false));
    return BlockResult::Paused;
}

void Statements::firstSet(ValueKind kind, std::int32_t slot)
{
    const auto counterCount = static_cast<std::int32_t>(m_run.variables.counters.size());
    m_run.variables.order.push_back(kind == ValueKind::Counter ? slot : counterCount + slot);
}

/// A change that did not come to a usable number: says why, in the order in which a statement looks.
void Statements::changeFailed(const Step& step, int line)
{
    const std::vector<double>& counters = m_run.variables.counters;
    if (step.op == Op::ChangeVariable && std::isnan(counters[static_cast<std::size_t>(step.b)]))
        return; // an amount that is not set stops the block without a word
    const bool isUnset = std::isnan(counters[static_cast<std::size_t>(step.a)]);
    static_cast<void>(m_faults.fail(isUnset ? say::changeBeforeSet : say::tooBig, line));
}

Outcome Statements::runIf(const ZBLIfExp& statement, bool& result)
{
    const int line = statement.line();
    ZBLValueExp left;
    ZBLValueExp right;
    Outcome outcome = m_evaluator.evaluate(statement.left(), left, line);
    if (outcome == Outcome::Done)
        outcome = m_evaluator.evaluate(statement.right(), right, line);
    if (outcome == Outcome::Done)
        outcome = m_evaluator.compare(left, right, statement.op(), line, result);
    return outcome;
}

Outcome Statements::runMutate(const ZBLMutateExp& statement)
{
    const bool isText = statement.target().type == ValueKind::Text;
    const bool isChange = statement.verb() == ZBLMutateExp::Verb::Change;
    if (isChange && isText)
        return m_faults.fail("Change does not work on text variables!", statement.line());
    ZBLValueExp value;
    const Outcome outcome = m_evaluator.evaluate(statement.value(), value, statement.line());
    if (outcome != Outcome::Done)
        return outcome;
    if (!isChange) {
        if (setVariable(statement.target(), value))
            return Outcome::Done;
        return m_faults.fail(isText ? "You put a number value into a text variable!"
                                    : "You put a text value into a counter variable!",
                             statement.line());
    }
    if (!value.isCounter())
        return m_faults.fail("Change does not work with anything except numbers!", statement.line());
    double& counter = m_run.variables.counters[static_cast<std::size_t>(statement.target().slot)];
    if (std::isnan(counter))
        return m_faults.fail(say::changeBeforeSet, statement.line());
    const double sum = counter + value.realVal;
    if (!isUsable(sum))
        return m_faults.fail(say::tooBig, statement.line());
    counter = sum;
    return Outcome::Done;
}

bool Statements::setVariable(const ZBLVarExp& variable, const ZBLValueExp& value)
{
    if (variable.type != value.type)
        return false;
    const auto slot = static_cast<std::size_t>(variable.slot);
    if (value.isCounter()) {
        double& counter = m_run.variables.counters[slot];
        if (std::isnan(counter))
            firstSet(ValueKind::Counter, variable.slot);
        counter = value.realVal;
    } else {
        Text& text = m_run.variables.texts[slot];
        if (!text)
            firstSet(ValueKind::Text, variable.slot);
        text = value.stringVal;
    }
    return true;
}
