// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/RunState.h"

#include "runtime/world/Field.h"

#include <algorithm>
#include <limits>

namespace
{

constexpr int framesBeforeZero = 20'000'000;
constexpr std::int32_t idBeforeFirst = -1'000'000;

const std::shared_ptr<const Surface>& blankField()
{
    static const auto blank = std::make_shared<const Surface>(fieldSize, fieldSize, white);
    return blank;
}

const std::shared_ptr<const ZBMap>& blankMap()
{
    static const auto blank = [] {
        auto map = std::make_shared<ZBMap>();
        map->Create(5, 5);
        return std::shared_ptr<const ZBMap>(std::move(map));
    }();
    return blank;
}

ZBVariable variableOf(const RunState& run, std::int32_t entry)
{
    const VariableTable& table = run.program->tree.variables();
    const auto counterCount = static_cast<std::int32_t>(run.variables.counters.size());
    const bool isCounter = entry < counterCount;
    const auto slot = static_cast<std::size_t>(isCounter ? entry : entry - counterCount);
    ZBVariable variable;
    variable.name.type = isCounter ? ValueKind::Counter : ValueKind::Text;
    variable.name.name = isCounter ? table.counters()[slot] : table.texts()[slot];
    variable.value = isCounter ? ZBLValueExp::counter(run.variables.counters[slot])
                               : ZBLValueExp::text(run.variables.texts[slot]);
    return variable;
}

} // namespace

RunState::RunState()
    : program(std::make_shared<const Program>())
    , lines(std::make_shared<const LineArray>())
    , map(blankMap())
    , background(blankField())
{
}

void RunState::enterState(std::string_view name)
{
    state = name;
    stateIndex = program->tree.findState(name).value_or(-1);
    inLoop = false;
}

void RunState::countFrame()
{
    frameNumber = (frameNumber + 1) % framesBeforeZero;
}

void RunState::forgetVariables()
{
    std::ranges::fill(variables.counters, std::numeric_limits<double>::quiet_NaN());
    std::ranges::fill(variables.texts, nullptr);
    variables.order.clear();
}

void RunState::reset()
{
    forgetVariables();
    running = false;
    programLoaded = false;
    events.clear();
    keyboard = ZBKeyboard();
    inputs.clear();
    lastID = idBeforeFirst;
    map = blankMap();
    graphics.clear();
}

void RunState::start(std::uint64_t seed)
{
    map = blankMap();
    enterState("begin");
    background = blankField();
    // A run depends on its own program, files, seed and keys only: nothing of an earlier run is left.
    game = ZBGame();
    meValid = itValid = false;
    detachedMe.reset();
    detachedIt.reset();
    position = FramePosition();
    tick = 0;
    blocks = 0;
    random = Random(seed);
    running = true;
    haltRequested = false;
    graphics.clear();
    sceneChanged = true;
}

std::int32_t RunState::currentLine() const
{
    if (!position.block)
        return 0;
    const ZBLStatement* const statement =
        position.block->code(position.form).statements[static_cast<std::size_t>(position.step)];
    return statement ? statement->line() : 0;
}

InputTime RunState::now() const
{
    if (position.pending != Pending::Release)
        return {.tick = tick};
    return {.tick = tick, .block = blocks, .line = currentLine()};
}

void RunState::takeInputs(std::vector<KeyInput>* log)
{
    if (inputs.empty())
        return;
    const InputTime time = now();
    auto next = inputs.begin();
    for (; next != inputs.end() && next->time <= time; ++next) {
        if (next->down)
            keyboard.KeyDown(next->code);
        else
            keyboard.KeyUp(next->code);
        if (log)
            log->push_back({time, next->down, next->code});
    }
    inputs.erase(inputs.begin(), next);
}

std::vector<std::string> RunState::dump() const
{
    std::vector<std::string> lineTexts;
    for (const std::int32_t entry : variables.order)
        lineTexts.push_back(variableOf(*this, entry).toString());
    for (std::int32_t i = 0; i < spriteCount; ++i)
        lineTexts.push_back(sprites[static_cast<std::size_t>(i)].toString());
    return lineTexts;
}
