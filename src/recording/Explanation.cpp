// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "recording/Explanation.h"

#include "language/ZBLMethodExp.h"
#include "language/ZBLMutateExp.h"
#include "recording/Onlooker.h"
#include "recording/ProgramLines.h"
#include "recording/RunLook.h"

#include <algorithm>

namespace
{

using Kind = ZBLSimpleExp::Kind;

bool isKnownByReading(const ZBLSimpleExp& operand)
{
    return operand.kind() == Kind::Literal || operand.kind() == Kind::ClassName;
}

int valueCount(Operands operands)
{
    switch (operands) {
    case Operands::SpriteAndValue:
    case Operands::GameAndValue:
        return 1;
    case Operands::SpriteAndPlace:
        return 3;
    case Operands::None:
    case Operands::Sprite:
    case Operands::TwoObjects:
        break;
    }
    return 0;
}

const ZBLSimpleExp& valueOf(const ZBLMethodExp& action, int index)
{
    return index == 0 ? action.value() : index == 1 ? action.valueY() : action.valueZ();
}

} // namespace

Explainer::Explainer()
    : m_faults(m_copy)
    , m_evaluator(m_copy, m_faults)
{
}

void Explainer::lookAt(const RunState& run)
{
    m_copy.program = run.program;
    m_copy.programLoaded = run.programLoaded;
    m_copy.variables = run.variables;
    m_copy.keyboard = run.keyboard;
    m_copy.game = run.game;
    m_copy.random = run.random;
    const auto copied = [](const ZBSprite* sprite) {
        return sprite ? std::optional<ZBSprite>(*sprite) : std::nullopt;
    };
    m_copy.meValid = run.meValid;
    m_copy.itValid = run.itValid;
    m_copy.detachedMe = copied(boundSprite(run, false));
    m_copy.detachedIt = copied(boundSprite(run, true));
}

std::string Explainer::explain(const RunState& run, const ZBLStatement& statement)
{
    std::string text;
    lookAt(run);
    if (statement.type() == StatementType::If) {
        text = explainIf(static_cast<const ZBLIfExp&>(statement));
    } else if (statement.type() == StatementType::Mutate) {
        text = missing(static_cast<const ZBLMutateExp&>(statement).value(), statement.line());
    } else if (statement.type() == StatementType::Action) {
        const auto& action = static_cast<const ZBLMethodExp&>(statement);
        for (int i = 0; i < valueCount(action.operands()) && text.empty() && m_faults.isEmpty(); ++i)
            text = missing(valueOf(action, i), statement.line());
    }
    static_cast<void>(m_faults.take()); // whoever makes a mistake is told in another place
    return text;
}

std::string Explainer::explainIf(const ZBLIfExp& statement)
{
    std::string text;
    ZBLValueExp values[2];
    std::size_t index = 0;
    for (const ZBLSimpleExp* operand : {&statement.left(), &statement.right()}) {
        ZBLValueExp& value = values[index++];
        const Outcome outcome = m_evaluator.evaluate(*operand, value, statement.line());
        if (outcome == Outcome::Stopped)
            return whatLacks(*operand, statement.line());
        if (outcome != Outcome::Done)
            return {};
        if (isKnownByReading(*operand))
            continue;
        text.append(text.empty() ? "" : " and ").append(operand->toString()).append(" was ");
        value.appendTo(text);
    }
    bool holds = false;
    if (m_evaluator.compare(values[0], values[1], statement.op(), statement.line(), holds) != Outcome::Done)
        return {};
    return text.append(text.empty() ? "" : ": ").append(holds ? "yes" : "no");
}

std::string Explainer::missing(const ZBLSimpleExp& operand, int line)
{
    ZBLValueExp value;
    return m_evaluator.evaluate(operand, value, line) == Outcome::Stopped ? whatLacks(operand, line)
                                                                          : std::string();
}

std::string Explainer::whatLacks(const ZBLSimpleExp& operand, int line)
{
    if (operand.kind() == Kind::Variable)
        return operand.variable().toString() + " has no value yet";
    if (operand.kind() != Kind::Random)
        return {};
    for (const ZBLSimpleExp* bound : {&operand.low(), &operand.high()})
        if (std::string text = missing(*bound, line); !text.empty())
            return text;
    return "random needs two numbers";
}

namespace
{

class StatementCounter final : public Onlooker
{
public:
    void statement(int /*line*/) override { ++count; }
    std::size_t count = 0;
};

/// Explains every statement but the first.
class LastStatements final : public Onlooker
{
public:
    LastStatements(const RunState& run, const ProgramLines& lines, std::size_t toSkip)
        : m_run(run)
        , m_lines(lines)
        , m_toSkip(toSkip)
    {
    }
    void statement(int line) override
    {
        if (m_toSkip > 0) {
            --m_toSkip;
            return;
        }
        const ZBLStatement* const statement = m_lines.line(line).statement;
        explained.push_back({line, statement ? m_explainer.explain(m_run, *statement) : std::string()});
    }

    std::vector<Explained> explained;

private:
    const RunState& m_run;
    const ProgramLines& m_lines;
    std::size_t m_toSkip;
    Explainer m_explainer;
};

} // namespace

std::vector<Explained> explain(Replay& replay, Moment upTo, std::size_t lastStatements)
{
    constexpr std::int64_t mostFrames = 512;
    std::int64_t from = 0;
    StatementCounter counter;
    for (std::int64_t back = 2;; back *= 4) {
        from = std::max<std::int64_t>(upTo.frame - back, 0);
        counter.count = 0;
        replay.watchTo(from, upTo, counter);
        if (counter.count >= lastStatements || from == 0 || back >= mostFrames)
            break;
    }
    const RunState& run = replay.state();
    const std::size_t toSkip = counter.count - std::min(counter.count, lastStatements);
    const ProgramLines lines(*run.program, run.lines->upperBound());
    LastStatements last(run, lines, toSkip);
    replay.watchTo(from, upTo, last);
    return std::move(last.explained);
}
