// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/ZBContext.h"

#include <algorithm>
#include <new>
#include <stdexcept>

namespace
{

constexpr std::string_view outOfMemory = "This game needs more memory than there is.";

} // namespace

ZBContext::ZBContext(const FileSource& files, PictureReader& pictures, GameScreen& screen, SpyPort& spy)
    : m_faults(m_run)
    , m_trace(spy, m_run)
    , m_assets(files, pictures)
    , m_playfield(screen)
    , m_evaluator(m_run, m_faults)
    , m_events(m_run, m_faults, m_trace)
    , m_actions(m_run, m_faults, m_evaluator, m_events, m_assets)
    , m_statements(m_run, m_faults, m_trace, m_evaluator, m_actions)
    , m_screen(screen)
{
}

Outcome ZBContext::Parse(std::string text, ParseReporter& reporter)
{
    bool isRead = false;
    if (!fitsIntoMemory([&] { isRead = read(std::move(text), reporter); }))
        return Outcome::Told;
    return isRead ? Outcome::Done : Outcome::Stopped;
}

bool ZBContext::read(std::string text, ParseReporter& reporter)
{
    m_run.frameNumber = 0;
    m_run.enterState("begin");
    m_trace.forgetLabels();
    m_run.lines = std::make_shared<const LineArray>(std::move(text));
    auto program = std::make_shared<Program>();
    if (!program->tree.Parse(*m_run.lines, reporter))
        return false;
    program->compile();

    const VariableTable& variables = program->tree.variables();
    m_run.variables.counters.resize(variables.counters().size());
    m_run.variables.texts.resize(variables.texts().size());
    m_run.variables.order.reserve(variables.counters().size() + variables.texts().size());
    m_run.position = FramePosition(); // it names a block of the program before
    m_run.program = std::move(program);
    m_run.programLoaded = true;
    m_run.enterState("begin");
    m_run.forgetVariables();
    m_run.sprites.clear();
    m_run.spriteCount = 0;
    m_run.events.clear();
    m_events.rebuildGrid();
    return true;
}

void ZBContext::Start(const std::string& path, std::uint64_t seed)
{
    m_assets.setPath(path);
    m_run.start(seed);
    m_trace.forgetLabels();
    m_playfield.clear();
}

void ZBContext::restore(const RunState& state)
{
    m_run = state;
    static_cast<void>(m_faults.take());
    m_events.rebuildGrid();
    m_playfield.forget();
    m_trace.forgetLabels();
}

const Surface* ZBContext::graphic(std::size_t index) const
{
    return index < m_run.graphics.size() ? &m_run.graphics[index]->picture() : nullptr;
}

void ZBContext::KeyDown(int keyCode, int /*shift*/)
{
    key(true, keyCode);
}

void ZBContext::KeyUp(int keyCode, int /*shift*/)
{
    key(false, keyCode);
}

void ZBContext::key(bool down, int code)
{
    const KeyInput input{isWaiting() ? m_run.now() : InputTime{.tick = m_run.tick + 1}, down, code};
    // Before those that a script holds for later.
    const auto later = [&](const KeyInput& other) { return other.time > input.time; };
    m_run.inputs.insert(std::ranges::find_if(m_run.inputs, later), input);
}

std::vector<int> ZBContext::keysDown() const
{
    ZBKeyboard keyboard = m_run.keyboard;
    for (const KeyInput& input : m_run.inputs)
        input.down ? keyboard.KeyDown(input.code) : keyboard.KeyUp(input.code);
    std::vector<int> codes;
    for (int code = 0; code < ZBKeyboard::keyCount; ++code)
        if (keyboard.isDown(code))
            codes.push_back(code);
    return codes;
}

void ZBContext::addInputs(const std::vector<KeyInput>& inputs)
{
    m_run.inputs.insert(m_run.inputs.end(), inputs.begin(), inputs.end());
}

// The frame.

Progress ZBContext::Quantum()
{
    ++m_run.tick;
    m_run.blocks = 0;
    m_run.takeInputs(m_inputLog);
    m_run.countFrame();
    if (m_trace.boxes().frames)
        m_trace.TraceFrame();
    if (m_run.haltRequested) {
        m_run.running = false;
        m_screen.enableTimer(false);
        static_cast<void>(m_faults.fail("User pressed Stop button", 1));
        return Progress::Told;
    }
    m_run.nextState = nullptr;
    m_run.position = FramePosition();
    m_run.position.phase = m_run.inLoop ? Phase::Loop : Phase::Initialize;
    return runGuarded([this] {
        if (m_run.inLoop)
            m_playfield.drawIfChanged(m_run);
        else
            m_trace.TraceStateChange();
        return beginState() ? run() : endFrame(Progress::Told);
    });
}

Progress ZBContext::advance()
{
    if (!inFrame())
        return Progress::FrameDone;
    m_run.takeInputs(m_inputLog);
    return runGuarded([this] { return run(); });
}

/// Whether there was memory for the work. Where there was not, that is a fault like any other mistake.
template<typename Work> bool ZBContext::fitsIntoMemory(const Work& work)
{
#ifdef __cpp_exceptions
    try {
        work();
        return true;
    } catch (const std::bad_alloc&) {
    } catch (const std::length_error&) {
    }
    const SequenceCode* const block = m_run.position.block;
    static_cast<void>(m_faults.fail(outOfMemory, block ? block->openingLine() : 1));
    return false;
#else
    work();
    return true;
#endif
}

template<typename Work> Progress ZBContext::runGuarded(const Work& work)
{
    Progress progress = Progress::Told;
    return fitsIntoMemory([&] { progress = work(); }) ? progress : endFrame(Progress::Told);
}

/// The block of the state's part begins. False where there is no such state, which has been told.
bool ZBContext::beginState()
{
    if (!m_run.programLoaded || m_run.stateIndex < 0) {
        static_cast<void>(m_faults.fail("I could not find state " + m_run.state + "!", 1));
        return false;
    }
    const Program::StateCode& state = m_run.program->states[static_cast<std::size_t>(m_run.stateIndex)];
    const SequenceCode& code = state.parts[m_run.inLoop ? 1 : 0];
    m_run.position.block = code.isEmpty() ? nullptr : &code;
    m_run.position.cls = nullptr;
    m_statements.begin();
    return true;
}

/// Runs the frame on from where it stands: the state's block, then the events one by one.
Progress ZBContext::run()
{
    for (;;) {
        if (m_run.position.block) {
            switch (m_statements.run()) {
            case BlockResult::Waiting:
                return Progress::Waiting;
            case BlockResult::Told:
                return Progress::Told;
            case BlockResult::Failed:
                return endFrame(Progress::FrameDone);
            case BlockResult::Paused:
                return endFrame(Progress::FramePaused);
            case BlockResult::Done:
                break;
            }
            m_run.position.block = nullptr;
            if (m_run.position.cls)
                m_events.endEvent();
        }
        switch (m_run.position.phase) {
        case Phase::Initialize:
        case Phase::Loop:
            if (m_events.beginPass() != Outcome::Done)
                return endFrame(Progress::Told);
            m_run.position.phase =
                m_run.position.phase == Phase::Loop ? Phase::LoopEvents : Phase::InitializeEvents;
            break;
        default:
            break;
        }
        if (m_run.events.eventCount() > 0) {
            if (m_events.FireEvent() != Outcome::Done)
                return endFrame(Progress::Told);
            m_statements.begin();
            continue;
        }
        m_events.removeDestroyed();
        if (m_run.position.phase == Phase::LoopEvents) {
            endLoop();
            return endFrame(Progress::FrameDone);
        }
        if (!goOnWithLoop())
            return endFrame(Progress::FrameDone);
        if (!beginState())
            return endFrame(Progress::Told);
    }
}

/// The state has been entered: unless it has been left at once, the frame goes on with its LOOP.
bool ZBContext::goOnWithLoop()
{
    if (m_run.nextState) {
        m_run.enterState(*m_run.nextState);
        m_trace.forgetLabels();
        return false;
    }
    m_run.inLoop = true;
    m_trace.TraceStateChange();
    m_run.countFrame();
    m_trace.TraceFrame();
    m_playfield.drawIfChanged(m_run);
    m_run.position.phase = Phase::Loop;
    return true;
}

void ZBContext::endLoop()
{
    if (m_run.nextState) {
        m_run.enterState(*m_run.nextState);
        m_trace.forgetLabels();
    }
    m_playfield.drawIfChanged(m_run);
}

Progress ZBContext::endFrame(Progress progress)
{
    m_run.position = FramePosition();
    return progress;
}
