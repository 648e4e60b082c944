#pragma once

#include "windows/PretendDesk.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <filesystem>
#include <functional>

/// A desk on an installation folder of its own with one game.
class PaintingDesk : private TemporaryInstallation, public PretendDesk
{
public:
    PaintingDesk()
        : PretendDesk(TemporaryInstallation::root())
    {
        makeFolder("games/00000001");
        module().CurrentGame = {"", "", "00000001\\"};
    }

    std::filesystem::path game() const { return TemporaryInstallation::root() / "games" / "00000001"; }
};

/// Answers the boxes that `action` opens, one after the other: text is typed into an input box, a button's
/// name (Ok, Yes, No, Cancel) is pressed. Returns title and text of each box that came up.
inline QStringList withAnswers(const QStringList& answers, const std::function<void()>& action)
{
    QStringList seen;
    QTimer timer;
    QWidget* last = nullptr;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        auto* const box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (box == nullptr || (box == last && !box->isVisible()))
            return;
        last = box;
        const auto* const message = qobject_cast<QMessageBox*>(box);
        seen << box->windowTitle() + QStringLiteral(": ") +
                    (message != nullptr ? message->text() : QString());
        const QString answer = answers.value(seen.size() - 1, QStringLiteral("Cancel"));
        if (auto* const line = box->findChild<QLineEdit*>(); line != nullptr && message == nullptr) {
            line->setFocus();
            line->clear();
            QTest::keyClicks(line, answer);
            QTest::keyClick(line, Qt::Key_Return);
            return;
        }
        for (QAbstractButton* const button : box->findChildren<QAbstractButton*>())
            if (button->text().remove(QLatin1Char('&')).compare(answer, Qt::CaseInsensitive) == 0) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        box->reject();
    });
    timer.start(10);
    action();
    return seen;
}
