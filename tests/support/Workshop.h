// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "play/GameEditor.h"
#include "runtime/ZBContext.h"
#include "runtime/ZBInterpreter.h"
#include "support/PlayDesk.h"
#include "support/Script.h"

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QApplication>
#include <QListView>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>

inline const std::string countingGame =
    programOf("set counter$n 0", "change counter$n 1\r\nset counter$b 2\r\nset counter$c 3");

/// The game editor on a game that counts, with what a user does and sees there.
class Workshop : public testing::Test
{
protected:
    using until = Script::until;

    Workshop()
        : editor(new GameEditor(desk, desk.module().CurrentGame))
    {
        desk.code.program = countingGame;
        static_cast<QWidget*>(editor)->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(editor));
    }

    ~Workshop() override
    {
        desk.code.modified = false;
        delete editor.data();
    }

    /// Plays the script, then stops what still runs: no statement may be left waiting when a test ends.
    void perform(const Script& script)
    {
        auto leave = [this]() -> Script {
            if (editor.isNull())
                co_return;
            haltMeAgain()->setInterval(haltRetry);
            editor->interpreter().StopGame();
            EXPECT_TRUE(co_await stops()) << "it does not stop";
        };
        Script::play(script, leave());
    }

    template<typename Widget> Widget* find(const char16_t* name) const
    {
        const QString wanted = QString::fromUtf16(name);
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* self = qobject_cast<Widget*>(window); self != nullptr && self->objectName() == wanted)
                return self;
            if (auto* inside = window->findChild<Widget*>(wanted))
                return inside;
        }
        return nullptr;
    }

    void click(const char16_t* name) const { QTest::mouseClick(find<QAbstractButton>(name), Qt::LeftButton); }

    /// The line that the spy window shows last.
    QString lastLine() const
    {
        const QAbstractItemModel* history = find<QListView>(u"History")->model();
        return history->index(history->rowCount() - 1, 0).data().toString();
    }
    bool isHistoryShown() const { return !find<QTimer>(u"RefreshTimer")->isActive(); }

    void close() { static_cast<QWidget*>(editor.data())->close(); }
    bool running() const { return editor->interpreter().context().InterpreterRunning(); }
    int frames() const { return editor->interpreter().context().frameNumber(); }
    bool gameIsSeen() const { return find<GameWindow>(u"GameWindow")->isVisible(); }
    QTimer* gameTimer() const { return find<QTimer>(u"GameTimer"); }
    QTimer* haltMeAgain() const { return find<QTimer>(u"HaltMeAgain"); }
    /// From now on a stop is tried again only by hand.
    void holdHaltMeAgain() const { haltMeAgain()->setInterval(std::chrono::hours(1)); }

    /// The buttons that can be pressed, in the order of the window.
    QString enabled() const
    {
        struct Button {
            const char16_t* name;
            QChar letter;
        };
        QString letters;
        for (const Button& button : {Button{u"PlayButton", u'P'}, Button{u"PauseButton", u'='},
                                     Button{u"StepButton", u'>'}, Button{u"StopButton", u'#'},
                                     Button{u"CodeWindowButton", u'c'}, Button{u"PropWindowButton", u'p'},
                                     Button{u"ResWindowButton", u'r'}, Button{u"SpyWindowButton", u's'}})
            letters += find<QAbstractButton>(button.name)->isEnabled() ? button.letter : u'-';
        return letters;
    }

    bool isStopped() const
    {
        return editor->isEnabled() && !running() && !waiting() && !gameIsSeen() &&
               enabled() == QLatin1String(stopped);
    }
    bool waiting() const { return editor->interpreter().inFrame(); }

    until played(int howMany = 2) const
    {
        return until([this, first = frames(), howMany] { return running() && frames() >= first + howMany; });
    }
    until waits() const
    {
        return until([this] { return waiting() && isHistoryShown(); });
    }
    /// For programs that never run the same line twice in a row, with every line shown.
    until steps() const
    {
        const QString before = lastLine();
        click(u"StepButton");
        return until([this, before] { return waiting() && isHistoryShown() && lastLine() != before; });
    }
    until goesOn() const
    {
        return until([this] { return !waiting(); });
    }
    until stops() const
    {
        return until([this] { return isStopped(); });
    }
    static until boxIsSeen()
    {
        return until([] { return QApplication::activeModalWidget() != nullptr; });
    }
    static void answerBox(Qt::Key key) { QTest::keyClick(QApplication::activeModalWidget(), key); }
    /// From the event loop, not from the script: for what does not come back before it is answered.
    static void later(const std::function<void()>& act) { QTimer::singleShot(0, qApp, act); }

    static constexpr int haltRetry = 200;
    static constexpr auto stopped = "P---cprs";
    static constexpr auto runs = "-=-#---s";

    PlayDesk desk;
    QPointer<GameEditor> editor;
};
