#include "runtime/ZBContext.h"

#include "language/ZBLCreateExp.h"
#include "language/ZBLDebugExp.h"
#include "language/ZBLMethodExp.h"
#include "language/ZBLMutateExp.h"
#include "language/ZBLSetStateExp.h"
#include "runtime/Messages.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <limits>

// Running the code of a block, and the values of operands.

namespace
{

/// Neither too big nor unset: variables that have not been set hold no number, so this one test finds both.
bool isUsable(double number)
{
    return std::abs(number) <= std::numeric_limits<double>::max();
}

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
    return ZBLValueExp::text(pool.intern(b ? "true" : "False"));
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
        return Bool2ZBText(
            sprite.mapSquare.getField(static_cast<int>(property) - static_cast<int>(Property::Red)), pool);
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

// Threaded code: every step jumps straight to the next one's label, which is what makes the branch predictor
// good at it. The addresses of labels are an extension that both compilers have.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic"

bool ZBContext::Interpret(const SequenceCode& code)
{
    // In the order of Op.
    static const void* const labels[] = {
        &&end,
        &&jump,
        &&announce,
        &&announceIf,
        &&endIf,
        &&setCounterConstant,
        &&setCounterVariable,
        &&setTextConstant,
        &&setTextVariable,
        &&changeConstant,
        &&changeVariable,
        &&ifConstantEqual,
        &&ifConstantNotEqual,
        &&ifConstantLess,
        &&ifConstantGreater,
        &&ifConstantLessOrEqual,
        &&ifConstantGreaterOrEqual,
        &&ifVariableEqual,
        &&ifVariableNotEqual,
        &&ifVariableLess,
        &&ifVariableGreater,
        &&ifVariableLessOrEqual,
        &&ifVariableGreaterOrEqual,
        &&ifTextConstantEqual,
        &&ifTextConstantNotEqual,
        &&ifTextVariableEqual,
        &&ifTextVariableNotEqual,
        &&ifStatement,
        &&mutate,
        &&action,
        &&create,
        &&setState,
        &&pause,
    };
    static_assert(std::size(labels) == static_cast<std::size_t>(Op::count), "a label for every step");

    // Boxes are ticked and the step mode is switched between blocks or while an announced statement waits, so
    // that the choice holds for the whole block.
    const bool isTraced = m_interpreter.mustAnnounce();
    const Step* const first = isTraced ? code.traced() : code.quick();
    const Step* step = first;
    double* const counters = m_run.variables.counters.data();
    Text* const texts = m_run.variables.texts.data();
    bool isTest = false; // the step that failed is the test of an if

#define GO goto* labels[static_cast<std::size_t>(step->op)] // NOLINT(bugprone-macro-parentheses)
#define NEXT                                                                                                 \
    do {                                                                                                     \
        ++step;                                                                                              \
        GO;                                                                                                  \
    } while (false)
#define BRANCH(test, usable)                                                                                 \
    do {                                                                                                     \
        if (test)                                                                                            \
            NEXT;                                                                                            \
        if (!(usable))                                                                                       \
            goto failedTest;                                                                                 \
        step = first + step->jump;                                                                           \
        GO;                                                                                                  \
    } while (false)
// A comparison with a variable that is not set never holds, so that only the other way needs a look.
#define COUNTER_CONSTANT(op)                                                                                 \
    do {                                                                                                     \
        const double left = counters[step->a];                                                               \
        BRANCH(left op step->number, left == left);                                                          \
    } while (false)
#define COUNTER_VARIABLE(op)                                                                                 \
    do {                                                                                                     \
        const double left = counters[step->a];                                                               \
        const double right = counters[step->b];                                                              \
        BRANCH(left op right, !std::isunordered(left, right));                                               \
    } while (false)

    GO;

end:
    return true;
jump:
    step = first + step->jump;
    GO;
announce:
    if (!m_interpreter.TraceLine(step->line))
        goto failed;
    NEXT;
announceIf:
    if (!m_interpreter.TraceLine(step->line))
        goto failed;
    m_interpreter.TraceIfBegin();
    NEXT;
endIf:
    m_interpreter.TraceIfEnd();
    NEXT;

setCounterConstant : {
    double& target = counters[step->a];
    if (target != target)
        firstSet(ValueKind::Counter, step->a);
    target = step->number;
    NEXT;
}
setCounterVariable : {
    const double value = counters[step->b];
    if (value != value)
        goto failed;
    double& target = counters[step->a];
    if (target != target)
        firstSet(ValueKind::Counter, step->a);
    target = value;
    NEXT;
}
setTextConstant : {
    Text& target = texts[step->a];
    if (!target)
        firstSet(ValueKind::Text, step->a);
    target = step->text;
    NEXT;
}
setTextVariable : {
    Text value = texts[step->b];
    if (!value)
        goto failed;
    Text& target = texts[step->a];
    if (!target)
        firstSet(ValueKind::Text, step->a);
    target = value;
    NEXT;
}
changeConstant : {
    const double sum = counters[step->a] + step->number;
    if (!isUsable(sum)) {
        changeFailed(*step);
        goto failed;
    }
    counters[step->a] = sum;
    NEXT;
}
changeVariable : {
    const double sum = counters[step->a] + counters[step->b];
    if (!isUsable(sum)) {
        changeFailed(*step);
        goto failed;
    }
    counters[step->a] = sum;
    NEXT;
}

ifConstantEqual:
    COUNTER_CONSTANT(==);
ifConstantNotEqual : {
    const double left = counters[step->a];
    BRANCH(left < step->number || left > step->number, left == left);
}
ifConstantLess:
    COUNTER_CONSTANT(<);
ifConstantGreater:
    COUNTER_CONSTANT(>);
ifConstantLessOrEqual:
    COUNTER_CONSTANT(<=);
ifConstantGreaterOrEqual:
    COUNTER_CONSTANT(>=);
ifVariableEqual:
    COUNTER_VARIABLE(==);
ifVariableNotEqual : {
    const double left = counters[step->a];
    const double right = counters[step->b];
    BRANCH(left < right || left > right, !std::isunordered(left, right));
}
ifVariableLess:
    COUNTER_VARIABLE(<);
ifVariableGreater:
    COUNTER_VARIABLE(>);
ifVariableLessOrEqual:
    COUNTER_VARIABLE(<=);
ifVariableGreaterOrEqual:
    COUNTER_VARIABLE(>=);

// Every text is kept once, so that two are equal exactly when their addresses are.
ifTextConstantEqual:
    BRANCH(texts[step->a] == step->text, texts[step->a] != nullptr);
ifTextConstantNotEqual : {
    Text left = texts[step->a];
    BRANCH(left && left != step->text, left != nullptr);
}
ifTextVariableEqual : {
    Text left = texts[step->a];
    Text right = texts[step->b];
    BRANCH(left && left == right, left && right);
}
ifTextVariableNotEqual : {
    Text left = texts[step->a];
    Text right = texts[step->b];
    BRANCH(left && right && left != right, left && right);
}

ifStatement : {
    bool result = false;
    if (!runIf(static_cast<const ZBLIfExp&>(*step->statement), result))
        goto failedTest;
    if (result)
        NEXT;
    step = first + step->jump;
    GO;
}
mutate:
    if (!runMutate(static_cast<const ZBLMutateExp&>(*step->statement)))
        goto failed;
    NEXT;
action:
    if (!runAction(static_cast<const ZBLMethodExp&>(*step->statement)))
        goto failed;
    NEXT;
create:
    if (!runCreate(static_cast<const ZBLCreateExp&>(*step->statement)))
        goto failed;
    NEXT;
setState:
    m_run.nextState = static_cast<const ZBLSetStateExp&>(*step->statement).stateName();
    NEXT;
pause:
    runPause(static_cast<const ZBLDebugExp&>(*step->statement), isTraced ? 0 : code.depthAt(step->line));
    goto failed;

failedTest:
    isTest = true;
failed:
    // An if whose block failed is still ended in the trace; one whose test failed is not. In the quick form
    // the ifs around never began, so only such a test leaves its mark.
    if (isTraced) {
        for (int around = code.depthAt(step->line); around > 0; --around)
            m_interpreter.TraceIfEnd();
    } else if (isTest) {
        m_interpreter.TraceIfBegin();
    }
    return false;

#undef COUNTER_VARIABLE
#undef COUNTER_CONSTANT
#undef BRANCH
#undef NEXT
#undef GO
}

#pragma GCC diagnostic pop

/// A change that did not come to a usable number: says why, in the order in which a statement looks.
void ZBContext::changeFailed(const Step& step)
{
    const std::vector<double>& counters = m_run.variables.counters;
    if (step.op == Op::ChangeVariable && std::isnan(counters[static_cast<std::size_t>(step.b)]))
        return; // an amount that is not set stops the block without a word
    const bool isUnset = std::isnan(counters[static_cast<std::size_t>(step.a)]);
    fail(isUnset ? say::changeBeforeSet : say::tooBig, step.line);
}

std::string ZBContext::valueText(const ZBLValueExp& value)
{
    const auto text = value.toString();
    if (!text)
        fail(say::invalidValue, 1);
    return text.value_or(std::string());
}

std::string ZBContext::basicText(const ZBLValueExp& value)
{
    const auto text = value.toBasicString();
    if (!text)
        fail(say::invalidValue, 1);
    return text.value_or(std::string());
}

bool ZBContext::evaluate(const ZBLSimpleExp& operand, ZBLValueExp& value, int line)
{
    switch (operand.kind()) {
    case ZBLSimpleExp::Kind::Literal:
        value = operand.value();
        return !value.isCounter() || isUsable(value.realVal) || fail(say::tooBig, line);
    case ZBLSimpleExp::Kind::ClassName:
        value = operand.value();
        return true;
    case ZBLSimpleExp::Kind::Variable:
        return getVariable(operand.variable(), value);
    case ZBLSimpleExp::Kind::Property:
        return getProperty(operand, value, line);
    case ZBLSimpleExp::Kind::Random:
        return evaluateRandom(operand, value, line);
    case ZBLSimpleExp::Kind::None:
        break;
    }
    return false;
}

bool ZBContext::evaluateRandom(const ZBLSimpleExp& operand, ZBLValueExp& value, int line)
{
    ZBLValueExp lowValue;
    ZBLValueExp highValue;
    if (!evaluate(operand.low(), lowValue, line) || !evaluate(operand.high(), highValue, line) ||
        !lowValue.isCounter() || !highValue.isCounter())
        return false;
    const double low = std::min(lowValue.realVal, highValue.realVal);
    const double high = std::max(lowValue.realVal, highValue.realVal);
    const bool isWhole = std::floor(low) == low && std::floor(high) == high;
    constexpr double countable = 0x1.0p62;
    if (isWhole && high - low < countable) {
        const auto choices = static_cast<std::uint64_t>(high - low) + 1;
        value = ZBLValueExp::counter(low + static_cast<double>(m_run.random.below(choices)));
        return true;
    }
    const double share = m_run.random.nextReal();
    double drawn = low * (1 - share) + high * share; // a difference could become too big
    if (isWhole)
        drawn = std::floor(drawn);
    value = ZBLValueExp::counter(low < high ? std::clamp(drawn, low, std::nextafter(high, low)) : low);
    return true;
}

bool ZBContext::getProperty(const ZBLSimpleExp& operand, ZBLValueExp& value, int line)
{
    TextPool& pool = m_run.program->tree.pool();
    if (operand.object().isSprite()) {
        const ZBSprite* const sprite = resolve(operand.object(), line);
        if (!sprite)
            return false;
        value = spriteProperty(*sprite, operand.property(), pool);
    } else if (operand.property() == Property::AnyKey) {
        value = Bool2ZBText(m_run.keyboard.anyKey(), pool);
    } else if (operand.property() == Property::Key) {
        const auto codes = operand.keyCodes();
        value = Bool2ZBText(m_run.keyboard.isDown(codes[0]) || m_run.keyboard.isDown(codes[1]), pool);
    } else {
        value = gameProperty(m_run.game, operand.property(), pool);
    }
    return value.type != ValueKind::None ||
           fail("[Internal error!] Unknown property of  " + std::string(operand.object().getName()) + ": " +
                    *operand.propertyName(),
                line);
}

bool ZBContext::compare(const ZBLValueExp& left, const ZBLValueExp& right, ZBLIfExp::Operator op, int line,
                        bool& result)
{
    if (left.type != right.type)
        return fail(
            "You tried to compare two things that are different types.  You can only compare text to text, "
            "counters to counters, classnames to classnames.",
            line);
    if (left.isCounter()) {
        result = holds(op, left.realVal, right.realVal);
        return true;
    }
    if (op == Operator::Equal || op == Operator::NotEqual) {
        result = (left.stringVal == right.stringVal) == (op == Operator::Equal);
        return true;
    }
    if (left.isClassName())
        return fail("You can only use = and != to compare class names.", line);
    assert(left.stringVal && right.stringVal);
    result = holds(op, *left.stringVal, *right.stringVal);
    return true;
}

bool ZBContext::runIf(const ZBLIfExp& statement, bool& result)
{
    ZBLValueExp left;
    ZBLValueExp right;
    return evaluate(statement.left(), left, statement.line()) &&
           evaluate(statement.right(), right, statement.line()) &&
           compare(left, right, statement.op(), statement.line(), result);
}

bool ZBContext::runMutate(const ZBLMutateExp& statement)
{
    const bool isText = statement.target().type == ValueKind::Text;
    const bool isChange = statement.verb() == ZBLMutateExp::Verb::Change;
    if (isChange && isText)
        return fail("Change does not work on text variables!", statement.line());
    ZBLValueExp value;
    if (!evaluate(statement.value(), value, statement.line()))
        return false;
    if (!isChange)
        return setVariable(statement.target(), value) ||
               fail(isText ? "You put a number value into a text variable!"
                           : "You put a text value into a counter variable!",
                    statement.line());
    if (!value.isCounter())
        return fail("Change does not work with anything except numbers!", statement.line());
    double& counter = m_run.variables.counters[static_cast<std::size_t>(statement.target().slot)];
    if (std::isnan(counter))
        return fail(say::changeBeforeSet, statement.line());
    const double sum = counter + value.realVal;
    if (!isUsable(sum))
        return fail(say::tooBig, statement.line());
    counter = sum;
    return true;
}

void ZBContext::runPause(const ZBLDebugExp& statement, int depth)
{
    // The quick form keeps no account of the ifs around, so they are counted in here.
    m_interpreter.TraceDepth += depth;
    m_interpreter.TracePause(statement.line());
    m_interpreter.TraceDepth -= depth;
    m_interpreter.PauseGame();
}
