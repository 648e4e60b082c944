// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/time/TimeWindow.h"

#include "forms/ActionRow.h"
#include "forms/Icons.h"
#include "forms/Texts.h"
#include "play/time/CardPanel.h"
#include "play/time/FilmStrip.h"
#include "play/time/KeyCaps.h"
#include "play/time/MarkBar.h"
#include "play/time/PlayPanel.h"
#include "play/time/QuestionPanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyle>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace
{

using namespace Qt::StringLiterals;

constexpr int gap = 8;
constexpr int margin = 12;
constexpr int buttonIcon = 24;
// In milliseconds.
constexpr int seekInterval = 16;
constexpr int followInterval = 200;
constexpr int playInterval = 16;
constexpr double framesPerMillisecond = 0.03; // of a game at full speed

struct Speed {
    const char16_t* text;
    double factor;
};
constexpr std::array speeds = {Speed{u"\u00bc", 0.25}, Speed{u"\u00bd", 0.5}, Speed{u"1", 1},
                               Speed{u"2", 2},         Speed{u"5", 5},        Speed{u"20", 20}};
constexpr int usualSpeed = 2;

/// One that leaves the wheel to its window, for which a notch is a frame.
class MomentSlider : public QSlider
{
public:
    MomentSlider()
        : QSlider(Qt::Horizontal)
    {
    }

protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

} // namespace

struct TimeWindow::ButtonRow {
    QToolButton* TimeWindow::*button;
    forms::ActionOf<TimeWindow> action;
};

TimeWindow::TimeWindow(TimeMachine& machine, PlayPanel* plays)
    : m_machine(machine)
    , m_momentText(new QLabel)
    , m_marks(new MarkBar)
    , m_moments(new MomentSlider)
    , m_strip(new FilmStrip)
    , m_keys(new KeyCaps)
    , m_questions(new QuestionPanel(machine))
    , m_card(new CardPanel)
    , m_plays(plays)
    , m_pages(new QTabWidget)
    , m_speed(new QComboBox)
    , m_boxes(new QCheckBox(u"Show &boxes and names"_s))
    , m_goOn(new QPushButton(u"&Go on from here"_s))
    , m_oldEnding(new QPushButton(u"The &old ending"_s))
    , m_lastRun(new QPushButton(u"Back to the l&ast run"_s))
{
    setObjectName(u"TimeWindow"_s);
    setWindowTitle(u"Time"_s);
    setWindowIcon(forms::icon("time"));

    m_momentText->setObjectName(u"MomentText"_s);
    m_momentText->setTextFormat(Qt::PlainText);
    QFont big = m_momentText->font();
    big.setPointSizeF(big.pointSizeF() * 1.25);
    big.setBold(true);
    m_momentText->setFont(big);

    m_moments->setObjectName(u"Moments"_s);
    m_moments->setAccessibleName(u"Moments of the run"_s);
    m_moments->setToolTip(u"Drag it to go back in time"_s);
    connect(m_moments, &QSlider::valueChanged, this, &TimeWindow::Moments_Change);
    connect(m_strip, &FilmStrip::frameChosen, this, [this](qint64 frame) { m_machine.goTo({frame, 0}); });
    connect(m_keys, &KeyCaps::toggled, &m_machine, &TimeMachine::toggleKey);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(gap);
    layout->addWidget(m_momentText);
    layout->addWidget(m_marks);
    layout->setSpacing(gap / 2);
    layout->addWidget(m_moments);
    layout->addWidget(m_strip);
    layout->addLayout(makeButtons());
    layout->addLayout(makeSpeed());
    layout->addWidget(makePages(), 1);

    m_seek.setObjectName(u"SeekTimer"_s);
    m_seek.setSingleShot(true);
    m_seek.setInterval(seekInterval);
    m_seek.callOnTimeout(this, [this] { m_machine.goTo({m_moments->value(), 0}, false); });
    m_follow.setInterval(followInterval);
    m_follow.callOnTimeout(this, &TimeWindow::follow);
    m_player.setInterval(playInterval);
    m_player.setTimerType(Qt::PreciseTimer);
    m_player.callOnTimeout(this, &TimeWindow::playOn);
    connect(&m_machine, &TimeMachine::changed, this, &TimeWindow::refresh);
    connect(&m_machine, &TimeMachine::indexed, this, [this] {
        showMarks();
        m_questions->refresh();
    });
    connect(&m_machine, &TimeMachine::runShown, this, [this] {
        m_card->clear();
        m_questions->refresh();
        showMarks();
    });
    connect(&m_machine, &TimeMachine::pictureClicked, this, &TimeWindow::showCard);
    connect(&m_machine, &TimeMachine::forgotten, this, [this] {
        stopPlaying();
        m_seek.stop();
        m_card->clear();
        m_questions->refresh();
        showMarks();
    });
    refresh();
}

QLayout* TimeWindow::makeButtons()
{
    // clang-format off
    static constexpr std::array<ButtonRow, 8> buttons = {{
        {&TimeWindow::m_toBegin, {{"ToBegin", "time-begin", u"", u"To the beginning"}, &TimeWindow::ToBegin_Click}},
        {&TimeWindow::m_frameBack, {{"FrameBack", "frame-back", u"", u"One frame back"}, &TimeWindow::FrameBack_Click}},
        {&TimeWindow::m_stepBack, {{"StepBack", "step-back", u"", u"One statement back"}, &TimeWindow::StepBack_Click}},
        {&TimeWindow::m_playBack, {{"PlayBack", "play-back", u"", u"Play backwards"}, &TimeWindow::PlayBack_Click}},
        {&TimeWindow::m_playForward, {{"PlayForward", "play", u"", u"Play forwards"}, &TimeWindow::PlayForward_Click}},
        {&TimeWindow::m_stepForward, {{"StepForward", "step", u"", u"One statement on"}, &TimeWindow::StepForward_Click}},
        {&TimeWindow::m_frameForward, {{"FrameForward", "frame-forward", u"", u"One frame on"}, &TimeWindow::FrameForward_Click}},
        {&TimeWindow::m_toNow, {{"ToNow", "time-now", u"", u"To the end"}, &TimeWindow::ToNow_Click}},
    }};
    // clang-format on
    auto* line = new QHBoxLayout;
    line->setSpacing(gap / 2);
    for (const ButtonRow& row : buttons) {
        auto* button = forms::makeToolButton(row.action, QSize(buttonIcon, buttonIcon), this);
        button->setToolButtonStyle(Qt::ToolButtonIconOnly);
        button->setAutoRepeat(row.button != &TimeWindow::m_toBegin && row.button != &TimeWindow::m_toNow);
        connect(button, &QToolButton::clicked, this, row.action.handler);
        this->*row.button = button;
        line->addWidget(button);
    }
    for (QToolButton* button : {m_playBack, m_playForward}) {
        button->setCheckable(true);
        button->setAutoRepeat(false);
    }
    line->addSpacing(gap);
    auto* caption = new QLabel(u"S&peed"_s);
    caption->setBuddy(m_speed);
    m_speed->setObjectName(u"Speed"_s);
    m_speed->setAccessibleName(u"Speed of playing"_s);
    for (const Speed& speed : speeds)
        m_speed->addItem(QString::fromUtf16(speed.text), speed.factor);
    m_speed->setCurrentIndex(usualSpeed);
    line->addWidget(caption);
    line->addWidget(m_speed);
    line->addStretch(1);
    m_boxes->setObjectName(u"ShowBoxes"_s);
    m_boxes->setToolTip(u"Two sprites touch when their boxes overlap"_s);
    connect(m_boxes, &QCheckBox::toggled, &m_machine, &TimeMachine::setShowBoxes);
    line->addWidget(m_boxes);
    return line;
}

QLayout* TimeWindow::makeSpeed()
{
    forms::setUpButton(*m_goOn, "GoOnFromHere", "go-on", u"The game goes on from this moment"_s);
    forms::setUpButton(*m_oldEnding, "OldEnding", "time", u"What came before you went on from the past"_s);
    m_goOn->setIconSize(QSize(buttonIcon, buttonIcon));
    m_oldEnding->setIconSize(QSize(buttonIcon, buttonIcon));
    m_oldEnding->setCheckable(true);
    connect(m_goOn, &QPushButton::clicked, this, &TimeWindow::GoOnFromHere_Click);
    connect(m_oldEnding, &QPushButton::clicked, this, &TimeWindow::OldEnding_Click);
    forms::setUpButton(*m_lastRun, "LastRun", "go-on", u"Leave the kept play that is shown"_s);
    m_lastRun->setIconSize(QSize(buttonIcon, buttonIcon));
    connect(m_lastRun, &QPushButton::clicked, this, &TimeWindow::LastRun_Click);
    auto* line = new QHBoxLayout;
    line->setSpacing(gap);
    line->addWidget(m_goOn);
    line->addWidget(m_oldEnding);
    line->addWidget(m_lastRun);
    line->addWidget(m_keys, 1);
    return line;
}

QWidget* TimeWindow::makePages()
{
    m_pages->setObjectName(u"Pages"_s);
    m_pages->setDocumentMode(true);
    m_pages->addTab(m_questions, u"&Questions"_s);
    m_pages->addTab(m_card, u"&Why"_s);
    m_pages->addTab(m_plays, u"P&lays"_s);
    connect(m_marks, &MarkBar::momentChosen, this, [this](Moment moment) { m_machine.goTo(moment); });
    connect(m_questions, &QuestionPanel::chosen, this, &TimeWindow::goTo);
    connect(m_card, &CardPanel::chosen, this, &TimeWindow::goTo);
    return m_pages;
}

void TimeWindow::showMarks()
{
    const RunIndex* const index = m_machine.index();
    const int handle = style()->pixelMetric(QStyle::PM_SliderLength, nullptr, m_moments);
    m_marks->show(index ? index->marks() : std::vector<RunIndex::Mark>(), index ? index->frames() : 0,
                  handle / 2);
}

void TimeWindow::goTo(const AnswerList::Line& answer)
{
    stopPlaying();
    if (answer.moment)
        m_machine.goTo(*answer.moment);
    if (answer.line > 0)
        Q_EMIT lineChosen(answer.line);
}

void TimeWindow::askAboutLine(int line)
{
    m_pages->setCurrentWidget(m_questions);
    m_questions->askAboutLine(line);
}

void TimeWindow::showCard(QPoint place)
{
    if (!isVisible())
        return;
    const auto card = m_machine.cardAt(place);
    if (!card)
        return;
    m_card->show(*card);
    m_pages->setCurrentWidget(m_card);
}

// Where in the run.

void TimeWindow::Moments_Change()
{
    stopPlaying();
    seekSoon();
}

void TimeWindow::seekSoon()
{
    if (!m_seek.isActive())
        m_seek.start();
}

void TimeWindow::ToBegin_Click()
{
    stopPlaying();
    m_machine.goTo({});
}

void TimeWindow::FrameBack_Click()
{
    stopPlaying();
    m_machine.moveFrames(-1);
}

void TimeWindow::StepBack_Click()
{
    stopPlaying();
    m_machine.stepBack();
}

void TimeWindow::StepForward_Click()
{
    stopPlaying();
    m_machine.stepForward();
}

void TimeWindow::FrameForward_Click()
{
    stopPlaying();
    m_machine.moveFrames(1);
}

void TimeWindow::ToNow_Click()
{
    stopPlaying();
    m_machine.toNow();
}

void TimeWindow::wheelEvent(QWheelEvent* event)
{
    stopPlaying();
    constexpr int notch = 120;
    const QPoint turned = event->angleDelta();
    m_wheel += turned.y() != 0 ? turned.y() : turned.x();
    const int notches = m_wheel / notch; // a pad turns by parts of one
    m_wheel -= notches * notch;
    if (notches != 0)
        m_machine.moveFrames(-notches);
    event->accept();
}

// Playing it again.

void TimeWindow::PlayBack_Click()
{
    play(-1);
}

void TimeWindow::PlayForward_Click()
{
    play(1);
}

void TimeWindow::play(int direction)
{
    const bool goesOn = m_direction != direction && !m_machine.isEmpty();
    stopPlaying();
    if (!goesOn)
        return;
    if (direction > 0 && m_machine.moment() >= m_machine.last())
        m_machine.goTo({}); // at the end: the whole run once more
    m_direction = direction;
    m_part = 0;
    m_sinceShown.start();
    m_player.start();
    (direction > 0 ? m_playForward : m_playBack)->setChecked(true);
}

void TimeWindow::playOn()
{
    const auto elapsed = static_cast<double>(m_sinceShown.restart());
    m_part += elapsed * framesPerMillisecond * m_speed->currentData().toDouble();
    const double whole = std::floor(m_part);
    if (whole < 1)
        return;
    m_part -= whole;
    const Moment from = m_machine.moment();
    const Moment last = m_machine.last();
    const Moment to{from.frame + m_direction * static_cast<std::int64_t>(whole), 0};
    m_machine.goTo(std::clamp(to, Moment{}, last), false);
    if (to <= Moment{} || to >= last)
        stopPlaying();
}

void TimeWindow::stopPlaying()
{
    m_direction = 0;
    m_player.stop();
    m_playBack->setChecked(false);
    m_playForward->setChecked(false);
}

void TimeWindow::GoOnFromHere_Click()
{
    stopPlaying();
    m_machine.goOnFromHere();
}

void TimeWindow::OldEnding_Click()
{
    stopPlaying();
    m_machine.showOldEnding(!m_machine.isOldEndingShown());
    refresh();
}

void TimeWindow::LastRun_Click()
{
    stopPlaying();
    m_machine.showRun(nullptr);
}

// What is shown.

void TimeWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_follow.start();
    m_machine.setShowBoxes(m_boxes->isChecked());
    refresh();
}

void TimeWindow::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    stopPlaying();
    m_seek.stop();
    m_follow.stop();
    m_machine.setShowBoxes(false);
    m_plays->stopWork();
    m_machine.leave();
    m_strippedRun = nullptr;
    m_strippedFrames = -1;
    m_strip->show(nullptr, nullptr);
}

/// The pictures are those of the whole run; while it goes on they are not made again and again.
void TimeWindow::refreshStrip()
{
    const Recording* const run = m_machine.isEmpty() || !isVisible() ? nullptr : &m_machine.recording();
    const bool isOther = run != m_strippedRun || (run && run->version() != m_strippedVersion);
    const bool isLonger = run && run->frames() != m_strippedFrames && !m_machine.isRunning();
    if (!isOther && !isLonger)
        return;
    m_strippedRun = run;
    m_strippedVersion = run ? run->version() : 0;
    m_strippedFrames = run ? run->frames() : -1;
    m_strip->show(run, run ? &m_machine.pictures() : nullptr);
    if (isOther)
        m_programKeys = run ? keysOfProgram(*run->beginning().lines) : std::vector<int>();
}

/// The run has gone on, or another one has begun.
void TimeWindow::follow()
{
    m_plays->refresh(); // it may wait now
    if (!m_machine.isRunning())
        m_machine.startIndexing();
    if (!m_machine.isInPast() && m_machine.recording().frames() != m_shownFrames)
        refresh();
}

QString TimeWindow::momentText(Moment moment)
{
    if (m_machine.isEmpty())
        return u"Nothing has been played yet. Press Play in the game editor."_s;
    const Moment last = m_machine.last();
    QString text =
        moment.statement > 0
            ? u"In frame %1 of %2"_s.arg(moment.frame + 1).arg(last.frame + (last.statement > 0 ? 1 : 0))
            : u"After frame %1 of %2"_s.arg(moment.frame).arg(last.frame);
    if (const int line = m_machine.line(); line > 0)
        text += u", before line %1"_s.arg(line);
    if (!m_machine.isInPast() && m_machine.isOn())
        text += u"  (now)"_s;
    if (m_machine.isPlayShown())
        text = forms::fromUtf8(m_machine.playName()).simplified() + u": "_s + text;
    return text;
}

void TimeWindow::refresh()
{
    if (!isVisible())
        return;
    const bool isEmpty = m_machine.isEmpty();
    const Moment moment = m_machine.moment();
    const std::int64_t frames = isEmpty ? 0 : m_machine.recording().frames();
    m_momentText->setText(momentText(moment));
    {
        const QSignalBlocker quiet(m_moments);
        constexpr std::int64_t most = std::numeric_limits<int>::max();
        m_moments->setRange(0, static_cast<int>(std::min(frames, most)));
        m_moments->setPageStep(std::max(m_moments->maximum() / 10, 1));
        if (!m_moments->isSliderDown())
            m_moments->setValue(static_cast<int>(std::min(moment.frame, most)));
    }
    m_moments->setEnabled(!isEmpty);
    for (QToolButton* button : {m_toBegin, m_frameBack, m_stepBack, m_playBack, m_playForward, m_stepForward,
                                m_frameForward, m_toNow})
        button->setEnabled(!isEmpty);
    m_goOn->setEnabled(m_machine.isInPast() && !m_machine.isOldEndingShown() && !m_machine.isPlayShown());
    m_oldEnding->setVisible(m_machine.hasOldEnding());
    m_lastRun->setVisible(m_machine.isPlayShown());
    m_plays->refresh();
    m_oldEnding->setChecked(m_machine.isOldEndingShown());
    m_shownFrames = frames;
    refreshStrip();
    if (isEmpty)
        return;
    m_keys->show(m_programKeys, m_machine.keysDown());
    m_keys->setEnabled(m_machine.isInPast() || m_machine.isOn());
    m_questions->follow();
}
