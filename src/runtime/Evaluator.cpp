// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/Evaluator.h"

#include "runtime/Messages.h"

#include <algorithm>
#include <cassert>

namespace
{

using Operator = ZBLIfExp::Operator;

template<typename Value> bool holds(Operator op, const Value& left, const Value& right)
{
    switch (op) {
    case Operator::Equal:
        return left == right;
    case Operator::NotEqual:
        return left != right;
    case Operator::Less:
        return left < right;
    case Operator::Greater:
        return left > right;
    case Operator::LessOrEqual:
        return left <= right;
    case Operator::GreaterOrEqual:
        return left >= right;
    }
    return false;
}

ZBLValueExp Bool2ZBText(bool b, TextPool& pool)
{
    // False with a capital: no literal of a program, which is lower case, ever equals it.
    return ZBLValueExp::text(pool.truth(b));
}

int mapColorOf(Property property)
{
    return static_cast<int>(std::ranges::find(colorProperties, property) - colorProperties.begin());
}

/// A property of a sprite; no value for what sprites do not have.
ZBLValueExp spriteProperty(const ZBSprite& sprite, Property property, TextPool& pool)
{
    switch (property) {
    case Property::X:
        return ZBLValueExp::counter(sprite.x);
    case Property::Y:
        return ZBLValueExp::counter(sprite.y);
    case Property::Z:
        return ZBLValueExp::counter(sprite.z);
    case Property::Speed:
        return ZBLValueExp::counter(sprite.speed);
    case Property::Class:
        return ZBLValueExp::className(sprite.className);
    case Property::Red:
    case Property::Orange:
    case Property::Yellow:
    case Property::Green:
    case Property::Cyan:
    case Property::Blue:
    case Property::Purple:
        return Bool2ZBText(sprite.mapSquare.getField(mapColorOf(property)), pool);
    default:
        return {};
    }
}

/// A property of the game, empty where it has not been set; no value for what the game does not have.
ZBLValueExp gameProperty(const ZBGame& game, Property property, TextPool& pool)
{
    const auto named = [&](Text name) { return ZBLValueExp::text(name ? name : pool.intern("")); };
    switch (property) {
    case Property::Background:
        return named(game.backgroundName);
    case Property::Music:
        return named(game.musicName);
    case Property::Map:
        return named(game.mapName);
    default:
        return {};
    }
}

} // namespace

Evaluator::Evaluator(RunState& run, FaultList& faults)
    : m_run(run)
    , m_faults(faults)
{
}

std::string Evaluator::valueText(const ZBLValueExp& value)
{
    const auto text = value.toString();
    if (!text)
        static_cast<void>(m_faults.fail(say::invalidValue, 1));
    return text.value_or(std::string());
}

std::string Evaluator::basicText(const ZBLValueExp& value)
{
    const auto text = value.toBasicString();
    if (!text)
        static_cast<void>(m_faults.fail(say::invalidValue, 1));
    return text.value_or(std::string());
}

Outcome Evaluator::evaluate(const ZBLSimpleExp& operand, ZBLValueExp& value, int line)
{
    switch (operand.kind()) {
    case ZBLSimpleExp::Kind::Literal:
        value = operand.value();
        return !value.isCounter() || isUsable(value.realVal) ? Outcome::Done
                                                             : m_faults.fail(say::tooBig, line);
    case ZBLSimpleExp::Kind::ClassName:
        value = operand.value();
        return Outcome::Done;
    case ZBLSimpleExp::Kind::Variable:
        return getVariable(operand.variable(), value);
    case ZBLSimpleExp::Kind::Property:
        return getProperty(operand, value, line);
    case ZBLSimpleExp::Kind::Random:
        return evaluateRandom(operand, value, line);
    case ZBLSimpleExp::Kind::None:
        break;
    }
    return Outcome::Stopped;
}

Outcome Evaluator::evaluateRandom(const ZBLSimpleExp& operand, ZBLValueExp& value, int line)
{
    ZBLValueExp lowValue;
    ZBLValueExp highValue;
    if (const Outcome outcome = evaluate(operand.low(), lowValue, line); outcome != Outcome::Done)
        return outcome;
    if (const Outcome outcome = evaluate(operand.high(), highValue, line); outcome != Outcome::Done)
        return outcome;
    if (!lowValue.isCounter() || !highValue.isCounter())
        return Outcome::Stopped;
    value = ZBLValueExp::counter(draw(lowValue.realVal, highValue.realVal));
    return Outcome::Done;
}

double Evaluator::draw(double one, double other)
{
    const double low = std::min(one, other);
    const double high = std::max(one, other);
    const bool isWhole = std::floor(low) == low && std::floor(high) == high;
    constexpr double countable = 0x1.0p62;
    if (isWhole && high - low < countable) {
        const auto choices = static_cast<std::uint64_t>(high - low) + 1;
        return low + static_cast<double>(m_run.random.below(choices));
    }
    const double share = m_run.random.nextReal();
    double drawn = low * (1 - share) + high * share; // a difference could become too big
    if (isWhole)
        drawn = std::floor(drawn);
    return low < high ? std::clamp(drawn, low, std::nextafter(high, low)) : low;
}

Outcome Evaluator::getProperty(const ZBLSimpleExp& operand, ZBLValueExp& value, int line)
{
    TextPool& pool = m_run.program->tree.pool();
    if (operand.object().isSprite()) {
        const ZBSprite* const sprite = resolve(operand.object(), line);
        if (!sprite)
            return Outcome::Told;
        value = spriteProperty(*sprite, operand.property(), pool);
    } else if (operand.property() == Property::AnyKey) {
        value = Bool2ZBText(m_run.keyboard.anyKey(), pool);
    } else if (operand.property() == Property::Key) {
        const auto codes = operand.keyCodes();
        value = Bool2ZBText(m_run.keyboard.isDown(codes[0]) || m_run.keyboard.isDown(codes[1]), pool);
    } else {
        value = gameProperty(m_run.game, operand.property(), pool);
    }
    if (value.type != ValueKind::None)
        return Outcome::Done;
    return m_faults.fail("[Internal error!] Unknown property of  " + std::string(operand.object().getName()) +
                             ": " + *operand.propertyName(),
                         line);
}

Outcome Evaluator::compare(const ZBLValueExp& left, const ZBLValueExp& right, ZBLIfExp::Operator op, int line,
                           bool& result)
{
    if (left.type != right.type)
        return m_faults.fail(
            "You tried to compare two things that are different types.  You can only compare text to text, "
            "counters to counters, classnames to classnames.",
            line);
    if (left.isCounter()) {
        result = holds(op, left.realVal, right.realVal);
        return Outcome::Done;
    }
    if (op == Operator::Equal || op == Operator::NotEqual) {
        result = (left.stringVal == right.stringVal) == (op == Operator::Equal);
        return Outcome::Done;
    }
    if (left.isClassName())
        return m_faults.fail("You can only use = and != to compare class names.", line);
    assert(left.stringVal && right.stringVal);
    result = holds(op, *left.stringVal, *right.stringVal);
    return Outcome::Done;
}

Outcome Evaluator::getVariable(const ZBLVarExp& variable, ZBLValueExp& value) const
{
    const auto slot = static_cast<std::size_t>(variable.slot);
    if (variable.type == ValueKind::Counter) {
        const double number = m_run.variables.counters[slot];
        value = ZBLValueExp::counter(number);
        return std::isnan(number) ? Outcome::Stopped : Outcome::Done;
    }
    Text text = m_run.variables.texts[slot];
    value = ZBLValueExp::text(text);
    return text ? Outcome::Done : Outcome::Stopped;
}

ZBSprite* Evaluator::resolve(const ZBLObjectExp& object, int line)
{
    const bool isIt = object.name() != ZBLObjectExp::Name::Me;
    ZBSprite* const sprite = bound(isIt);
    if (!sprite)
        static_cast<void>(m_faults.fail(isIt ? "@@@You can't use IT if you aren't in an event!"
                                             : "You can't use ME if you aren't in an event!",
                                        line));
    return sprite;
}
