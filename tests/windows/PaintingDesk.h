#pragma once

#include "forms/Desk.h"
#include "platform/qt/QtPictures.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <filesystem>
#include <functional>

/// A desk whose only other window is the user, on an installation folder of its own with one game.
class PaintingDesk : public Desk
{
public:
    PaintingDesk()
        : m_installation(made(m_root))
    {
        m_module.CurrentGame = {"", "", "00000001\\"};
    }

    std::filesystem::path game() const { return m_installation.root() / "games" / "00000001"; }

    ZB& module() override { return m_module; }
    const Installation& installation() override { return m_installation; }
    PictureReader& pictures() override { return m_pictures; }
    void LogProgress(const QString& /*message*/) override {}
    void showLibrary() override {}
    void showGameEditor() override {}
    void showMapEditor() override {}
    void showSpriteEditor(const QString& /*graphicName*/) override {}
    void showProperties() override {}
    void showResources() override {}
    bool closeGameWindows() override { return true; }
    CodeEditorForm* createCodeEditor() override { return nullptr; }
    void gameTitleChanged() override {}
    void exitProgram() override {}

private:
    static std::filesystem::path made(const QTemporaryDir& root)
    {
        const std::filesystem::path path = root.path().toStdString();
        std::filesystem::create_directories(path / "games" / "00000001");
        return path;
    }

    QTemporaryDir m_root;
    Installation m_installation;
    QtPictures m_pictures;
    ZB m_module;
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
