// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "recording/SpriteStory.h"

#include "language/ZBLMethodExp.h"
#include "platform/Rounding.h"
#include "recording/ChildWords.h"
#include "recording/Onlooker.h"
#include "recording/RunLook.h"
#include "runtime/world/CollisionGrid.h"
#include "runtime/world/Field.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

// Who is seen there.

namespace
{

/// Where a sprite's picture is drawn, and the point in it.
class DrawnSprite
{
public:
    DrawnSprite(const RunState& run, const ZBSprite& sprite)
        : m_graphic(*sprite.graphic)
        , m_frame(m_graphic.frameIndex(run.frameNumber, sprite.direction))
        , m_left(edge(WorldToScreenX(sprite.x, fieldSize), m_graphic.description().frameWidth))
        , m_top(edge(WorldToScreenY(sprite.y, fieldSize), m_graphic.description().frameHeight))
    {
    }
    bool holds(int x, int y) const
    {
        return x >= m_left && y >= m_top && x < m_left + m_graphic.description().frameWidth &&
               y < m_top + m_graphic.description().frameHeight;
    }
    bool shows(int x, int y) const
    {
        const auto column = static_cast<int>(x - m_left);
        const auto row = static_cast<int>(y - m_top);
        return holds(x, y) && column < m_graphic.sheet().columns() &&
               !m_graphic.sheet().at(m_frame, column, row).isTransparent();
    }

private:
    static double edge(double centre, int size) { return roundHalfEven(centre - size / 2.0); }

    const ZBGraphic& m_graphic;
    int m_frame;
    double m_left;
    double m_top;
};

} // namespace

int spriteAt(const RunState& run, int x, int y)
{
    int near = -1;
    for (std::int32_t i = run.spriteCount - 1; i >= 0; --i) {
        const ZBSprite& sprite = run.sprites[static_cast<std::size_t>(i)];
        if (sprite.hidden || !sprite.graphic)
            continue;
        const DrawnSprite drawn(run, sprite);
        if (drawn.shows(x, y))
            return i;
        if (near < 0 && drawn.holds(x, y))
            near = i;
    }
    return near;
}

// What became of it.

namespace
{

/// The live sprite with that number; null where there is none. It is looked for first where it was.
const ZBSprite* spriteOf(const RunState& run, std::int32_t id, std::size_t& place)
{
    const auto sprites = liveSprites(run);
    if (place >= sprites.size() || sprites[place].uniqueId != id)
        place =
            static_cast<std::size_t>(std::ranges::find(sprites, id, &ZBSprite::uniqueId) - sprites.begin());
    return place < sprites.size() ? &sprites[place] : nullptr;
}

} // namespace

/// Compares the sprite with what it was, statement by statement.
class SpriteStory::Watcher final : public Onlooker
{
public:
    Watcher(const RunState& run, std::int32_t id)
        : m_run(run)
        , m_id(id)
    {
    }

    void statement(int line) override
    {
        settle();
        countIn();
        ++m_statement;
        m_last = {{m_run.tick - 1, m_statement}, line};
    }
    void eventBegins(EventName event) override
    {
        settle();
        countIn();
        const ZBSprite* const me = boundSprite(m_run, false);
        const ZBSprite* const it = boundSprite(m_run, true);
        if (event != EventName::Collision || !me || !it)
            return;
        const Deed deed{next(), openingLineOf(m_run, *me, event)};
        if (me->uniqueId == m_id)
            deeds.ran = deed;
        if (it->uniqueId == m_id)
            deeds.touched = deed;
    }
    void eventEnds() override { settle(); }
    void stateEntered() override { settle(); }
    void pauses(int /*line*/) override { settle(); }
    void created(int line) override
    {
        settle();
        countIn();
        if (m_run.spriteCount == 0 || liveSprites(m_run).back().uniqueId != m_id)
            return;
        deeds.created = Deed{next(), line};
        m_known = lookOf(liveSprites(m_run).back());
    }
    /// Whatever has changed was done by the statement before.
    void settle()
    {
        const ZBSprite* const sprite = spriteOf(m_run, m_id, m_place);
        if (!sprite)
            return m_known.reset();
        const Look now = lookOf(*sprite);
        if (m_known && m_known->place != now.place)
            deeds.moved = m_last;
        if (m_known && m_known->direction != now.direction)
            deeds.turned = m_last;
        if (m_known && now.isHidden && !m_known->isHidden)
            deeds.hidden = m_last;
        m_known = now;
    }

    Deeds deeds; ///< the last of each

private:
    struct Look {
        std::array<double, 3> place;
        double direction;
        bool isHidden;
    };
    static Look lookOf(const ZBSprite& sprite)
    {
        return {{sprite.x, sprite.y, sprite.z}, sprite.direction, sprite.hidden};
    }
    void countIn()
    {
        if (m_run.tick != m_tick)
            m_statement = 0;
        m_tick = m_run.tick;
    }
    Moment next() const { return {m_run.tick - 1, m_statement + 1}; }

    const RunState& m_run;
    std::int32_t m_id;
    std::size_t m_place = 0;
    std::optional<Look> m_known;
    Deed m_last;
    std::int64_t m_tick = 0;
    std::int32_t m_statement = 0;
};

namespace
{

bool isMove(Action action)
{
    switch (action) {
    case Action::ChangePosition:
    case Action::Move:
    case Action::MoveDown:
    case Action::MoveForward:
    case Action::MoveHigher:
    case Action::MoveLeft:
    case Action::MoveLower:
    case Action::MoveRight:
    case Action::MoveUp:
    case Action::SetPosition:
    case Action::Unmove:
        return true;
    default:
        return false;
    }
}

bool isTurn(Action action)
{
    return action == Action::ChangeDirection || action == Action::SetDirection || action == Action::Rebound;
}

bool isHide(Action action)
{
    return action == Action::Hide;
}

/// The lines of a program with such actions.
std::vector<int> linesWith(const ProgramLines& lines, bool (*isWanted)(Action))
{
    std::vector<int> found;
    for (int line = 1; line <= lines.lineCount(); ++line) {
        const ZBLStatement* const statement = lines.line(line).statement;
        if (statement && statement->type() == StatementType::Action &&
            isWanted(static_cast<const ZBLMethodExp*>(statement)->action()))
            found.push_back(line);
    }
    return found;
}

} // namespace

SpriteStory::SpriteStory(const Recording& recording, Replay& replay, const RunIndex* index)
    : m_recording(recording)
    , m_replay(replay)
    , m_index(index)
{
}

SpriteStory::Deeds SpriteStory::look(std::int32_t id, std::int64_t from, Moment to)
{
    m_replay.seek({from, 0});
    Watcher watcher(m_replay.state(), id);
    watcher.settle();
    m_replay.watchTo(from, to, watcher);
    watcher.settle();
    return watcher.deeds;
}

/// Whether any of those lines ran in one of these frames, as far as one knows.
bool SpriteStory::mayHold(const std::vector<int>& lines, std::int64_t from, std::int64_t to) const
{
    if (!m_index || m_index->frames() < to)
        return true;
    return std::ranges::any_of(lines, [&](int line) {
        return std::ranges::any_of(m_index->runsOf(line), [&](const RunIndex::LineRun& run) {
            return run.first.frame < to && run.lastFrame >= from;
        });
    });
}

/// From the end to the beginning, a stretch between keyframes at a time, until all is known.
SpriteStory::Deeds SpriteStory::find(const ZBSprite& sprite, Moment until)
{
    const ProgramLines lines(*m_replay.state().program, m_replay.state().lines->upperBound());
    struct Wanted {
        std::optional<Deed> Deeds::*deed;
        std::vector<int> lines;
        bool isOpen;
    };
    std::array<Wanted, 3> wanted = {Wanted{&Deeds::moved, linesWith(lines, isMove), true},
                                    Wanted{&Deeds::turned, linesWith(lines, isTurn), true},
                                    Wanted{&Deeds::hidden, linesWith(lines, isHide), sprite.hidden}};
    const std::int32_t id = sprite.uniqueId;
    Deeds deeds;
    Moment end = until;
    for (bool isFirst = true;; isFirst = false) {
        const bool isInFrame = end.statement > 0;
        const auto& keyframe = m_recording.keyframeBefore(isInFrame ? end.frame : end.frame - 1);
        const std::int64_t from = keyframe.state->tick;
        const bool isBorn = keyframe.state->lastID >= id;
        const bool isPromising = std::ranges::any_of(wanted, [&](const Wanted& each) {
            return each.isOpen && mayHold(each.lines, from, end.frame + (isInFrame ? 1 : 0));
        });
        if (isFirst || !isBorn || isPromising) {
            const Deeds found = look(id, from, end);
            for (Wanted& each : wanted) {
                if (each.isOpen && found.*each.deed)
                    deeds.*each.deed = found.*each.deed;
                each.isOpen = each.isOpen && !(deeds.*each.deed);
            }
            deeds.created = found.created;
            if (isFirst) {
                deeds.ran = found.ran;
                deeds.touched = found.touched;
            }
        }
        if (!isBorn || from == 0 || end.frame == 0)
            return deeds;
        end = {from, 0};
    }
}

// The card.

namespace
{

std::string numberText(double number)
{
    return ZBLValueExp::counter(number).toString().value_or(std::string());
}

std::string colorsText(const MapSquare& square)
{
    constexpr std::array<std::string_view, 7> names = {"red",  "orange", "yellow", "green",
                                                       "cyan", "blue",   "purple"};
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i)
        if (square.getField(static_cast<int>(i)))
            text.append(text.empty() ? "" : ", ").append(names[i]);
    return text.empty() ? "none" : text;
}

std::vector<CardLine> factsOf(const ZBSprite& sprite)
{
    std::vector<CardLine> facts;
    const auto add = [&](std::string text) { facts.push_back({std::move(text)}); };
    add("Picture: " + (sprite.graphic ? sprite.graphic->getName() : std::string("none")));
    add("Class: " + *sprite.className);
    add("Tag: " + sprite.tag.toString().value_or("none"));
    add("Place: x " + numberText(sprite.x) + ", y " + numberText(sprite.y) + ", z " + numberText(sprite.z));
    add("Direction: " + numberText(sprite.direction));
    add("Speed: " + numberText(sprite.speed));
    add("Map colors under it: " + colorsText(sprite.mapSquare));
    if (sprite.hidden)
        add("It is hidden.");
    if (sprite.destroyed)
        add("It is destroyed: at the end of the frame it goes.");
    return facts;
}

bool touch(const ZBSprite& one, const ZBSprite& other)
{
    return std::abs(one.x - other.x) < CollisionGrid::reach &&
           std::abs(one.y - other.y) < CollisionGrid::reach;
}

} // namespace

std::optional<SpriteCard> SpriteStory::card(int index)
{
    const RunState& run = m_replay.state();
    if (m_recording.isEmpty() || index < 0 || index >= run.spriteCount)
        return std::nullopt;
    const Moment here = m_replay.moment();
    const ZBSprite sprite = liveSprites(run)[static_cast<std::size_t>(index)];
    SpriteCard card{sprite.uniqueId, withArticle(*sprite.className), factsOf(sprite), {}, {}};
    card.title.front() = 'A';

    std::vector<CardLine> touches;
    constexpr std::size_t mostTouches = 8;
    for (const ZBSprite& other : liveSprites(run))
        if (other.uniqueId != sprite.uniqueId && touch(sprite, other) && touches.size() < mostTouches)
            touches.push_back({"It touches " + withArticle(*other.className) + " now."});

    const Deeds deeds = find(sprite, here);
    m_replay.seek(here);

    const auto tell = [&](const std::optional<Deed>& deed, std::string_view what, std::string_view never) {
        if (deed)
            card.deeds.push_back({std::string(what) + " in frame " + countText(frameNumberOf(deed->moment)) +
                                      " by line " + std::to_string(deed->line),
                                  deed->line, deed->moment});
        else if (!never.empty())
            card.deeds.push_back({std::string(never)});
    };
    tell(deeds.created, "Created", "");
    tell(deeds.moved, "Moved last", "It has not moved yet.");
    tell(deeds.turned, "Turned last", "It has not turned yet.");
    tell(deeds.hidden, "Hidden", "");

    card.touches = std::move(touches);
    explainTouches(card, sprite, deeds, frameSeenAt(here));
    return card;
}

void SpriteStory::explainTouches(SpriteCard& card, const ZBSprite& sprite, const Deeds& deeds,
                                 std::int64_t frame) const
{
    const auto add = [&](std::string text) { card.touches.push_back({std::move(text)}); };
    const auto addDeed = [&](std::string text, const Deed& deed) {
        card.touches.push_back({std::move(text), deed.line, deed.moment});
    };
    const auto isNow = [&](const std::optional<Deed>& deed) { return deed && deed->moment.frame == frame; };
    const bool touchesSomebody = !card.touches.empty();
    if (!touchesSomebody)
        add("It touches nothing now: two sprites touch when they are less than 6 apart, both in x and in y.");

    const RunState& run = m_replay.state();
    const bool hasClass = sprite.classIndex >= 0;
    const SequenceCode* const block = hasClass
                                          ? &run.program->classes[static_cast<std::size_t>(sprite.classIndex)]
                                                 .events[static_cast<std::size_t>(EventName::Collision)]
                                          : nullptr;
    const std::string& name = *sprite.className;
    if (!block || block->isEmpty()) {
        add("Class " + name + " has no COLLISION block, so nothing happens when a " + name +
            " touches something.");
    } else if (isNow(deeds.ran)) {
        addDeed("Its COLLISION block ran in this frame.", *deeds.ran);
    } else {
        card.touches.push_back({"Class " + name + " has a COLLISION block, which did not run in this frame.",
                                block->openingLine(), std::nullopt});
        if (touchesSomebody)
            add(isNow(deeds.moved)
                    ? "It moved in this frame, but its block has not had its turn or nobody was there yet."
                    : "Touches are only looked for when a sprite moves, and it did not move in this frame.");
    }
    if (isNow(deeds.touched))
        addDeed("Another sprite moved against it: the COLLISION block of that one ran.", *deeds.touched);
}
