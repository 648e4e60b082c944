#include "runtime/ZBContext.h"

#include "platform/Rounding.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace
{

constexpr int fieldSize = 480;
constexpr int framesBeforeZero = 20'000'000;
constexpr int marginAroundField = 50; // sprites this far outside are still drawn

/// World coordinates to pixels.
double WorldToScreenX(double x, int width)
{
    return roundHalfEven(((x + 100) / 200) * width);
}
double WorldToScreenY(double y, int height)
{
    return roundHalfEven((1 - (y + 100) / 200) * height);
}

const std::shared_ptr<const Surface>& blankField()
{
    static const auto blank = std::make_shared<const Surface>(fieldSize, fieldSize, white);
    return blank;
}

} // namespace

ZBContext::ZBContext(ZBInterpreter& interpreter)
    : m_interpreter(interpreter)
{
    m_run.background = blankField();
    m_run.program = std::make_shared<const Program>();
    m_run.lines = std::make_shared<const LineArray>();
    m_surfaces.Display.reset(fieldSize, fieldSize, white);
    m_surfaces.temppic.reset(10, 10, white);
}

void ZBContext::Reset()
{
    forgetVariables();
    m_run.running = false;
    m_run.programLoaded = false;
    m_run.events.clear();
    m_run.keyboard = ZBKeyboard();
    m_run.lastID = -1'000'000;
    m_run.map.Create(5, 5);
    m_run.graphics.clear();
}

bool ZBContext::Parse(std::string_view text)
{
    m_run.frameNumber = 0;
    enterState("begin");
    auto lines = std::make_shared<const LineArray>(text);
    m_run.lines = lines;
    auto program = std::make_shared<Program>();
    if (!program->tree.Parse(*lines, *this))
        return false;
    program->compile();

    m_interpreter.ports().screen.reopen(m_interpreter.module().CurrentGame.title);
    const VariableTable& variables = program->tree.variables();
    m_run.variables.counters.resize(variables.counters().size());
    m_run.variables.texts.resize(variables.texts().size());
    m_run.variables.order.reserve(variables.counters().size() + variables.texts().size());
    m_run.program = std::move(program);
    m_run.programLoaded = true;
    enterState("begin");
    forgetVariables();
    m_run.sprites.clear();
    m_run.spriteCount = 0;
    m_run.grid.clear();
    m_run.events.clear();
    return true;
}

void ZBContext::Start()
{
    m_run.map.Create(5, 5);
    m_interpreter.ports().screen.show();
    m_path = m_interpreter.module().gamePath();
    enterState("begin");
    m_run.background = blankField();
    m_surfaces.Background = *m_run.background;
    m_surfaces.Display.reset(fieldSize, fieldSize, white);
    // A run depends on its own program, files, seed and keys only: nothing of an earlier run is left.
    m_run.game = ZBGame();
    m_run.meValid = m_run.itValid = false;
    m_run.detachedMe.reset();
    m_run.detachedIt.reset();
    m_run.random = Random(m_interpreter.seed());
    m_run.running = true;
    m_run.haltRequested = false;
    m_run.graphics.clear();
    m_sceneChanged = true;
    m_interpreter.ports().screen.enableTimer(true);
}

RunState ZBContext::save() const
{
    RunState copy = m_run;
    copy.traceDepth = m_interpreter.TraceDepth;
    return copy;
}

void ZBContext::restore(const RunState& state)
{
    m_run = state;
    m_interpreter.TraceDepth = state.traceDepth;
    m_surfaces.Background = *m_run.background;
    m_sceneChanged = true;
    m_interpreter.m_stateShown = false;
}

void ZBContext::parseError(std::string_view report, int line)
{
    m_interpreter.showParseError(report, line);
}

void ZBContext::beep()
{
    m_interpreter.ports().user.beep();
}

bool ZBContext::fail(std::string_view message, int line)
{
    m_interpreter.ReportRuntimeError(message, line);
    return false;
}

void ZBContext::enterState(std::string_view name)
{
    m_run.state = name;
    m_run.stateIndex = m_run.program->tree.findState(name).value_or(-1);
    m_run.inLoop = false;
    m_interpreter.m_stateShown = false;
}

void ZBContext::countFrame()
{
    m_run.frameNumber = (m_run.frameNumber + 1) % framesBeforeZero;
}

const SequenceCode* ZBContext::getSubStateExp()
{
    if (!m_run.programLoaded || m_run.stateIndex < 0) {
        fail("I could not find state " + m_run.state + "!", 1);
        return nullptr;
    }
    return &m_run.program->states[static_cast<std::size_t>(m_run.stateIndex)].parts[m_run.inLoop ? 1 : 0];
}

void ZBContext::Quantum()
{
    // A reset in the middle of a frame must not take the running statement away, nor may a change of program.
    const std::shared_ptr<const Program> keepAlive = m_run.program;

    countFrame();
    if (m_interpreter.traceBoxes().frames)
        m_interpreter.TraceFrame(m_run.frameNumber);
    if (m_run.haltRequested) {
        m_run.running = false;
        m_interpreter.ports().screen.enableTimer(false);
        m_interpreter.ReportRuntimeError("User pressed Stop button", 1);
        return;
    }
    m_run.nextState = nullptr;
    if (!m_run.inLoop) {
        m_interpreter.TraceStateChange();
        const SequenceCode* initialize = getSubStateExp();
        if (!initialize || (!initialize->isEmpty() && !Interpret(*initialize)) || !DoSpriteEvents())
            return;
        if (m_run.nextState) {
            enterState(*m_run.nextState);
            return;
        }
        m_run.inLoop = true;
        m_interpreter.TraceStateChange();
        countFrame();
        m_interpreter.TraceFrame(m_run.frameNumber);
    }
    drawIfChanged();
    const SequenceCode* loop = getSubStateExp();
    if (!loop || (!loop->isEmpty() && !Interpret(*loop)) || !DoSpriteEvents())
        return;
    if (m_run.nextState)
        enterState(*m_run.nextState);
    drawIfChanged();
}

void ZBContext::drawIfChanged()
{
    // The frame begins with what the last one ended with, and many a picture stands still.
    if (m_sceneChanged || animationSteps(m_run.frameNumber) != m_drawnAnimation)
        DrawFrame();
}

void ZBContext::DrawFrame()
{
    if (!m_interpreter.ports().screen.wantsFrames())
        return;
    m_sceneChanged = false;
    m_drawnAnimation = animationSteps(m_run.frameNumber);
    Surface& display = m_surfaces.Display;
    std::memcpy(display.pixels().data(), m_run.background->pixels().data(), display.pixels().size_bytes());
    if (m_showMap)
        m_run.map.Draw(display, -1);
    for (std::int32_t i = 0; i < m_run.spriteCount; ++i) {
        const ZBSprite& sprite = m_run.sprites[static_cast<std::size_t>(i)];
        if (sprite.hidden || !sprite.graphic)
            continue;
        const double x = WorldToScreenX(sprite.x, display.width());
        const double y = WorldToScreenY(sprite.y, display.height());
        if (x > -marginAroundField && y > -marginAroundField && x < display.width() + marginAroundField &&
            y < display.height() + marginAroundField)
            sprite.graphic->Draw(display, static_cast<int>(x), static_cast<int>(y),
                                 sprite.graphic->frameIndex(m_run.frameNumber, sprite.direction));
    }
    m_interpreter.ports().screen.refreshDisplay();
}

std::string_view ZBContext::getLine(int number) const
{
    return (*m_run.lines)[number];
}

std::vector<std::string> ZBContext::DumpVariablesInto() const
{
    std::vector<std::string> lines;
    const VariableTable& table = m_run.program->tree.variables();
    const auto counterCount = static_cast<std::int32_t>(m_run.variables.counters.size());
    for (const std::int32_t entry : m_run.variables.order) {
        const bool isCounter = entry < counterCount;
        const auto slot = static_cast<std::size_t>(isCounter ? entry : entry - counterCount);
        ZBVariable variable;
        variable.name.type = isCounter ? ValueKind::Counter : ValueKind::Text;
        variable.name.name = isCounter ? table.counters()[slot] : table.texts()[slot];
        variable.value = isCounter ? ZBLValueExp::counter(m_run.variables.counters[slot])
                                   : ZBLValueExp::text(m_run.variables.texts[slot]);
        lines.push_back(variable.toString());
    }
    for (std::int32_t i = 0; i < m_run.spriteCount; ++i)
        lines.push_back(m_run.sprites[static_cast<std::size_t>(i)].toString());
    return lines;
}

void ZBContext::forgetVariables()
{
    std::ranges::fill(m_run.variables.counters, std::numeric_limits<double>::quiet_NaN());
    std::ranges::fill(m_run.variables.texts, nullptr);
    m_run.variables.order.clear();
}

void ZBContext::firstSet(ValueKind kind, std::int32_t slot)
{
    const auto counterCount = static_cast<std::int32_t>(m_run.variables.counters.size());
    m_run.variables.order.push_back(kind == ValueKind::Counter ? slot : counterCount + slot);
}

bool ZBContext::getVariable(const ZBLVarExp& variable, ZBLValueExp& value) const
{
    const auto slot = static_cast<std::size_t>(variable.slot);
    if (variable.type == ValueKind::Counter) {
        const double number = m_run.variables.counters[slot];
        value = ZBLValueExp::counter(number);
        return !std::isnan(number);
    }
    Text text = m_run.variables.texts[slot];
    value = ZBLValueExp::text(text);
    return text != nullptr;
}

bool ZBContext::setVariable(const ZBLVarExp& variable, const ZBLValueExp& value)
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
