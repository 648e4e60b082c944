// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/Actions.h"

#include "runtime/Messages.h"

#include <array>
#include <cmath>

namespace
{

/// What reading a file counts in steps of a block, so that events without an end are found before hours have
/// been spent on reading.
constexpr std::int64_t workOfAFile = 5'000;
constexpr std::int64_t workOfContent(std::size_t size)
{
    return static_cast<std::int64_t>(size / 32);
}

} // namespace

Actions::Actions(RunState& run, FaultList& faults, Evaluator& evaluator, Events& events, GameAssets& assets)
    : m_run(run)
    , m_faults(faults)
    , m_evaluator(evaluator)
    , m_events(events)
    , m_assets(assets)
{
}

Outcome Actions::run(const ZBLMethodExp& statement)
{
    switch (statement.operands()) {
    case Operands::Sprite:
        return onSprite(statement);
    case Operands::SpriteAndValue:
        return withValue(statement);
    case Operands::SpriteAndPlace:
        return withPlace(statement);
    case Operands::TwoObjects:
        return rebound(statement);
    case Operands::GameAndValue:
        return onGame(statement);
    case Operands::None:
        for (std::int32_t i = 0; i < m_run.spriteCount; ++i) // destroyall
            m_run.sprites[static_cast<std::size_t>(i)].destroyed = true;
        return Outcome::Done;
    }
    return Outcome::Stopped;
}

/// What follows a motion in the plane: collisions are looked for, and the map square under the sprite.
Outcome Actions::afterMove(ZBSprite& sprite, int line)
{
    if (!sprite.isFinite())
        return m_faults.fail(say::tooBig, line);
    m_run.sceneChanged = true;
    m_events.placeInGrid(sprite);
    if (m_events.CheckForCollisions(sprite.slot) != Outcome::Done)
        return Outcome::Told;
    m_events.UpdateSpriteMapState(sprite.slot);
    return Outcome::Done;
}

/// What follows a change of heading, speed or height.
Outcome Actions::afterTurn(const ZBSprite& sprite, int line)
{
    if (!sprite.isFinite())
        return m_faults.fail(say::tooBig, line);
    m_run.sceneChanged = true;
    m_events.UpdateSpriteMapState(sprite.slot);
    return Outcome::Done;
}

Outcome Actions::onSprite(const ZBLMethodExp& statement)
{
    ZBSprite* const sprite = m_evaluator.resolve(statement.object(), statement.line());
    return sprite ? act(statement.action(), *sprite, statement.line()) : Outcome::Told;
}

Outcome Actions::act(Action action, ZBSprite& sprite, int line)
{
    switch (action) {
    case Action::Move:
        sprite.move();
        return afterMove(sprite, line);
    case Action::Unmove:
        sprite.Unmove();
        return afterMove(sprite, line);
    case Action::Destroy:
        sprite.destroyed = true;
        // Destroyed all the same where that finds no place on the queue.
        static_cast<void>(m_events.TriggerEvent(sprite.slot, EventName::Destroy, -1));
        return Outcome::Done;
    case Action::Undestroy:
        sprite.destroyed = false;
        return Outcome::Done;
    case Action::Hide:
    case Action::Show:
        m_run.sceneChanged |= sprite.hidden != (action == Action::Hide);
        sprite.hidden = action == Action::Hide;
        return Outcome::Done;
    default:
        return m_faults.fail("[Internal Error!] Unknown method detected.", line);
    }
}

Outcome Actions::failNoCounter(const ZBLMethodExp& statement)
{
    return m_faults.fail(std::string(statement.methodName()) + " method takes a counter or a number!",
                         statement.line());
}

Outcome Actions::withValue(const ZBLMethodExp& statement)
{
    ZBLValueExp value;
    const Outcome outcome = m_evaluator.evaluate(statement.value(), value, statement.line());
    if (outcome != Outcome::Done)
        return outcome;
    if (!value.isCounter())
        return failNoCounter(statement);
    ZBSprite* const sprite = m_evaluator.resolve(statement.object(), statement.line());
    return sprite ? act(statement.action(), *sprite, value.realVal, statement.line()) : Outcome::Told;
}

Outcome Actions::act(Action action, ZBSprite& sprite, double amount, int line)
{
    switch (action) {
    case Action::MoveForward:
        sprite.moveforward(amount);
        return afterMove(sprite, line);
    case Action::MoveLeft:
        sprite.moveBy(-amount, 0, 0);
        return afterMove(sprite, line);
    case Action::MoveRight:
        sprite.moveBy(amount, 0, 0);
        return afterMove(sprite, line);
    case Action::MoveUp:
        sprite.moveBy(0, amount, 0);
        return afterMove(sprite, line);
    case Action::MoveDown:
        sprite.moveBy(0, -amount, 0);
        return afterMove(sprite, line);
    case Action::MoveHigher:
        sprite.moveBy(0, 0, amount);
        return afterTurn(sprite, line);
    case Action::MoveLower:
        sprite.moveBy(0, 0, -amount);
        return afterTurn(sprite, line);
    case Action::ChangeDirection:
        sprite.setDirection(sprite.direction + amount);
        return afterTurn(sprite, line);
    case Action::SetDirection:
        sprite.setDirection(amount);
        return afterTurn(sprite, line);
    case Action::SetSpeed:
        sprite.setSpeed(amount);
        return afterTurn(sprite, line);
    case Action::ChangeSpeed:
        sprite.setSpeed(sprite.speed + amount);
        return afterTurn(sprite, line);
    default:
        return m_faults.fail("[Internal Error!] Unknown method detected.", line);
    }
}

Outcome Actions::withPlace(const ZBLMethodExp& statement)
{
    std::array<ZBLValueExp, 3> values;
    const std::array operands{&statement.value(), &statement.valueY(), &statement.valueZ()};
    for (std::size_t i = 0; i < values.size(); ++i)
        if (const Outcome outcome = m_evaluator.evaluate(*operands[i], values[i], statement.line());
            outcome != Outcome::Done)
            return outcome;
    for (const ZBLValueExp& value : values)
        if (!value.isCounter())
            return failNoCounter(statement);
    ZBSprite* const sprite = m_evaluator.resolve(statement.object(), statement.line());
    return sprite ? place(statement.action(), *sprite, values[0].realVal, values[1].realVal,
                          values[2].realVal, statement.line())
                  : Outcome::Told;
}

Outcome Actions::place(Action action, ZBSprite& sprite, double x, double y, double z, int line)
{
    if (action == Action::SetPosition)
        sprite.moveTo(x, y, z);
    else
        sprite.moveBy(x, y, z);
    return afterMove(sprite, line);
}

Outcome Actions::rebound(const ZBLMethodExp& statement)
{
    if (!statement.object().isSprite())
        return Outcome::Done;
    m_run.sceneChanged = true; // a rotating graphic turns
    ZBSprite* const sprite = m_evaluator.resolve(statement.object(), statement.line());
    if (!sprite)
        return Outcome::Told;
    if (statement.otherObject().isSprite()) {
        const ZBSprite* const other = m_evaluator.resolve(statement.otherObject(), statement.line());
        if (!other)
            return Outcome::Told;
        const double dx = other->x - sprite->x;
        const double dy = other->y - sprite->y;
        // Only a motion towards the other sprite is turned round.
        if (std::abs(dx) > std::abs(dy)) {
            if ((sprite->stepX > 0 && dx > 0) || (sprite->stepX < 0 && dx < 0))
                sprite->turnX();
        } else if ((sprite->stepY > 0 && dy > 0) || (sprite->stepY < 0 && dy < 0)) {
            sprite->turnY();
        }
    } else if (statement.otherObject().name() == ZBLObjectExp::Name::Game) {
        constexpr double edge = 100;
        if ((sprite->x > edge && sprite->stepX > 0) || (sprite->x < -edge && sprite->stepX < 0))
            sprite->turnX();
        if ((sprite->y > edge && sprite->stepY > 0) || (sprite->y < -edge && sprite->stepY < 0))
            sprite->turnY();
    }
    return Outcome::Done;
}

Outcome Actions::onGame(const ZBLMethodExp& statement)
{
    ZBLValueExp name;
    const Outcome outcome = m_evaluator.evaluate(statement.value(), name, statement.line());
    if (outcome != Outcome::Done)
        return outcome;
    m_run.workInPass += workOfAFile;
    switch (statement.action()) {
    case Action::SetBackground:
        return setBackground(name, statement.line());
    case Action::SetMap:
        return setMap(name, statement.line());
    default:
        return setMusic(name, statement.line());
    }
}

Outcome Actions::setBackground(const ZBLValueExp& name, int line)
{
    const std::string plain = m_evaluator.basicText(name);
    const RunFiles::Background background = m_assets.background(plain);
    if (!background.field)
        return m_faults.fail("Could not load background named " + m_evaluator.valueText(name), line);
    m_run.workInPass += workOfContent(background.pixelsRead + background.field->pixels().size());
    m_run.sceneChanged |= m_run.background != background.field;
    m_run.background = background.field;
    m_run.game.backgroundName = m_run.program->tree.pool().intern(plain);
    return Outcome::Done;
}

Outcome Actions::setMap(const ZBLValueExp& name, int line)
{
    const std::string plain = m_evaluator.basicText(name);
    if (m_assets.exists(plain)) {
        const auto text = m_assets.text(plain);
        auto map = std::make_shared<ZBMap>(*m_run.map); // what a damaged file does not say stays
        const bool loaded = text && map->fromText(*text);
        m_run.map = std::move(map);
        m_run.sceneChanged = true;
        m_run.workInPass += workOfContent(text ? text->size() : 0);
        m_events.UpdateSpriteMapStates();
        if (loaded) {
            m_run.game.mapName = m_run.program->tree.pool().intern(plain);
            return Outcome::Done;
        }
    }
    return m_faults.fail("Could not load map named " + m_evaluator.valueText(name), line);
}

Outcome Actions::setMusic(const ZBLValueExp& name, int line)
{
    const std::string plain = m_evaluator.basicText(name);
    if (!m_assets.exists(plain))
        return m_faults.fail("Could not load music named " + m_evaluator.valueText(name), line);
    m_run.game.musicName = m_run.program->tree.pool().intern(plain);
    return Outcome::Done;
}

std::shared_ptr<const ZBGraphic> Actions::getGraphic(std::string_view name)
{
    for (const auto& graphic : m_run.graphics)
        if (graphic->getName() == name)
            return graphic;
    auto graphic = m_assets.graphic(name, m_run.graphics);
    if (graphic)
        m_run.graphics.push_back(graphic);
    return graphic;
}

Outcome Actions::create(const ZBLCreateExp& statement)
{
    m_run.sceneChanged = true;
    const int line = statement.line();
    ZBSprite wanted;
    if (createClass(statement, wanted) != Outcome::Done)
        return Outcome::Told;
    const ZBLSimpleExp& tag = statement.operand(ZBLCreateExp::Tag);
    if (m_evaluator.evaluate(tag, wanted.tag, line) != Outcome::Done)
        return m_faults.fail("I do not understand " + tag.toString(), line);
    struct Number {
        ZBLCreateExp::Operand operand;
        std::string_view what;
        double& target;
    };
    for (const Number& number : {Number{ZBLCreateExp::Direction, "initial direction", wanted.direction},
                                 Number{ZBLCreateExp::Speed, "initial speed", wanted.speed},
                                 Number{ZBLCreateExp::X, "initial x position", wanted.x},
                                 Number{ZBLCreateExp::Y, "initial y position", wanted.y},
                                 Number{ZBLCreateExp::Z, "initial z position", wanted.z}})
        if (createNumber(statement, number.operand, number.what, number.target) != Outcome::Done)
            return Outcome::Told;
    Text graphic = nullptr;
    if (createGraphic(statement, graphic) != Outcome::Done)
        return Outcome::Told;
    if (!m_events.createSprite(wanted, getGraphic(*graphic)))
        return m_faults.fail("Could not find sprite graphic named " + *graphic, line);
    return Outcome::Done;
}

Outcome Actions::createClass(const ZBLCreateExp& statement, ZBSprite& wanted)
{
    const ZBLSimpleExp& operand = statement.operand(ZBLCreateExp::Class);
    ZBLValueExp value;
    if (m_evaluator.evaluate(operand, value, statement.line()) != Outcome::Done)
        return m_faults.fail("Could not get a class name from " + operand.toString(), statement.line());
    if (!value.isClassName())
        return m_faults.fail("When I got the value of " + operand.toString() +
                                 ", I expected a class name but got " + m_evaluator.valueText(value),
                             statement.line());
    const auto index = m_run.programLoaded ? m_run.program->tree.findClass(*value.stringVal) : std::nullopt;
    if (!index)
        return m_faults.fail("You tried to make a sprite of class " + m_evaluator.valueText(value) +
                                 ", but there is no class of this type!",
                             statement.line());
    wanted.className = value.stringVal;
    wanted.classIndex = *index;
    return Outcome::Done;
}

Outcome Actions::createNumber(const ZBLCreateExp& statement, ZBLCreateExp::Operand which,
                              std::string_view what, double& number)
{
    const ZBLSimpleExp& operand = statement.operand(which);
    ZBLValueExp value;
    if (m_evaluator.evaluate(operand, value, statement.line()) != Outcome::Done)
        return m_faults.fail("While trying to determine the " + std::string(what) +
                                 " for a sprite, I could not understand " + operand.toString(),
                             statement.line());
    if (!value.isCounter())
        return m_faults.fail("While trying to set the " + std::string(what) +
                                 " for a sprite, I expected a counter or a number but got the value " +
                                 m_evaluator.valueText(value),
                             statement.line());
    number = value.realVal;
    return Outcome::Done;
}

Outcome Actions::createGraphic(const ZBLCreateExp& statement, Text& name)
{
    const ZBLSimpleExp& operand = statement.operand(ZBLCreateExp::Graphic);
    ZBLValueExp value;
    if (m_evaluator.evaluate(operand, value, statement.line()) != Outcome::Done)
        return m_faults.fail(
            "While trying to determine the sprite graphic for a sprite, I could not understand " +
                operand.toString(),
            statement.line());
    if (!value.isText())
        return m_faults.fail(
            "While trying to set the sprite graphic for a sprite, I expected a text but got the value " +
                m_evaluator.valueText(value),
            statement.line());
    name = value.stringVal;
    return Outcome::Done;
}
