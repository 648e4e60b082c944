// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "play/time/AnswerList.h"
#include "play/time/TimeMachine.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

class CardPanel;
class FilmStrip;
class KeyCaps;
class MarkBar;
class PlayPanel;
class QuestionPanel;
class QCheckBox;
class QComboBox;
class QLabel;
class QLayout;
class QPushButton;
class QSlider;
class QTabWidget;
class QToolButton;

/// Goes through the last run: a slider over all of its moments, a strip of small pictures under it, buttons
/// from statement to statement and from frame to frame, the keys that were held.
class TimeWindow : public QWidget
{
    Q_OBJECT
public:
    /// `plays` is its third page.
    TimeWindow(TimeMachine& machine, PlayPanel* plays);

    void ToBegin_Click();
    void FrameBack_Click();
    void StepBack_Click();
    void StepForward_Click();
    void FrameForward_Click();
    void ToNow_Click();
    void PlayBack_Click();
    void PlayForward_Click();
    void GoOnFromHere_Click();
    void OldEnding_Click();
    void LastRun_Click();
    void Moments_Change();
    /// Shows when a line of the program ran.
    void askAboutLine(int line);

Q_SIGNALS:
    /// The user wants to see a line of the program.
    void lineChosen(int line);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    struct ButtonRow;

    QLayout* makeButtons();
    QLayout* makeSpeed();
    QWidget* makePages();
    void showMarks();
    void showCard(QPoint place);
    void goTo(const AnswerList::Line& answer);
    void play(int direction);
    void playOn();
    void stopPlaying();
    void seekSoon();
    void follow();
    void refresh();
    void refreshStrip();
    QString momentText(Moment moment);

    TimeMachine& m_machine;
    QLabel* m_momentText;
    MarkBar* m_marks;
    QSlider* m_moments;
    FilmStrip* m_strip;
    KeyCaps* m_keys;
    QuestionPanel* m_questions;
    CardPanel* m_card;
    PlayPanel* m_plays;
    QTabWidget* m_pages;
    QComboBox* m_speed;
    QCheckBox* m_boxes;
    QToolButton* m_toBegin = nullptr;
    QToolButton* m_frameBack = nullptr;
    QToolButton* m_stepBack = nullptr;
    QToolButton* m_playBack = nullptr;
    QToolButton* m_playForward = nullptr;
    QToolButton* m_stepForward = nullptr;
    QToolButton* m_frameForward = nullptr;
    QToolButton* m_toNow = nullptr;
    QPushButton* m_goOn;
    QPushButton* m_oldEnding;
    QPushButton* m_lastRun;
    QTimer m_seek;   ///< so that a slider that is dragged asks for no more moments than can be seen
    QTimer m_follow; ///< looks for new frames while a run goes on
    QTimer m_player;
    QElapsedTimer m_sinceShown;
    int m_direction = 0; ///< in which it plays; 0: not
    double m_part = 0;   ///< of a frame that is still to be played
    int m_wheel = 0;     ///< what the wheel has turned of its next notch
    std::int64_t m_shownFrames = -1;
    std::vector<int> m_programKeys; ///< that the program asks for by name
    // What the strip shows.
    const Recording* m_strippedRun = nullptr;
    std::uint64_t m_strippedVersion = 0;
    std::int64_t m_strippedFrames = -1;
};
