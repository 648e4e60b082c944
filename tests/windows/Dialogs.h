#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <string>
#include <vector>

/// Answers the message boxes, file dialogs and input boxes that come up while it lives, one key, file name or
/// text each, and keeps what they said. A dialog for which no answer is left is closed with Escape.
class Dialogs
{
public:
    explicit Dialogs(std::vector<QString> answers = {})
        : m_answers(std::move(answers))
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(5);
    }

    std::vector<std::string> said;
    std::string title;

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
        if (auto* box = qobject_cast<QMessageBox*>(dialog)) {
            said.push_back(box->text().toStdString());
            title = box->windowTitle().toStdString();
            QTest::keyClick(box, answer == u"ok" ? Qt::Key_Return : Qt::Key_Escape);
        } else if (auto* line = dialog->findChild<QLineEdit*>(
                       qobject_cast<QFileDialog*>(dialog) ? QStringLiteral("fileNameEdit") : QString())) {
            line->setText(answer);
            QTest::keyClick(line, answer.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
        }
    }

    QTimer m_timer;
    QPointer<QWidget> m_last;
    std::vector<QString> m_answers;
    std::size_t m_next = 0;
};
