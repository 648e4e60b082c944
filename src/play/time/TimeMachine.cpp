// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/time/TimeMachine.h"

#include <algorithm>
#include <utility>

namespace
{

using namespace Qt::StringLiterals;

constexpr int restAfter = 150; // milliseconds
constexpr std::size_t allStretches = 100'000;

} // namespace

TimeMachine::TimeMachine(ZBInterpreter& interpreter, Windows windows, PictureReader& pictures)
    : m_interpreter(interpreter)
    , m_windows(windows)
    , m_pictures(pictures)
{
    m_interpreter.setListener(&m_recording);
    m_rest.setObjectName(u"RestTimer"_s);
    m_rest.setSingleShot(true);
    m_rest.setInterval(restAfter);
    m_rest.callOnTimeout(this, &TimeMachine::refresh);
    connect(&m_windows.game, &GameWindow::pastClosed, this, &TimeMachine::leave);
    connect(&m_windows.game, &GameWindow::closed, this, &TimeMachine::leave);
}

TimeMachine::~TimeMachine()
{
    m_interpreter.setListener(nullptr);
}

Replay& TimeMachine::replay()
{
    const Recording& shown = recording();
    if (!m_replay || m_replayed != shown.version()) {
        m_replay = std::make_unique<Replay>(shown, m_pictures);
        m_replay->setShowMap(m_showsMap);
        m_replayed = shown.version();
    }
    return *m_replay;
}

Moment TimeMachine::last()
{
    return isEmpty() ? Moment{} : replay().last();
}

Moment TimeMachine::moment()
{
    return m_isInPast ? replay().moment() : last();
}

int TimeMachine::line()
{
    if (isEmpty())
        return 0;
    return m_isInPast ? replay().line() : m_interpreter.context().state().currentLine();
}

void TimeMachine::goTo(Moment moment, bool resting)
{
    if (isEmpty() || m_windows.game.isTelling())
        return;
    if (isOn() && !m_interpreter.StepMode())
        m_interpreter.PauseGame();
    if (isOn() && !m_interpreter.StepMode())
        return; // it is being stopped
    const Moment end = last();
    if (isOn() && moment >= end) {
        toNow();
        return;
    }
    if (!replay().seek(std::min(moment, end)))
        return;
    m_isInPast = true;
    show(resting);
}

void TimeMachine::show(bool resting)
{
    Replay& past = replay();
    m_windows.game.showPast(past.picture());
    SpyWindow::PastPage page;
    Replay::History history = past.history(m_windows.spy.traceBoxes(), resting ? allStretches : 1);
    if (history.isWhole) {
        page.history = ZBInterpreter::banner(m_interpreter.module().CurrentGame);
        const std::size_t room = Replay::historyLimit - std::min(history.lines.size(), Replay::historyLimit);
        if (page.history.size() > room)
            page.history.erase(page.history.begin(), page.history.end() - static_cast<std::ptrdiff_t>(room));
    }
    page.history.insert(page.history.end(), std::make_move_iterator(history.lines.begin()),
                        std::make_move_iterator(history.lines.end()));
    page.state = past.state().state;
    page.subState = past.state().subState();
    page.variables = past.variables();
    page.variablesBefore = std::exchange(m_variables, page.variables);
    m_windows.spy.showPast(page);
    if (resting)
        m_rest.stop();
    else
        m_rest.start();
    Q_EMIT changed();
}

void TimeMachine::refresh()
{
    if (!m_isInPast)
        return;
    std::vector<std::string> before = m_variables;
    show(true);
    m_variables = std::move(before);
}

void TimeMachine::setShowMap(bool on)
{
    m_showsMap = on;
    if (m_replay)
        m_replay->setShowMap(on);
    refresh();
}

void TimeMachine::stepForward()
{
    if (isEmpty())
        return;
    if (!m_isInPast) {
        m_interpreter.StepOnce();
        return;
    }
    if (!replay().stepForward())
        return;
    if (isOn() && replay().moment() >= last())
        toNow();
    else
        show(true);
}

void TimeMachine::stepBack()
{
    if (isEmpty() || m_windows.game.isTelling())
        return;
    if (!m_isInPast) {
        const Moment end = last();
        goTo({end.frame, std::max(end.statement - 1, 0)});
        if (!m_isInPast && end.frame > 0) // nothing has begun behind the end of that frame
            goTo({end.frame - 1, replay().statementsAfter(end.frame - 1)});
        return;
    }
    if (replay().stepBack())
        show(true);
}

void TimeMachine::moveFrames(std::int64_t frames)
{
    if (isEmpty())
        return;
    const Moment from = moment();
    // The end of the frame in which a statement waits is one further on.
    const std::int64_t wanted = from.frame + frames + (from.statement > 0 && frames < 0 ? 1 : 0);
    goTo({std::max<std::int64_t>(wanted, 0), 0});
}

void TimeMachine::toNow()
{
    if (isEmpty())
        return;
    if (isOn())
        leave();
    else
        goTo(last());
}

void TimeMachine::leave()
{
    m_rest.stop();
    if (std::exchange(m_isInPast, false)) {
        m_windows.game.showNow();
        m_windows.spy.showNow();
    }
    Q_EMIT changed();
}

void TimeMachine::forget()
{
    m_oldEndingShown = false;
    m_oldEnding.reset();
    m_replay.reset();
    m_variables.clear();
    Q_EMIT forgotten();
    leave();
}

bool TimeMachine::goOnFromHere(bool paused)
{
    if (!m_isInPast || m_windows.game.isTelling())
        return false;
    RunState state = replay().state();
    state.inputs.clear(); // those of the old ending
    const bool wasOn = isOn();
    const std::vector<int> held = wasOn ? m_interpreter.context().keysDown() : std::vector<int>();
    if (m_oldEndingShown)
        return false;
    auto oldEnding = m_recording.copy();
    if (!m_interpreter.goOnFrom(state, m_recording.files(), true))
        return false;
    m_oldEnding = std::move(oldEnding);
    ZBContext& context = m_interpreter.context();
    m_recording.goOn(context);
    if (!paused)
        for (int code = 0; code < ZBKeyboard::keyCount; ++code) {
            const bool isHeld = std::ranges::find(held, code) != held.end();
            if (isHeld && !state.keyboard.isDown(code))
                context.KeyDown(code, 0);
            else if (!isHeld && state.keyboard.isDown(code))
                context.KeyUp(code, 0);
        }
    m_replay.reset();
    leave();
    m_windows.spy.setVariables(context.DumpVariablesInto());
    if (!paused)
        m_interpreter.ResumeGame();
    return true;
}

void TimeMachine::showOldEnding(bool on)
{
    if (!m_oldEnding || on == m_oldEndingShown)
        return;
    if (isOn() && !m_interpreter.StepMode())
        m_interpreter.PauseGame();
    leave();
    m_oldEndingShown = on;
    m_replay.reset();
    toNow();
}

std::vector<int> TimeMachine::keysDown()
{
    if (isEmpty())
        return {};
    if (!m_isInPast)
        return isOn() ? m_interpreter.context().keysDown() : std::vector<int>();
    std::vector<int> codes;
    for (int code = 0; code < ZBKeyboard::keyCount; ++code)
        if (replay().state().keyboard.isDown(code))
            codes.push_back(code);
    return codes;
}

void TimeMachine::toggleKey(int code)
{
    if (m_isInPast && !goOnFromHere(true))
        return;
    if (!isOn())
        return;
    const std::vector<int> down = keysDown();
    ZBContext& context = m_interpreter.context();
    if (std::ranges::find(down, code) == down.end())
        context.KeyDown(code, 0);
    else
        context.KeyUp(code, 0);
    Q_EMIT changed();
}
