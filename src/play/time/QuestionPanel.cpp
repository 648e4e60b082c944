// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/time/QuestionPanel.h"

#include "forms/Texts.h"
#include "play/time/TimeMachine.h"

#include <QComboBox>
#include <QLabel>
#include <QListView>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

QuestionPanel::QuestionPanel(TimeMachine& machine)
    : m_machine(machine)
    , m_box(new QComboBox)
    , m_answers(new AnswerList("Answers", u"Answers"_s))
    , m_note(new QLabel)
{
    setObjectName(u"QuestionPanel"_s);
    m_box->setObjectName(u"Questions"_s);
    m_box->setAccessibleName(u"Questions"_s);
    m_box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_box->setMinimumContentsLength(20);
    m_box->setMaxVisibleItems(12);
    m_box->setStyleSheet(u"combobox-popup: 0"_s); // a list below it rather than one as high as the screen
    auto* list = new QListView;                   // one that does not measure each of its lines
    list->setUniformItemSizes(true);
    m_box->setView(list);
    m_note->setObjectName(u"AnswerNote"_s);
    m_note->setWordWrap(true);
    m_note->setTextFormat(Qt::PlainText);
    m_note->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 6, 0, 0);
    layout->addWidget(m_box);
    layout->addWidget(m_note);
    layout->addWidget(m_answers, 1);
    connect(m_box, &QComboBox::currentIndexChanged, this, &QuestionPanel::answer);
    connect(m_answers, &AnswerList::chosen, this, &QuestionPanel::chosen);
}

void QuestionPanel::refresh()
{
    const RunIndex* const index = m_machine.index();
    if (!index || !index->program()) {
        m_program = nullptr;
        setQuestions({});
    } else if (index->program() != m_program) {
        m_program = index->program();
        std::vector<Question> questions = {Questions::aboutFrame()};
        const std::vector<Question> all = Questions(*index).all();
        questions.insert(questions.end(), all.begin(), all.end());
        setQuestions(std::move(questions));
    }
    answer();
}

void QuestionPanel::setQuestions(std::vector<Question> questions)
{
    const QSignalBlocker quiet(m_box);
    const QString before = m_box->currentText();
    m_questions = std::move(questions);
    m_box->clear();
    QStringList texts; // all at once: a large program has thousands
    for (const Question& question : m_questions)
        texts += forms::fromUtf8(question.text);
    m_box->addItems(texts);
    m_box->setCurrentIndex(std::max(m_box->findText(before), 0));
    m_box->setEnabled(!m_questions.empty());
}

void QuestionPanel::follow()
{
    const auto place = static_cast<std::size_t>(std::max(m_box->currentIndex(), 0));
    const bool isAboutFrame =
        place < m_questions.size() && m_questions[place].kind == Question::Kind::InThisFrame;
    if (isAboutFrame && m_machine.moment().frame != m_answered.frame)
        answer();
}

void QuestionPanel::askAboutLine(int line)
{
    refresh();
    const Question question = Questions::aboutLine(line);
    auto place = std::ranges::find(m_questions, question.text, &Question::text);
    if (place == m_questions.end()) {
        const QSignalBlocker quiet(m_box);
        m_questions.push_back(question);
        m_box->addItem(forms::fromUtf8(question.text));
        place = m_questions.end() - 1;
    }
    m_box->setCurrentIndex(static_cast<int>(place - m_questions.begin()));
    answer();
}

void QuestionPanel::answer()
{
    const int place = m_box->currentIndex();
    const RunIndex* const index = m_machine.index();
    if (!index || place < 0 || static_cast<std::size_t>(place) >= m_questions.size()) {
        m_answers->show({});
        m_note->setText(m_machine.isEmpty() ? u"Play a game first, then ask what happened in it."_s
                                            : u"Pause the game or pull the slider, then ask."_s);
        m_note->show();
        return;
    }
    const Question& question = m_questions[static_cast<std::size_t>(place)];
    m_answered = m_machine.moment();
    const Answers answers = question.kind == Question::Kind::InThisFrame
                                ? m_machine.whatHappened(m_answered)
                                : Questions(*index).answer(question, m_answered);
    std::vector<AnswerList::Line> lines;
    for (const Answer& answer : answers.list)
        lines.push_back({answer.text, answer.line, answer.moment});
    m_answers->show(std::move(lines));
    m_note->setText(forms::fromUtf8(answers.note));
    m_note->setVisible(!answers.note.empty());
}
