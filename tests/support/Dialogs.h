// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <functional>
#include <string>
#include <vector>

/// Answers the message boxes, file dialogs and input boxes that come up while it lives, one caption of a
/// button ("ok"), file name or text each, and keeps what they said. A box without such a button, or for which
/// no answer is left, is closed with Escape; "return" presses Return.
class Dialogs
{
public:
    explicit Dialogs(std::vector<QString> answers = {})
        : m_answers(std::move(answers))
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(5);
    }

    QStringList boxes;             ///< "title: text" of each, without a text for other than message boxes
    std::vector<std::string> said; ///< the texts of the message boxes
    std::string title;             ///< of the last message box

    std::string onlyText() const
    {
        return said.size() == 1 ? said.front() : std::to_string(said.size()) + " boxes";
    }

private:
    void look()
    {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || dialog == m_last)
            return;
        m_last = dialog;
        const QString answer = m_next < m_answers.size() ? m_answers[m_next++] : QString();
        auto* const box = qobject_cast<QMessageBox*>(dialog);
        boxes += dialog->windowTitle() + QStringLiteral(": ") + (box != nullptr ? box->text() : QString());
        if (box != nullptr) {
            said.push_back(box->text().toStdString());
            title = box->windowTitle().toStdString();
            press(*box, answer);
        } else if (auto* line = dialog->findChild<QLineEdit*>(
                       qobject_cast<QFileDialog*>(dialog) ? QStringLiteral("fileNameEdit") : QString())) {
            line->setText(answer);
            QTest::keyClick(line, answer.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
        }
    }

    static void press(QMessageBox& box, const QString& caption)
    {
        for (QAbstractButton* button : box.buttons()) {
            if (button->text().remove(u'&').compare(caption, Qt::CaseInsensitive) == 0)
                return QTest::mouseClick(button, Qt::LeftButton);
        }
        QTest::keyClick(&box, caption == u"return" ? Qt::Key_Return : Qt::Key_Escape);
    }

    QTimer m_timer;
    QPointer<QWidget> m_last;
    std::vector<QString> m_answers;
    std::size_t m_next = 0;
};

/// Title and text of each box that `action` opens, one after the other, and that is answered as Dialogs does.
inline QStringList withAnswers(const QStringList& answers, const std::function<void()>& action)
{
    const Dialogs dialogs({answers.begin(), answers.end()});
    action();
    return dialogs.boxes;
}
