// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "play/time/AnswerList.h"
#include "recording/Questions.h"

#include <QWidget>

#include <memory>
#include <vector>

class QComboBox;
class QLabel;
class TimeMachine;

/// Questions about the run that is shown, in a list, and the answers below it. An answer leads to its moment
/// and its line.
class QuestionPanel : public QWidget
{
    Q_OBJECT
public:
    explicit QuestionPanel(TimeMachine& machine);

    /// Another run is shown, or more is known about it.
    void refresh();
    /// Another moment is shown.
    void follow();
    void askAboutLine(int line);

Q_SIGNALS:
    void chosen(const AnswerList::Line& line);

private:
    void setQuestions(std::vector<Question> questions);
    void answer();

    TimeMachine& m_machine;
    QComboBox* m_box;
    AnswerList* m_answers;
    QLabel* m_note;
    std::vector<Question> m_questions;
    const Program* m_program = nullptr; ///< that the questions are about; only compared
    Moment m_answered;                  ///< the moment that a question about a frame was answered for
};
