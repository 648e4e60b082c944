#include "runtime/ZBContext.h"

#include "language/ZBLCreateExp.h"
#include "language/ZBLMethodExp.h"
#include "runtime/Messages.h"

#include <array>
#include <cmath>

// The statements that act on sprites and on the game.

namespace
{

/// Of all graphics of a run together. Pictures squeeze well: small files could fill any memory.
constexpr std::size_t mostGraphicPixels = std::size_t{32} << 20U;

/// What reading a file counts in steps of a block, so that events without an end are found before hours have
/// been spent on reading.
constexpr std::int64_t workOfAFile = 5'000;
constexpr std::int64_t workOfContent(std::size_t size)
{
    return static_cast<std::int64_t>(size / 32);
}

} // namespace

bool ZBContext::runAction(const ZBLMethodExp& statement)
{
    m_sceneChanged = true;
    switch (statement.operands()) {
    case Operands::Sprite:
        return runOnSprite(statement);
    case Operands::SpriteAndValue:
        return runWithValue(statement);
    case Operands::SpriteAndPlace:
        return runWithPlace(statement);
    case Operands::TwoObjects:
        return runRebound(statement);
    case Operands::GameAndValue:
        return runOnGame(statement);
    case Operands::None:
        for (std::int32_t i = 0; i < m_run.spriteCount; ++i) // destroyall
            m_run.sprites[static_cast<std::size_t>(i)].destroyed = true;
        return true;
    }
    return false;
}

ZBSprite* ZBContext::resolve(const ZBLObjectExp& object, int line)
{
    return object.name() == ZBLObjectExp::Name::Me ? getMePtr(line) : getItPtr(line);
}

/// What follows a motion in the plane: collisions are looked for, and the map square under the sprite.
bool ZBContext::afterMove(ZBSprite& sprite, int line)
{
    if (!sprite.isFinite())
        return fail(say::tooBig, line);
    placeInGrid(sprite);
    const std::int32_t slot = sprite.slot; // the message of a failure may end the run
    if (!CheckForCollisions(slot))
        return false;
    UpdateSpriteMapState(slot);
    return true;
}

/// What follows a change of heading, speed or height.
bool ZBContext::afterTurn(const ZBSprite& sprite, int line)
{
    if (!sprite.isFinite())
        return fail(say::tooBig, line);
    UpdateSpriteMapState(sprite.slot);
    return true;
}

bool ZBContext::runOnSprite(const ZBLMethodExp& statement)
{
    ZBSprite* const sprite = resolve(statement.object(), statement.line());
    if (!sprite)
        return false;
    switch (statement.action()) {
    case Action::Move:
        sprite->move();
        return afterMove(*sprite, statement.line());
    case Action::Unmove:
        sprite->Unmove();
        return afterMove(*sprite, statement.line());
    case Action::Destroy:
        sprite->destroyed = true;
        TriggerEvent(sprite->slot, EventName::Destroy, -1);
        return true;
    case Action::Undestroy:
        sprite->destroyed = false;
        return true;
    case Action::Hide:
        sprite->hidden = true;
        return true;
    case Action::Show:
        sprite->hidden = false;
        return true;
    default:
        return fail("[Internal Error!] Unknown method detected.", statement.line());
    }
}

bool ZBContext::failNoCounter(const ZBLMethodExp& statement)
{
    return fail(std::string(statement.methodName()) + " method takes a counter or a number!",
                statement.line());
}

bool ZBContext::runWithValue(const ZBLMethodExp& statement)
{
    ZBLValueExp value;
    if (!evaluate(statement.value(), value, statement.line()))
        return false;
    if (!value.isCounter())
        return failNoCounter(statement);
    const double amount = value.realVal;
    ZBSprite* const sprite = resolve(statement.object(), statement.line());
    if (!sprite)
        return false;
    switch (statement.action()) {
    case Action::MoveForward:
        sprite->moveforward(amount);
        return afterMove(*sprite, statement.line());
    case Action::MoveLeft:
        sprite->moveBy(-amount, 0, 0);
        return afterMove(*sprite, statement.line());
    case Action::MoveRight:
        sprite->moveBy(amount, 0, 0);
        return afterMove(*sprite, statement.line());
    case Action::MoveUp:
        sprite->moveBy(0, amount, 0);
        return afterMove(*sprite, statement.line());
    case Action::MoveDown:
        sprite->moveBy(0, -amount, 0);
        return afterMove(*sprite, statement.line());
    case Action::MoveHigher:
        sprite->moveBy(0, 0, amount);
        return afterTurn(*sprite, statement.line());
    case Action::MoveLower:
        sprite->moveBy(0, 0, -amount);
        return afterTurn(*sprite, statement.line());
    case Action::ChangeDirection:
        sprite->setDirection(sprite->direction + amount);
        return afterTurn(*sprite, statement.line());
    case Action::SetDirection:
        sprite->setDirection(amount);
        return afterTurn(*sprite, statement.line());
    case Action::SetSpeed:
        sprite->setSpeed(amount);
        return afterTurn(*sprite, statement.line());
    case Action::ChangeSpeed:
        sprite->setSpeed(sprite->speed + amount);
        return afterTurn(*sprite, statement.line());
    default:
        return fail("[Internal Error!] Unknown method detected.", statement.line());
    }
}

bool ZBContext::runWithPlace(const ZBLMethodExp& statement)
{
    const int line = statement.line();
    std::array<ZBLValueExp, 3> place;
    if (!evaluate(statement.value(), place[0], line) || !evaluate(statement.valueY(), place[1], line) ||
        !evaluate(statement.valueZ(), place[2], line))
        return false;
    for (const ZBLValueExp& value : place)
        if (!value.isCounter())
            return failNoCounter(statement);
    ZBSprite* const sprite = resolve(statement.object(), line);
    if (!sprite)
        return false;
    const auto [x, y, z] = std::array{place[0].realVal, place[1].realVal, place[2].realVal};
    if (statement.action() == Action::SetPosition)
        sprite->moveTo(x, y, z);
    else
        sprite->moveBy(x, y, z);
    return afterMove(*sprite, statement.line());
}

bool ZBContext::runRebound(const ZBLMethodExp& statement)
{
    if (!statement.object().isSprite())
        return true;
    ZBSprite* const sprite = resolve(statement.object(), statement.line());
    if (!sprite)
        return false;
    if (statement.otherObject().isSprite()) {
        const ZBSprite* const other = resolve(statement.otherObject(), statement.line());
        if (!other)
            return false;
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
    return true;
}

bool ZBContext::runOnGame(const ZBLMethodExp& statement)
{
    ZBLValueExp name;
    if (!evaluate(statement.value(), name, statement.line()))
        return false;
    m_workInPass += workOfAFile;
    switch (statement.action()) {
    case Action::SetBackground:
        return setBackground(name, statement.line());
    case Action::SetMap:
        return setMap(name, statement.line());
    default:
        return setMusic(name, statement.line());
    }
}

bool ZBContext::setBackground(const ZBLValueExp& name, int line)
{
    const std::string plain = basicText(name);
    const std::string file = m_path + plain;
    const Installation& installation = m_interpreter.installation();
    std::optional<Surface> picture;
    if (installation.isFile(file))
        picture = m_interpreter.pictures().read(*installation.find(file));
    if (!picture || picture->isNull())
        return fail("Could not load background named " + valueText(name), line);

    m_workInPass += workOfContent(picture->pixels().size() + m_surfaces.Display.pixels().size());
    m_surfaces.temppic = std::move(*picture);
    Surface field(m_surfaces.Display.width(), m_surfaces.Display.height(), white);
    stretch(field, m_surfaces.temppic);
    m_surfaces.temppic = Surface(10, 10, white);
    m_run.background = std::make_shared<const Surface>(std::move(field));
    m_surfaces.Background = *m_run.background;
    m_run.game.backgroundName = m_run.program->tree.pool().intern(plain);
    return true;
}

bool ZBContext::setMap(const ZBLValueExp& name, int line)
{
    const std::string plain = basicText(name);
    const std::string file = m_path + plain;
    if (m_interpreter.installation().isFile(file)) {
        const auto text = m_interpreter.installation().readText(file);
        const bool loaded = text && m_run.map.fromText(*text);
        m_workInPass += workOfContent(text ? text->size() : 0);
        UpdateSpriteMapStates();
        if (loaded) {
            m_run.game.mapName = m_run.program->tree.pool().intern(plain);
            return true;
        }
    }
    return fail("Could not load map named " + valueText(name), line);
}

bool ZBContext::setMusic(const ZBLValueExp& name, int line)
{
    const std::string plain = basicText(name);
    if (!m_interpreter.installation().isFile(m_path + plain))
        return fail("Could not load music named " + valueText(name), line);
    m_run.game.musicName = m_run.program->tree.pool().intern(plain);
    return true;
}

std::shared_ptr<const ZBGraphic> ZBContext::getGraphic(std::string_view name)
{
    for (const auto& graphic : m_run.graphics)
        if (graphic->getName() == name)
            return graphic;
    auto graphic = loadGraphic(name);
    if (graphic)
        m_run.graphics.push_back(graphic);
    return graphic;
}

std::shared_ptr<const ZBGraphic> ZBContext::loadGraphic(std::string_view name)
{
    const Installation& installation = m_interpreter.installation();
    if (m_run.graphics.size() >= GameSurfaces::graphicCount)
        return nullptr;
    const std::string file = m_path + std::string(name);
    const auto text = installation.readText(file + ".spr");
    auto description = text ? GraphicDescription::fromText(*text) : std::nullopt;
    const auto pictureFile = installation.find(file + ".spb");
    if (!description || !pictureFile)
        return nullptr;
    auto picture = m_interpreter.pictures().read(*pictureFile);
    if (!picture || picture->isNull())
        return nullptr;
    std::size_t pixels = picture->pixels().size();
    for (std::size_t i = 0; i < m_run.graphics.size(); ++i)
        pixels += m_surfaces.Graphic[i].pixels().size();
    if (pixels > mostGraphicPixels)
        return nullptr;
    Surface& surface = m_surfaces.Graphic[m_run.graphics.size()];
    surface = std::move(*picture);
    return std::make_shared<const ZBGraphic>(name, std::move(*description), surface);
}

bool ZBContext::runCreate(const ZBLCreateExp& statement)
{
    m_sceneChanged = true;
    const int line = statement.line();
    ZBSprite wanted;
    ZBLValueExp value;

    const ZBLSimpleExp& classOperand = statement.operand(ZBLCreateExp::Class);
    if (!evaluate(classOperand, value, line))
        return fail("Could not get a class name from " + classOperand.toString(), line);
    if (!value.isClassName())
        return fail("When I got the value of " + classOperand.toString() +
                        ", I expected a class name but got " + valueText(value),
                    line);
    const auto classIndex =
        m_run.programLoaded ? m_run.program->tree.findClass(*value.stringVal) : std::nullopt;
    if (!classIndex)
        return fail("You tried to make a sprite of class " + valueText(value) +
                        ", but there is no class of this type!",
                    line);
    wanted.className = value.stringVal;
    wanted.classIndex = *classIndex;

    const ZBLSimpleExp& tagOperand = statement.operand(ZBLCreateExp::Tag);
    if (!evaluate(tagOperand, wanted.tag, line))
        return fail("I do not understand " + tagOperand.toString(), line);

    struct Number {
        ZBLCreateExp::Operand operand;
        std::string_view what;
        double& target;
    };
    for (const Number& number : {Number{ZBLCreateExp::Direction, "initial direction", wanted.direction},
                                 Number{ZBLCreateExp::Speed, "initial speed", wanted.speed},
                                 Number{ZBLCreateExp::X, "initial x position", wanted.x},
                                 Number{ZBLCreateExp::Y, "initial y position", wanted.y},
                                 Number{ZBLCreateExp::Z, "initial z position", wanted.z}}) {
        const ZBLSimpleExp& operand = statement.operand(number.operand);
        if (!evaluate(operand, value, line))
            return fail("While trying to determine the " + std::string(number.what) +
                            " for a sprite, I could not understand " + operand.toString(),
                        line);
        if (!value.isCounter())
            return fail("While trying to set the " + std::string(number.what) +
                            " for a sprite, I expected a counter or a number but got the value " +
                            valueText(value),
                        line);
        number.target = value.realVal;
    }

    const ZBLSimpleExp& graphicOperand = statement.operand(ZBLCreateExp::Graphic);
    if (!evaluate(graphicOperand, value, line))
        return fail("While trying to determine the sprite graphic for a sprite, I could not understand " +
                        graphicOperand.toString(),
                    line);
    if (!value.isText())
        return fail(
            "While trying to set the sprite graphic for a sprite, I expected a text but got the value " +
                valueText(value),
            line);
    return createSprite(wanted, *value.stringVal) ||
           fail("Could not find sprite graphic named " + *value.stringVal, line);
}

bool ZBContext::createSprite(const ZBSprite& wanted, std::string_view graphicName)
{
    const auto index = static_cast<std::size_t>(m_run.spriteCount);
    if (index == m_run.sprites.size())
        m_run.sprites.emplace_back();
    // A new sprite takes the place; what is bound stays the one that stood there.
    const auto detach = [&](bool valid, std::int32_t bound, std::optional<ZBSprite>& detached) {
        if (valid && !detached && bound == m_run.spriteCount)
            detached = m_run.sprites[index];
    };
    detach(m_run.meValid, m_run.me, m_run.detachedMe);
    detach(m_run.itValid, m_run.it, m_run.detachedIt);

    ZBSprite& sprite = m_run.sprites[index];
    sprite = wanted;
    sprite.moveTo(wanted.x, wanted.y, wanted.z); // twice, so that the previous position is the same
    sprite.moveTo(wanted.x, wanted.y, wanted.z);
    sprite.setSpeed(wanted.speed);
    sprite.uniqueId = uniqueID();
    sprite.graphic = getGraphic(graphicName);
    if (!sprite.graphic)
        return false;
    TriggerEvent(m_run.spriteCount, EventName::Create, -1);
    m_run.grid.add(sprite.x, sprite.y);
    ++m_run.spriteCount;
    return true;
}
