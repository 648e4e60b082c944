// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/GameEditor.h"

#include "forms/ActionRow.h"
#include "forms/Icons.h"
#include "forms/MessageBoxes.h"
#include "forms/PlaceWindow.h"
#include "forms/Style.h"
#include "forms/Texts.h"
#include "forms/WindowPlacement.h"
#include "play/time/PinWatch.h"
#include "play/time/PlayKeeper.h"
#include "play/time/PlayPanel.h"
#include "play/time/TimeWindow.h"
#include "runtime/ZBInterpreter.h"
#include "runtime/world/Field.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QRandomGenerator>
#include <QScreen>
#include <QSlider>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace
{

using namespace Qt::StringLiterals;

constexpr int gap = 8;
constexpr int margin = 12;
constexpr int fastest = 1800;
constexpr int haltRetry = 200;
constexpr auto timeTip = u"Go Back in Time";

/// The picture of the button with a smaller one in its corner.
QIcon withSign(const char* name, const char* sign, QSize size, qreal ratio)
{
    QPixmap picture = forms::icon(name).pixmap(size, ratio);
    const QSize small = size / 2;
    QPainter painter(&picture);
    painter.drawPixmap(size.width() - small.width(), size.height() - small.height(),
                       forms::icon(sign).pixmap(small, ratio));
    painter.end();
    return picture;
}

} // namespace

struct GameEditor::ButtonRow {
    QToolButton* GameEditor::*button;
    forms::ActionOf<GameEditor> action;
};

GameEditor::GameEditor(Desk& desk, const GameRecord& game)
    : m_desk(desk)
    , m_game(game)
    , m_framesPerMinute(new QSlider(Qt::Horizontal))
    , m_showMap(new QCheckBox(u"Show &Map"_s))
    , m_haltMeAgain(new QTimer(this))
{
    setObjectName(u"GameEditor"_s);
    setWindowTitle(u"Game Editor"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    buildControls();

    m_haltMeAgain->setObjectName(u"HaltMeAgain"_s);
    m_haltMeAgain->setInterval(haltRetry);
    m_haltMeAgain->callOnTimeout(this, &GameEditor::HaltMeAgain_Timer);

    Form_Load();
    GameEditor::setButtons(RunButtons::Stopped);
}

GameEditor::~GameEditor()
{
    if (m_closing != Closing::Done) // the program ends without asking
        m_codeEditor->closeForGood();
}

void GameEditor::Form_Load()
{
    m_desk.LogProgress(u"GameEditor.Form_Load: begin"_s);
    showTitle();
    m_desk.LogProgress(u"GameEditor.Form_Load: loading code editor"_s);
    m_codeEditor = m_desk.createCodeEditor(m_game);
    forms::placeWindow(*this);
    if (QWidget* code = m_codeEditor->widget())
        forms::placeWindow(*code);
    ZB& module = m_desk.module();
    m_spy = std::make_unique<SpyWindow>(*m_codeEditor);
    m_parseError = std::make_unique<ParseError>(module, *m_codeEditor);
    m_interpreter = std::make_unique<ZBInterpreter>(module, m_desk.installation(), m_desk.pictures(),
                                                    Ports{.screen = m_gameWindow,
                                                          .gameEditor = *this,
                                                          .codeEditor = *m_codeEditor,
                                                          .spy = *m_spy,
                                                          .parseError = *m_parseError});
    m_gameWindow.attach(*m_interpreter);
    m_timeMachine = std::make_unique<TimeMachine>(
        *m_interpreter, TimeMachine::Windows{.game = m_gameWindow, .spy = *m_spy, .code = *m_codeEditor},
        m_desk.pictures());
    m_plays = std::make_unique<PlayKeeper>(m_desk.installation(), module.gamePath());
    m_pins = std::make_unique<PinWatch>(*m_timeMachine, *m_plays);
    connect(m_pins.get(), &PinWatch::changed, this, &GameEditor::showPins);
    m_timeWindow = std::make_unique<TimeWindow>(*m_timeMachine,
                                                new PlayPanel(*m_timeMachine, *m_plays, *m_pins, m_desk));
    connect(m_timeWindow.get(), &TimeWindow::lineChosen, this, &GameEditor::showLine);
    m_codeEditor->setLineAsked([this](int line) {
        TimeButton_Click();
        m_timeWindow->askAboutLine(line);
    });
    connect(&m_gameWindow, &GameWindow::told, this, [this] {
        if (m_closing == Closing::Telling)
            close();
    });
    connect(&m_gameWindow, &GameWindow::aboutToShow, this, [this] { forms::placeWindow(m_gameWindow); });
    m_parseError->accompany(m_codeEditor->widget());
    connect(m_spy.get(), &SpyWindow::traceBoxesChanged, this, [this] {
        m_interpreter->setTraceBoxes(m_spy->traceBoxes());
        m_timeMachine->refresh();
    });
    m_desk.LogProgress(u"GameEditor.Form_Load: loading source code"_s);
    // A text that cannot be read leaves the code editor empty and hidden.
    m_codeEditor->LoadFile(forms::fromUtf8(m_game.pathOf("code.txt")));
    m_desk.LogProgress(u"GameEditor.Form_Load: done"_s);
}

void GameEditor::showTitle()
{
    setWindowTitle(forms::fromUtf8(m_game.title));
}

// ---- Controls

void GameEditor::buildControls()
{
    // clang-format off
    static constexpr std::array<ButtonRow, 9> buttons = {{
        {&GameEditor::m_play, {{"PlayButton", "play", u"&Play", u""}, &GameEditor::PlayButton_Click}},
        {&GameEditor::m_pause, {{"PauseButton", "pause", u"Pa&use", u"Pause Currently Running Game"}, &GameEditor::PauseButton_Click}},
        {&GameEditor::m_step, {{"StepButton", "step", u"S&tep", u"Step"}, &GameEditor::StepButton_Click}},
        {&GameEditor::m_stop, {{"StopButton", "stop", u"St&op", u"Stop Currently Running Game"}, &GameEditor::StopButton_Click}},
        {&GameEditor::m_codeWindow, {{"CodeWindowButton", "code", u"&Code", u"Show the Code Editor"}, &GameEditor::CodeWindowButton_Click}},
        {&GameEditor::m_propWindow, {{"PropWindowButton", "properties", u"Prop&erties", u"Show the Properties Window"}, &GameEditor::PropWindowButton_Click}},
        {&GameEditor::m_resWindow, {{"ResWindowButton", "resources", u"&Resources", u"Show the Resources Window"}, &GameEditor::ResWindowButton_Click}},
        {&GameEditor::m_spyWindow, {{"SpyWindowButton", "spy", u"Sp&y", u"Show the Spy Window"}, &GameEditor::SpyWindowButton_Click}},
        {&GameEditor::m_time, {{"TimeButton", "time", u"T&ime", timeTip}, &GameEditor::TimeButton_Click}},
    }};
    // clang-format on
    constexpr int runIcon = 40;
    constexpr int windowIcon = 32;

    m_showMap->setObjectName(u"OptionShowMap"_s);
    connect(m_showMap, &QCheckBox::toggled, this, &GameEditor::OptionShowMap_Click);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(makeButtons(buttons.data(), buttons.data() + 4, runIcon));
    layout->addLayout(makeSpeed());
    layout->addWidget(m_showMap);
    layout->addLayout(makeButtons(buttons.data() + 4, buttons.data() + buttons.size(), windowIcon));
    // Where the game would have no room beside them, the pictures have to do without their captions.
    if (forms::fitBeside(sizeHint().width() + forms::windowGap, fieldSize, screen()->availableGeometry()))
        return;
    for (auto* button : findChildren<QToolButton*>()) {
        button->setToolButtonStyle(Qt::ToolButtonIconOnly);
        button->setMinimumWidth(0);
    }
}

QLayout* GameEditor::makeButtons(const ButtonRow* first, const ButtonRow* last, int iconSize)
{
    auto* line = new QHBoxLayout;
    line->setSpacing(gap);
    int width = 0;
    for (const ButtonRow* row = first; row != last; ++row) {
        auto* button = forms::makeToolButton(row->action, QSize(iconSize, iconSize), this);
        button->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Preferred);
        connect(button, &QToolButton::clicked, this, row->action.handler);
        this->*row->button = button;
        line->addWidget(button);
        width = std::max(width, button->sizeHint().width());
    }
    for (const ButtonRow* row = first; row != last; ++row)
        (this->*row->button)->setMinimumWidth(width);
    return line;
}

QLayout* GameEditor::makeSpeed()
{
    m_framesPerMinute->setObjectName(u"FramesPerMinute"_s);
    m_framesPerMinute->setAccessibleName(u"Speed"_s);
    m_framesPerMinute->setRange(0, fastest);
    m_framesPerMinute->setPageStep(10);
    m_framesPerMinute->setSingleStep(1);
    m_framesPerMinute->setValue(fastest);
    connect(m_framesPerMinute, &QSlider::valueChanged, this, &GameEditor::FramesPerMinute_Change);

    auto picture = [this](const char* icon, const QString& name) {
        constexpr int size = 32;
        auto* label = new QLabel;
        label->setPixmap(forms::icon(icon).pixmap(QSize(size, size), devicePixelRatioF()));
        label->setAccessibleName(name);
        return label;
    };
    auto* caption = new QLabel(u"Spee&d"_s);
    caption->setBuddy(m_framesPerMinute);
    auto* line = new QHBoxLayout;
    line->setSpacing(gap);
    line->addWidget(caption);
    line->addWidget(picture("speed-turtle", u"Slow"_s));
    line->addWidget(m_framesPerMinute, 1);
    line->addWidget(picture("speed-rabbit", u"Fast"_s));
    return line;
}

// ---- Run control

void GameEditor::setButtons(RunButtons state)
{
    struct Change {
        RunButtons state;
        QToolButton* GameEditor::*button;
        bool on;
    };
    static constexpr auto stopped = RunButtons::Stopped;
    static constexpr auto running = RunButtons::Running;
    static constexpr auto paused = RunButtons::Paused;
    static constexpr auto resumed = RunButtons::Resumed;
    // clang-format off
    static constexpr std::array changes = {
        Change{stopped, &GameEditor::m_play, true},        Change{running, &GameEditor::m_play, false},
        Change{stopped, &GameEditor::m_pause, false},      Change{running, &GameEditor::m_pause, true},
        Change{stopped, &GameEditor::m_step, false},       Change{running, &GameEditor::m_stop, true},
        Change{stopped, &GameEditor::m_stop, false},       Change{running, &GameEditor::m_codeWindow, false},
        Change{stopped, &GameEditor::m_codeWindow, true},  Change{running, &GameEditor::m_propWindow, false},
        Change{stopped, &GameEditor::m_propWindow, true},  Change{running, &GameEditor::m_resWindow, false},
        Change{stopped, &GameEditor::m_resWindow, true},
        Change{paused, &GameEditor::m_play, true},         Change{resumed, &GameEditor::m_play, false},
        Change{paused, &GameEditor::m_step, true},         Change{resumed, &GameEditor::m_pause, true},
                                                           Change{resumed, &GameEditor::m_step, false},
    };
    // clang-format on
    for (const Change& change : changes) {
        if (change.state == state)
            (this->*change.button)->setEnabled(change.on);
    }
    if (state == paused)
        m_gameWindow.holdKeys();
    else
        m_gameWindow.letKeysGo();
    m_play->setToolTip(state == paused ? u"Resume normal running"_s : QString());
}

void GameEditor::setEnabled(bool on)
{
    QWidget::setEnabled(on);
    if (on)
        m_haltMeAgain->stop(); // the run is over: nothing of its stop may reach the next one
}

void GameEditor::startHaltMeAgain()
{
    m_haltMeAgain->start();
}

int GameEditor::framesPerMinute() const
{
    return m_framesPerMinute->value();
}

void GameEditor::PlayButton_Click()
{
    if (m_interpreter->context().InterpreterRunning()) {
        m_timeMachine->showRun(nullptr);
        m_timeMachine->leave();
        m_interpreter->ResumeGame();
        m_gameWindow.activateWindow(); // the keys are for the game again, as after its start
        return;
    }
    if (m_closing == Closing::Done)
        return;
    m_interpreter->setSeed(QRandomGenerator::system()->generate64()); // chance falls anew in every run
    if (!m_interpreter->prepareRun(RunKind::Traced))
        return;
    m_timeMachine->forget();
    m_codeEditor->runBegins();
    QCoreApplication::processEvents(); // a click on Stop, or on the cross of this window, counts now
    const std::string text = m_codeEditor->text();
    m_pins->begin(text);
    m_gameWindow.follow(m_interpreter->startRun(text));
}

void GameEditor::PauseButton_Click()
{
    m_interpreter->PauseGame();
}

void GameEditor::StepButton_Click()
{
    m_timeMachine->stepForward();
}

void GameEditor::StopButton_Click()
{
    m_timeMachine->leave();
    m_interpreter->StopGame();
}

void GameEditor::HaltMeAgain_Timer()
{
    m_haltMeAgain->stop();
    m_interpreter->StopGame();
}

void GameEditor::FramesPerMinute_Change()
{
    if (m_interpreter->context().InterpreterRunning())
        m_interpreter->framesPerMinuteChanged();
}

void GameEditor::OptionShowMap_Click()
{
    m_interpreter->context().setShowMap(m_showMap->isChecked());
    m_timeMachine->setShowMap(m_showMap->isChecked());
}

// ---- The other windows

void GameEditor::CodeWindowButton_Click()
{
    m_codeEditor->show();
}

void GameEditor::PropWindowButton_Click()
{
    m_desk.showProperties();
}

void GameEditor::ResWindowButton_Click()
{
    m_desk.showResources();
}

void GameEditor::SpyWindowButton_Click()
{
    if (!m_spy->isVisible())
        forms::placeWindow(*m_spy);
    forms::bringUp(*m_spy);
}

/// In the code editor, where that is open; the keyboard stays where it is.
void GameEditor::showLine(int line)
{
    if (m_codeEditor->isVisible())
        m_codeEditor->showMomentAt(line);
}

/// A sign says how the pinned plays go.
void GameEditor::showPins()
{
    const std::string summary = m_pins->summary();
    const bool isTold = !summary.empty() && m_pins->isOver();
    m_time->setIcon(isTold ? withSign("time", m_pins->differences().empty() ? "ok" : "warning",
                                      m_time->iconSize(), devicePixelRatioF())
                           : forms::icon("time"));
    const QString tip = QString::fromUtf16(timeTip);
    m_time->setToolTip(isTold ? tip + u'\n' + forms::fromUtf8(summary) : tip);
}

void GameEditor::TimeButton_Click()
{
    if (!m_timeWindow->isVisible())
        forms::placeWindow(*m_timeWindow);
    forms::bringUp(*m_timeWindow);
}

// ---- Closing

void GameEditor::closeEvent(QCloseEvent* event)
{
    if (m_closing == Closing::No) {
        m_closing = Closing::Asking; // the question lets other attempts in
        m_closing = mayClose() ? Closing::Telling : Closing::No;
    }
    if (m_closing == Closing::Telling && !m_gameWindow.isTelling()) { // what went wrong is read first
        m_closing = Closing::Done;
        leave();
    }
    event->setAccepted(m_closing == Closing::Done);
}

bool GameEditor::mayClose()
{
    if (m_codeEditor->isModified()) {
        switch (forms::askYesNoCancel(this, u"Exit Editor"_s,
                                      u"The program text has not been saved.  Save it now?"_s)) {
        case forms::Answer::Yes:
            if (!m_codeEditor->saveFile()) // the user has been told; closing now would lose the text
                return false;
            break;
        case forms::Answer::No:
            break;
        case forms::Answer::Cancel:
            return false;
        }
    }
    return m_desk.closeGameWindows();
}

void GameEditor::leave()
{
    QWidget::setEnabled(false); // a click that is still on its way comes too late
    m_timeWindow->close();
    m_interpreter->abandonRun();
    m_haltMeAgain->stop();
    m_codeEditor->closeForGood();
    m_parseError->close();
    m_spy->close();
    m_desk.showLibrary();
}
