// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/time/TimeMachine.h"

#include "forms/Texts.h"
#include "play/time/FieldBoxes.h"
#include "recording/Explanation.h"
#include "recording/LineLife.h"
#include "recording/PlaySums.h"

#include <QElapsedTimer>

#include <algorithm>
#include <utility>

namespace
{

using namespace Qt::StringLiterals;

constexpr int restAfter = 150; // milliseconds
constexpr std::size_t allStretches = 100'000;
constexpr int indexingSlice = 5; // milliseconds
constexpr std::int64_t framesAtOnce = 20;

LineMark::Life lifeOf(LineLife::Life life)
{
    switch (life) {
    case LineLife::Life::CannotRun:
        return LineMark::Life::CannotRun;
    case LineLife::Life::NeverRan:
        return LineMark::Life::NeverRan;
    case LineLife::Life::RanBefore:
        return LineMark::Life::RanBefore;
    case LineLife::Life::RanInLastFrame:
        return LineMark::Life::RanNow;
    case LineLife::Life::NotAStatement:
        break;
    }
    return LineMark::Life::None;
}

/// The number of the program's line that a line of the history names; 0 for none.
int lineNumberOf(std::string_view historyLine)
{
    int number = 0;
    for (const char c : historyLine.substr(0, 4)) {
        if (c < '0' || c > '9')
            return 0;
        number = number * 10 + (c - '0');
    }
    return historyLine.size() > 4 ? number : 0;
}

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
    connect(&m_windows.game, &GameWindow::closed, this, [this] {
        leave();
        startIndexing();
    });
    connect(&m_windows.game, &GameWindow::advanced, this, &TimeMachine::showBoxes);
    connect(&m_windows.game, &GameWindow::clicked, this, &TimeMachine::pictureClicked);
    m_indexing.setObjectName(u"IndexTimer"_s);
    m_indexing.callOnTimeout(this, &TimeMachine::indexOn);
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
    pause();
    if (isRunning())
        return; // it is being stopped
    startIndexing();
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

void TimeMachine::pause()
{
    if (isRunning())
        m_interpreter.PauseGame();
}

const Surface& TimeMachine::picture()
{
    if (!m_isInPast && isOn())
        return m_interpreter.context().display();
    if (!m_isInPast)
        replay().seek(last());
    return replay().picture();
}

void TimeMachine::show(bool resting)
{
    Replay& past = replay();
    m_windows.game.showPast(past.picture());
    showBoxes();
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
    if (resting)
        page.explanations = explanations(page.history);
    page.state = past.state().state;
    page.subState = past.state().subState();
    page.variables = past.variables();
    if (m_variablesAt != past.moment()) {
        m_variablesAt = past.moment();
        m_variablesBefore = std::exchange(m_variables, page.variables);
    }
    page.variablesBefore = m_variablesBefore;
    m_windows.spy.showPast(page);
    m_windows.code.showMomentAt(m_linesFit ? past.line() : 0);
    if (resting)
        m_rest.stop();
    else
        m_rest.start();
    Q_EMIT changed();
}

void TimeMachine::refresh()
{
    if (m_isInPast)
        show(true);
}

void TimeMachine::setShowMap(bool on)
{
    m_showsMap = on;
    if (m_replay)
        m_replay->setShowMap(on);
    refresh();
}

void TimeMachine::setShowBoxes(bool on)
{
    m_showsBoxes = on;
    showBoxes();
}

void TimeMachine::showBoxes()
{
    if (!m_showsBoxes || (!m_isInPast && (isRunning() || !m_interpreter.isOn())))
        m_windows.game.setOverlay({});
    else
        m_windows.game.setOverlay(
            fieldBoxes(m_isInPast ? replay().state() : m_interpreter.context().state()));
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
        m_windows.code.showMomentAt(0);
    }
    showBoxes();
    Q_EMIT changed();
}

/// What there is to say beside each line of the history that names a statement.
std::vector<std::string> TimeMachine::explanations(const std::vector<std::string>& history)
{
    std::vector<std::string> texts(history.size());
    if (!m_windows.spy.traceBoxes().code)
        return texts;
    const std::vector<Explained> told = explain(replay(), replay().moment());
    auto next = told.rbegin();
    for (std::size_t i = history.size(); i-- > 0 && next != told.rend();) {
        const int line = lineNumberOf(history[i]);
        if (line == 0)
            continue;
        if (next->line == line % 10000)
            texts[i] = next->text;
        ++next;
    }
    return texts;
}

// What is known of the run.

void TimeMachine::startIndexing()
{
    if (isEmpty() || (m_index && m_known == extentOf(recording())))
        return;
    if (!m_index)
        m_index = std::make_unique<RunIndex>(recording(), m_pictures);
    m_indexing.start(0);
}

TimeMachine::Extent TimeMachine::extentOf(const Recording& recording)
{
    return {recording.version(), recording.frames(), recording.isBroken()};
}

void TimeMachine::indexOn()
{
    if (!m_index || isRunning()) {
        m_indexing.stop();
        return;
    }
    QElapsedTimer time;
    time.start();
    bool hasMore = true;
    while (hasMore && time.elapsed() < indexingSlice)
        hasMore = m_index->extend(framesAtOnce);
    if (hasMore)
        return;
    m_indexing.stop();
    m_known = extentOf(recording());
    showLineMarks();
    Q_EMIT indexed();
}

void TimeMachine::showLineMarks()
{
    if (!m_linesFit)
        return;
    const LineArray& lines = *recording().beginning().lines;
    const LineLife life(*m_index, lines);
    std::vector<LineMark> marks;
    for (int line = 1; line <= lines.upperBound(); ++line)
        marks.push_back({lifeOf(life.lifeOf(line)), forms::fromUtf8(life.tip(line))});
    m_windows.code.showLineMarks(std::move(marks));
}

Answers TimeMachine::whatHappened(Moment moment)
{
    return isEmpty() || isRunning() ? Answers() : Questions::inFrame(replay(), moment);
}

std::optional<SpriteCard> TimeMachine::cardAt(QPoint place)
{
    if (isEmpty() || isRunning() || (!m_isInPast && !isOn()))
        return std::nullopt;
    if (!m_isInPast)
        replay().seek(last());
    const int sprite = spriteAt(replay().state(), place.x(), place.y());
    return sprite < 0 ? std::nullopt : SpriteStory(recording(), replay(), m_index.get()).card(sprite);
}

void TimeMachine::forget()
{
    const auto before = std::move(m_other); // until nobody shows it any more
    const auto ending = std::move(m_oldEnding);
    m_other.reset();
    m_oldEnding.reset();
    m_playName.clear();
    m_counted = 0;
    m_linesFit = true;
    m_replay.reset();
    m_index.reset();
    m_known = {};
    m_indexing.stop();
    m_variables.clear();
    m_variablesAt = {-1, 0};
    Q_EMIT forgotten();
    leave();
}

bool TimeMachine::goOnFromHere(bool paused)
{
    if (!m_isInPast || m_other || m_windows.game.isTelling())
        return false;
    RunState state = replay().state();
    state.inputs.clear(); // those of the old ending
    const std::vector<int> held = isOn() ? m_interpreter.context().keysDown() : std::vector<int>();
    auto oldEnding = m_recording.copy();
    if (!m_interpreter.pauseAt(state, m_recording.files()))
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
    m_index.reset();
    m_known = {};
    Q_EMIT indexed(); // nothing is known of what comes now
    leave();
    m_windows.spy.setVariables(context.DumpVariablesInto());
    if (!paused)
        m_interpreter.ResumeGame();
    return true;
}

void TimeMachine::showOldEnding(bool on)
{
    if (m_oldEnding && on != isOldEndingShown())
        showOther(on ? m_oldEnding : nullptr);
}

void TimeMachine::showRun(std::shared_ptr<const Recording> play, const std::string& name)
{
    if (play == m_other)
        return;
    m_playName = name;
    showOther(std::move(play));
}

void TimeMachine::showOther(std::shared_ptr<const Recording> other)
{
    pause();
    leave();
    const auto before = std::exchange(m_other, std::move(other)); // until nobody shows it any more
    m_replay.reset();
    m_index.reset();
    m_known = {};
    countLines();
    Q_EMIT runShown();
    startIndexing();
    toNow();
    Q_EMIT changed();
}

/// The code editor counts the lines of one program. A kept play goes through the one that is in it now.
void TimeMachine::countLines()
{
    if (isEmpty())
        return;
    const std::uint64_t shown = programSum(*recording().beginning().lines);
    const std::uint64_t last = m_recording.isEmpty() ? 0 : programSum(*m_recording.beginning().lines);
    if (isPlayShown() && shown != (m_counted != 0 ? m_counted : last)) {
        m_windows.code.runBegins();
        m_counted = shown;
    }
    m_linesFit = shown == (m_counted != 0 ? m_counted : last);
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
