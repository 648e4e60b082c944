// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/ProgramCode.h"

#include "language/ZBLMethodExp.h"
#include "language/ZBLMutateExp.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace
{

using Kind = ZBLSimpleExp::Kind;

using Form = SequenceCode::Form;

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

/// The step that compares by `op`, of the forms that begin with `equal`.
constexpr Op comparison(Op equal, ZBLIfExp::Operator op)
{
    return static_cast<Op>(static_cast<std::size_t>(equal) + static_cast<std::size_t>(op));
}
static_assert(comparison(Op::IfConstantEqual, ZBLIfExp::Operator::NotEqual) == Op::IfConstantNotEqual);
static_assert(comparison(Op::IfConstantEqual, ZBLIfExp::Operator::Less) == Op::IfConstantLess);
static_assert(comparison(Op::IfConstantEqual, ZBLIfExp::Operator::Greater) == Op::IfConstantGreater);
static_assert(comparison(Op::IfConstantEqual, ZBLIfExp::Operator::LessOrEqual) == Op::IfConstantLessOrEqual);
static_assert(comparison(Op::IfConstantEqual, ZBLIfExp::Operator::GreaterOrEqual) ==
              Op::IfConstantGreaterOrEqual);
static_assert(comparison(Op::IfTextVariableEqual, ZBLIfExp::Operator::NotEqual) ==
              Op::IfTextVariableNotEqual);

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

/// Which of a sprite's numbers a property is; -1 for what is none.
std::int32_t spriteNumber(Property property)
{
    switch (property) {
    case Property::X:
        return 0;
    case Property::Y:
        return 1;
    case Property::Z:
        return 2;
    case Property::Speed:
        return 3;
    default:
        return -1;
    }
}

/// The map color that a property names; -1 for none.
std::int32_t mapColor(Property property)
{
    const auto color = static_cast<int>(property) - static_cast<int>(Property::Red);
    return color >= 0 && color < 7 ? color : -1;
}

bool isSpriteProperty(const ZBLSimpleExp& operand)
{
    return operand.kind() == Kind::Property && operand.object().isSprite();
}

Op generalStep(StatementType type)
{
    switch (type) {
    case StatementType::If:
        return Op::If;
    case StatementType::Mutate:
        return Op::Mutate;
    case StatementType::SetState:
        return Op::SetState;
    case StatementType::Pause:
        return Op::Pause;
    case StatementType::Action:
        return Op::Action;
    case StatementType::Create:
        return Op::Create;
    }
    return Op::End;
}

/// Chooses the step of a statement, and collects where steps get their numbers from.
class StepMaker
{
public:
    explicit StepMaker(std::vector<NumberSource>& sources)
        : m_sources(sources)
    {
    }

    Step make(const ZBLStatement& statement)
    {
        m_step = Step();
        m_step.op = generalStep(statement.type());
        if (statement.type() == StatementType::If)
            chooseIf(static_cast<const ZBLIfExp&>(statement));
        else if (statement.type() == StatementType::Mutate)
            chooseMutate(static_cast<const ZBLMutateExp&>(statement));
        else if (statement.type() == StatementType::Action)
            chooseAction(static_cast<const ZBLMethodExp&>(statement));
        return m_step;
    }

private:
    std::optional<NumberSource> sourceOf(const ZBLSimpleExp& operand)
    {
        using Source = NumberSource::Kind;
        if (isNumber(operand))
            return NumberSource{.kind = Source::Constant, .number = operand.value().realVal};
        if (isCounterVariable(operand))
            return NumberSource{.kind = Source::Counter, .index = operand.variable().slot};
        if (isSpriteProperty(operand) && spriteNumber(operand.property()) >= 0)
            return NumberSource{
                .kind = Source::Sprite,
                .index = SpritePart::packed(operand.object().name(), spriteNumber(operand.property()))};
        return operand.kind() == Kind::Random ? rangeOf(operand) : std::nullopt;
    }

    /// A range whose bounds are known is drawn from at once; else the sources of its bounds come first.
    std::optional<NumberSource> rangeOf(const ZBLSimpleExp& operand)
    {
        if (isNumber(operand.low()) && isNumber(operand.high()))
            if (const auto range = wholeRange(operand.low().value().realVal, operand.high().value().realVal))
                return range;
        if (operand.low().kind() == Kind::Random || operand.high().kind() == Kind::Random)
            return std::nullopt;
        const auto low = sourceOf(operand.low());
        const auto high = sourceOf(operand.high());
        if (!low || !high)
            return std::nullopt;
        const std::int32_t first = add(*low);
        add(*high);
        return NumberSource{.kind = NumberSource::Kind::RandomBetween, .index = first};
    }

    /// Whole numbers few enough to be counted exactly; other ranges are left to the statement.
    static std::optional<NumberSource> wholeRange(double one, double other)
    {
        const double low = std::min(one, other);
        const double high = std::max(one, other);
        constexpr double countable = 0x1.0p62;
        if (std::floor(low) != low || std::floor(high) != high || high - low >= countable)
            return std::nullopt;
        return NumberSource{.kind = NumberSource::Kind::Random,
                            .number = low,
                            .choices = static_cast<std::uint64_t>(high - low) + 1};
    }

    std::int32_t add(const NumberSource& source)
    {
        m_sources.push_back(source);
        return static_cast<std::int32_t>(m_sources.size()) - 1;
    }

    void chooseMutate(const ZBLMutateExp& statement)
    {
        const ZBLSimpleExp& value = statement.value();
        const bool isSet = statement.verb() == Verb::Set;
        const auto choose = [&](Op op, auto member, auto content) {
            m_step.op = op;
            m_step.a = statement.target().slot;
            m_step.*member = content;
        };
        if (statement.target().type == ValueKind::Counter) {
            if (isNumber(value))
                choose(isSet ? Op::SetCounterConstant : Op::ChangeConstant, &Step::number,
                       value.value().realVal);
            else if (isCounterVariable(value))
                choose(isSet ? Op::SetCounterVariable : Op::ChangeVariable, &Step::b, value.variable().slot);
            else if (const auto source = sourceOf(value)) {
                if (isSet && source->kind == NumberSource::Kind::Sprite)
                    choose(Op::SetSprite, &Step::b, source->index);
                else
                    choose(isSet ? Op::SetNumber : Op::ChangeNumber, &Step::b, add(*source));
            }
        } else if (isSet) {
            if (isText(value))
                choose(Op::SetTextConstant, &Step::text, value.value().stringVal);
            else if (isTextVariable(value))
                choose(Op::SetTextVariable, &Step::b, value.variable().slot);
        }
    }

    void chooseIf(const ZBLIfExp& statement)
    {
        const ZBLSimpleExp* left = &statement.left();
        const ZBLSimpleExp* right = &statement.right();
        TestOperator op = statement.op();
        if (left->kind() == Kind::Literal &&
            (right->kind() == Kind::Variable || right->kind() == Kind::Property)) {
            std::swap(left, right);
            op = mirrored(op);
        }
        const bool isEquality = op == TestOperator::Equal || op == TestOperator::NotEqual;
        if (!chooseNumberTest(*left, *right, op) && isEquality && !chooseTextTest(*left, *right, op))
            choosePropertyTest(*left, *right, op);
    }

    bool chooseNumberTest(const ZBLSimpleExp& left, const ZBLSimpleExp& right, TestOperator op)
    {
        auto from = sourceOf(left);
        auto to = sourceOf(right);
        if (!from || !to)
            return false;
        using Source = NumberSource::Kind;
        if (from->kind == Source::Counter && to->kind == Source::Sprite) {
            std::swap(from, to);
            op = mirrored(op);
        }
        const bool constant = to->kind == Source::Constant;
        if (from->kind == Source::Counter && (constant || to->kind == Source::Counter)) {
            m_step.op = comparison(constant ? Op::IfConstantEqual : Op::IfVariableEqual, op);
            m_step.a = from->index;
        } else if (from->kind == Source::Sprite && (constant || to->kind == Source::Counter)) {
            m_step.op = comparison(constant ? Op::IfSpriteEqual : Op::IfSpriteVariableEqual, op);
            m_step.a = from->index;
        } else {
            m_step.op = comparison(Op::IfNumberEqual, op);
            m_step.a = add(*from);
            m_step.b = add(*to);
            return true;
        }
        if (constant)
            m_step.number = to->number;
        else
            m_step.b = to->index;
        return true;
    }

    bool chooseTextTest(const ZBLSimpleExp& left, const ZBLSimpleExp& right, TestOperator op)
    {
        if (!isTextVariable(left) || (!isText(right) && !isTextVariable(right)))
            return false;
        m_step.a = left.variable().slot;
        m_step.op = comparison(isText(right) ? Op::IfTextConstantEqual : Op::IfTextVariableEqual, op);
        if (isText(right))
            m_step.text = right.value().stringVal;
        else
            m_step.b = right.variable().slot;
        return true;
    }

    void choosePropertyTest(const ZBLSimpleExp& left, const ZBLSimpleExp& right, TestOperator op)
    {
        if (left.kind() != Kind::Property)
            return;
        const Property property = left.property();
        if (isSpriteProperty(left) && property == Property::Class && right.kind() == Kind::ClassName) {
            m_step.op = comparison(Op::IfClassEqual, op);
            m_step.a = SpritePart::packed(left.object().name(), 0);
            m_step.text = right.value().stringVal;
        }
        if (!isText(right) || *right.value().stringVal != "true")
            return;
        if (isSpriteProperty(left) && mapColor(property) >= 0) {
            m_step.op = comparison(Op::IfColorEqual, op);
            m_step.a = SpritePart::packed(left.object().name(), mapColor(property));
        } else if (!left.object().isSprite() && property == Property::AnyKey) {
            m_step.op = comparison(Op::IfAnyKeyEqual, op);
        } else if (!left.object().isSprite() && property == Property::Key) {
            m_step.op = comparison(Op::IfKeyEqual, op);
            m_step.a = left.keyCodes()[0];
            m_step.b = left.keyCodes()[1];
        }
    }

    void chooseAction(const ZBLMethodExp& statement)
    {
        if (!statement.object().isSprite())
            return;
        const auto act = [&](Op op) {
            m_step.op = op;
            m_step.a = SpritePart::packed(statement.object().name(), static_cast<int>(statement.action()));
        };
        const auto place = [&] {
            const auto x = sourceOf(statement.value());
            const auto y = sourceOf(statement.valueY());
            const auto z = sourceOf(statement.valueZ());
            if (!x || !y || !z)
                return;
            act(Op::Place);
            m_step.b = add(*x);
            add(*y);
            add(*z);
        };
        switch (statement.operands()) {
        case Operands::Sprite:
            if (statement.action() == Action::Hide)
                act(Op::Hide);
            else if (statement.action() == Action::Show)
                act(Op::Show);
            else
                act(Op::Act);
            break;
        case Operands::SpriteAndValue:
            if (const auto amount = sourceOf(statement.value())) {
                act(Op::ActBy);
                m_step.b = add(*amount);
            }
            break;
        case Operands::SpriteAndPlace:
            place();
            break;
        default:
            break;
        }
    }

    std::vector<NumberSource>& m_sources;
    Step m_step;
};

class Compiler
{
public:
    explicit Compiler(Form form)
        : m_form(form)
    {
    }

    BlockCode compile(const ZBLExp& sequence)
    {
        reserve(sequence);
        for (const SequenceItem* item = sequence.first(); item; item = item->next()) {
            switch (item->role()) {
            case SequenceItem::Role::Statement:
                addStatement(static_cast<const ZBLStatement&>(*item));
                break;
            case SequenceItem::Role::Else:
                addElse();
                break;
            case SequenceItem::Role::EndIf:
                addEndIf();
                break;
            }
        }
        add(Op::End);
        shortenJumps();
        m_code.sources.shrink_to_fit();
        return std::move(m_code);
    }

private:
    /// An if whose end has not been reached: the steps whose jumps are still open.
    struct OpenIf {
        std::size_t test;
        std::size_t leaveThen = 0; ///< the jump from the end of the then-block, 0 where there is no else
    };

    /// Every item is at most one step, with an announcement where it is traced, and there is the end.
    void reserve(const ZBLExp& sequence)
    {
        std::size_t items = 0;
        for (const SequenceItem* item = sequence.first(); item; item = item->next())
            items += m_form == Form::Quick && item->role() == SequenceItem::Role::EndIf ? 0U : 1U;
        const std::size_t room = items * (m_form == Form::Quick ? 1 : 2) + 1;
        m_code.steps.reserve(room);
        m_code.statements.reserve(room);
    }

    void add(const Step& step, const ZBLStatement* statement)
    {
        m_code.steps.push_back(step);
        m_code.statements.push_back(statement);
    }

    void add(Op op, const ZBLStatement* statement = nullptr)
    {
        Step step;
        step.op = op;
        add(step, statement);
    }

    std::int32_t next() const { return static_cast<std::int32_t>(m_code.steps.size()); }

    void addStatement(const ZBLStatement& statement)
    {
        const bool isIf = statement.type() == ZBLStatement::Type::If;
        const bool isAnnounced =
            statement.type() != ZBLStatement::Type::Create && statement.type() != ZBLStatement::Type::Pause;
        if (m_form != Form::Quick && isAnnounced)
            add(isIf ? Op::AnnounceIf : Op::Announce, &statement);
        if (m_form == Form::Plain)
            add(generalStep(statement.type()), &statement);
        else
            add(m_maker.make(statement), &statement);
        if (isIf)
            m_open.push_back({m_code.steps.size() - 1});
    }

    void addElse()
    {
        OpenIf& open = m_open.back();
        open.leaveThen = m_code.steps.size();
        add(Op::Jump);
        m_code.steps[open.test].setJump(next());
    }

    void addEndIf()
    {
        const OpenIf open = m_open.back();
        m_open.pop_back();
        m_code.steps[open.leaveThen != 0 ? open.leaveThen : open.test].setJump(next());
        if (m_form != Form::Quick)
            add(Op::EndIf);
    }

    /// A jump to a jump goes straight to where that leads.
    void shortenJumps()
    {
        for (std::size_t i = m_code.steps.size(); i-- > 0;) { // backwards: later jumps are short already
            Step& step = m_code.steps[i];
            const Step& target = m_code.steps[static_cast<std::size_t>(step.jump())];
            if (step.jump() != 0 && target.op == Op::Jump)
                step.setJump(target.jump());
        }
    }

    Form m_form;
    BlockCode m_code;
    StepMaker m_maker{m_code.sources};
    std::vector<OpenIf> m_open;
};

} // namespace

const BlockCode& SequenceCode::code(Form form) const
{
    auto& code = m_forms[static_cast<std::size_t>(form)];
    if (!code)
        code = std::make_unique<const BlockCode>(Compiler(form).compile(*m_source));
    return *code;
}

int SequenceCode::depthAt(int line) const
{
    int depth = 0;
    for (const SequenceItem* item = m_source->first(); item; item = item->next()) {
        const auto* statement =
            item->role() == SequenceItem::Role::Statement ? static_cast<const ZBLStatement*>(item) : nullptr;
        if (statement && statement->line() == line)
            break;
        if (statement && statement->type() == ZBLStatement::Type::If)
            ++depth;
        else if (item->role() == SequenceItem::Role::EndIf)
            --depth;
    }
    return depth;
}

void Program::compile()
{
    classes.reserve(tree.classes().size());
    for (const ZBLClassExp& each : tree.classes()) {
        ClassCode& code = classes.emplace_back();
        code.name = tree.pool().intern(each.className());
        for (std::size_t event = 0; event < eventNameCount; ++event)
            code.events.emplace_back(each.getEventExp(static_cast<EventName>(event)));
    }
    states.reserve(tree.states().size());
    for (const ZBLStateExp& each : tree.states()) {
        StateCode& code = states.emplace_back();
        for (const auto part : {ZBLStateExp::Part::Initialize, ZBLStateExp::Part::Loop})
            code.parts.emplace_back(each.getSubStateExp(part));
    }
}
