#include "runtime/ProgramCode.h"

#include "language/ZBLMutateExp.h"

#include <cmath>

namespace
{

using Kind = ZBLSimpleExp::Kind;

enum class Form { Traced, Quick };

bool isCounterVariable(const ZBLSimpleExp& operand)
{
    return operand.kind() == Kind::Variable && operand.variable().type == ValueKind::Counter;
}

bool isTextVariable(const ZBLSimpleExp& operand)
{
    return operand.kind() == Kind::Variable && operand.variable().type == ValueKind::Text;
}

/// A number that is too big is reported when it is used, so it is left to the statement.
bool isNumber(const ZBLSimpleExp& operand)
{
    return operand.kind() == Kind::Literal && operand.value().isCounter() &&
           std::isfinite(operand.value().realVal);
}

bool isText(const ZBLSimpleExp& operand)
{
    return operand.kind() == Kind::Literal && operand.value().isText();
}

Op plus(Op base, std::size_t offset)
{
    return static_cast<Op>(static_cast<std::size_t>(base) + offset);
}

/// The operator that says the same with the sides exchanged.
ZBLIfExp::Operator mirrored(ZBLIfExp::Operator op)
{
    using Operator = ZBLIfExp::Operator;
    switch (op) {
    case Operator::Less:
        return Operator::Greater;
    case Operator::Greater:
        return Operator::Less;
    case Operator::LessOrEqual:
        return Operator::GreaterOrEqual;
    case Operator::GreaterOrEqual:
        return Operator::LessOrEqual;
    case Operator::Equal:
    case Operator::NotEqual:
        break;
    }
    return op;
}

Step statementStep(Op op, const ZBLStatement& statement)
{
    Step step;
    step.op = op;
    step.statement = &statement;
    step.line = statement.line();
    return step;
}

Step mutateStep(const ZBLMutateExp& statement)
{
    Step step = statementStep(Op::Mutate, statement);
    const ZBLSimpleExp& value = statement.value();
    const bool isSet = statement.verb() == ZBLMutateExp::Verb::Set;
    const auto constant = [&](Op op, auto member, auto content) {
        step.op = op;
        step.a = statement.target().slot;
        step.*member = content;
    };
    if (statement.target().type == ValueKind::Counter) {
        if (isNumber(value))
            constant(isSet ? Op::SetCounterConstant : Op::ChangeConstant, &Step::number,
                     value.value().realVal);
        else if (isCounterVariable(value))
            constant(isSet ? Op::SetCounterVariable : Op::ChangeVariable, &Step::b, value.variable().slot);
    } else if (isSet) {
        if (isText(value))
            constant(Op::SetTextConstant, &Step::text, value.value().stringVal);
        else if (isTextVariable(value))
            constant(Op::SetTextVariable, &Step::b, value.variable().slot);
    }
    return step;
}

Step ifStep(const ZBLIfExp& statement)
{
    Step step = statementStep(Op::If, statement);
    const ZBLSimpleExp* left = &statement.left();
    const ZBLSimpleExp* right = &statement.right();
    ZBLIfExp::Operator op = statement.op();
    if (left->kind() == Kind::Literal && right->kind() == Kind::Variable) {
        std::swap(left, right);
        op = mirrored(op);
    }
    const auto index = static_cast<std::size_t>(op);
    const bool isEquality = op == ZBLIfExp::Operator::Equal || op == ZBLIfExp::Operator::NotEqual;
    if (isCounterVariable(*left) && isNumber(*right)) {
        step.op = plus(Op::IfCounterConstant, index);
        step.number = right->value().realVal;
    } else if (isCounterVariable(*left) && isCounterVariable(*right)) {
        step.op = plus(Op::IfCounterVariable, index);
        step.b = right->variable().slot;
    } else if (isTextVariable(*left) && isText(*right) && isEquality) {
        step.op = plus(Op::IfTextConstant, index);
        step.text = right->value().stringVal;
    } else if (isTextVariable(*left) && isTextVariable(*right) && isEquality) {
        step.op = plus(Op::IfTextVariable, index);
        step.b = right->variable().slot;
    }
    if (step.op != Op::If)
        step.a = left->variable().slot;
    return step;
}

Step stepOf(const ZBLStatement& statement)
{
    switch (statement.type()) {
    case ZBLStatement::Type::If:
        return ifStep(static_cast<const ZBLIfExp&>(statement));
    case ZBLStatement::Type::Mutate:
        return mutateStep(static_cast<const ZBLMutateExp&>(statement));
    case ZBLStatement::Type::SetState:
        return statementStep(Op::SetState, statement);
    case ZBLStatement::Type::Pause:
        return statementStep(Op::Pause, statement);
    case ZBLStatement::Type::Action:
        return statementStep(Op::Action, statement);
    case ZBLStatement::Type::Create:
        return statementStep(Op::Create, statement);
    }
    return {};
}

class Compiler
{
public:
    explicit Compiler(Form form)
        : m_form(form)
    {
    }

    std::vector<Step> compile(const ZBLExp& sequence)
    {
        // Every item is one step, with an announcement where it is traced, and there is the end.
        m_steps.reserve(sequence.items().size() * (m_form == Form::Traced ? 2 : 1) + 1);
        for (const ZBLExp::Item& item : sequence.items()) {
            switch (item.role) {
            case ZBLExp::Item::Role::Statement:
                addStatement(*item.statement);
                break;
            case ZBLExp::Item::Role::Else:
                addElse();
                break;
            case ZBLExp::Item::Role::EndIf:
                addEndIf();
                break;
            }
        }
        add(Step());
        shortenJumps();
        return std::move(m_steps);
    }

private:
    /// An if whose end has not been reached: the steps whose jumps are still open.
    struct OpenIf {
        std::size_t test;
        std::size_t leaveThen = 0; ///< the jump from the end of the then-block, 0 where there is no else
    };

    void add(const Step& step) { m_steps.push_back(step); }

    std::int32_t next() const { return static_cast<std::int32_t>(m_steps.size()); }

    void addStatement(const ZBLStatement& statement)
    {
        const bool isIf = statement.type() == ZBLStatement::Type::If;
        const bool isAnnounced =
            statement.type() != ZBLStatement::Type::Create && statement.type() != ZBLStatement::Type::Pause;
        if (m_form == Form::Traced && isAnnounced)
            add(statementStep(isIf ? Op::AnnounceIf : Op::Announce, statement));
        add(stepOf(statement));
        if (isIf)
            m_open.push_back({m_steps.size() - 1});
    }

    void addElse()
    {
        OpenIf& open = m_open.back();
        open.leaveThen = m_steps.size();
        Step leave;
        leave.op = Op::Jump;
        add(leave);
        m_steps[open.test].jump = next();
    }

    void addEndIf()
    {
        const OpenIf open = m_open.back();
        m_open.pop_back();
        m_steps[open.leaveThen != 0 ? open.leaveThen : open.test].jump = next();
        if (m_form == Form::Traced) {
            Step end;
            end.op = Op::EndIf;
            add(end);
        }
    }

    /// A jump to a jump goes straight to where that leads.
    void shortenJumps()
    {
        for (std::size_t i = m_steps.size(); i-- > 0;) { // backwards: later jumps are short already
            Step& step = m_steps[i];
            if (step.jump != 0 && m_steps[static_cast<std::size_t>(step.jump)].op == Op::Jump)
                step.jump = m_steps[static_cast<std::size_t>(step.jump)].jump;
        }
    }

    Form m_form;
    std::vector<Step> m_steps;
    std::vector<OpenIf> m_open;
};

} // namespace

SequenceCode::SequenceCode(const ZBLExp& source)
    : m_source(&source)
{
    if (!source.isempty())
        m_quick = Compiler(Form::Quick).compile(source);
}

const Step* SequenceCode::traced() const
{
    if (m_traced.empty())
        m_traced = Compiler(Form::Traced).compile(*m_source);
    return m_traced.data();
}

int SequenceCode::depthAt(int line) const
{
    int depth = 0;
    for (const ZBLExp::Item& item : m_source->items()) {
        const bool isStatement = item.role == ZBLExp::Item::Role::Statement;
        if (isStatement && item.statement->line() == line)
            break;
        if (isStatement && item.statement->type() == ZBLStatement::Type::If)
            ++depth;
        else if (item.role == ZBLExp::Item::Role::EndIf)
            --depth;
    }
    return depth;
}

void Program::compile()
{
    for (const ZBLClassExp& each : tree.classes()) {
        ClassCode& code = classes.emplace_back();
        code.name = tree.pool().intern(each.className());
        for (std::size_t event = 0; event < eventNameCount; ++event)
            code.events.emplace_back(each.getEventExp(static_cast<EventName>(event)));
    }
    for (const ZBLStateExp& each : tree.states()) {
        StateCode& code = states.emplace_back();
        for (const auto part : {ZBLStateExp::Part::Initialize, ZBLStateExp::Part::Loop})
            code.parts.emplace_back(each.getSubStateExp(part));
    }
}
