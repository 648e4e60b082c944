// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/GameEditor.h"

#include "play/GameDisplay.h"
#include "runtime/ZBContext.h"
#include "runtime/ZBInterpreter.h"
#include "support/PlayDesk.h"
#include "support/Script.h"
#include "support/Workshop.h"

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QApplication>
#include <QListView>
#include <QPointer>
#include <QSlider>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>

namespace
{

const std::string failingGame = programOf("set counter$n 0", "set counter$b 1\r\nchange counter$unset 1");

TEST_F(Workshop, OpensOnTheGame)
{
    EXPECT_EQ(editor->windowTitle(), QStringLiteral("Bounce"));
    EXPECT_EQ(desk.code.loaded, QStringLiteral("games\\00000001\\code.txt"));
    EXPECT_EQ(desk.calls, QStringList({QStringLiteral("GameEditor.Form_Load: begin"),
                                       QStringLiteral("GameEditor.Form_Load: loading code editor"),
                                       QStringLiteral("GameEditor.Form_Load: loading source code"),
                                       QStringLiteral("GameEditor.Form_Load: done")}));
    desk.calls.clear();
    click(u"PropWindowButton");
    click(u"ResWindowButton");
    EXPECT_EQ(desk.calls, QStringList({QStringLiteral("properties"), QStringLiteral("resources")}));
    desk.code.hide();
    click(u"CodeWindowButton");
    EXPECT_TRUE(desk.code.isVisible());
    click(u"SpyWindowButton");
    EXPECT_TRUE(find<SpyWindow>(u"SpyWindow")->isVisible());
}

TEST_F(Workshop, SwitchesItsButtonsWithTheRun)
{
    perform([this]() -> Script {
        auto* playButton = find<QAbstractButton>(u"PlayButton");
        EXPECT_EQ(enabled(), QLatin1String(stopped));
        click(u"PlayButton");
        co_await played();
        EXPECT_EQ(enabled(), QLatin1String(runs));
        click(u"PauseButton");
        co_await waits();
        EXPECT_EQ(enabled(), QStringLiteral("P=>#---s"));
        EXPECT_EQ(playButton->toolTip(), QStringLiteral("Resume normal running"));
        editor->activateWindow();
        click(u"PlayButton");
        EXPECT_EQ(enabled(), QLatin1String(runs));
        EXPECT_TRUE(co_await goesOn());
        EXPECT_TRUE(find<GameWindow>(u"GameWindow")->isActiveWindow()) << "keys go to the game";
        click(u"StopButton");
        EXPECT_EQ(enabled(), QLatin1String(stopped));
        EXPECT_FALSE(gameIsSeen());
    }());
}

TEST_F(Workshop, RunsOneStatementForEachStep)
{
    perform([this]() -> Script {
        find<QAbstractButton>(u"ShowEveryLineOfCode")->click();
        auto* variables = find<QListView>(u"Variables")->model();
        click(u"PlayButton");
        co_await played();
        click(u"PauseButton");
        co_await waits();
        QStringList seen;
        for (int i = 0; i < 3; ++i) {
            EXPECT_TRUE(co_await steps());
            seen += lastLine();
            for (int tick = 0; tick < 2; ++tick) // without a further click nothing more runs
                find<GameWindow>(u"GameWindow")->GameTimer_Timer();
            EXPECT_TRUE(co_await waits());
            EXPECT_EQ(lastLine(), seen.back());
        }
        // Wherever the pause fell into the loop, three steps show its three lines, each once.
        seen.sort();
        EXPECT_EQ(seen, QStringList({QStringLiteral("0010 change counter$n 1"),
                                     QStringLiteral("0011 set counter$b 2"),
                                     QStringLiteral("0012 set counter$c 3")}));
        EXPECT_TRUE(variables->index(0, 0).data().toString().startsWith(QStringLiteral("counter$n")));
    }());
}

TEST_F(Workshop, TakesItsTimeToStopAWaitingStatement)
{
    perform([this]() -> Script {
        click(u"PlayButton");
        co_await played();
        click(u"PauseButton");
        co_await waits();
        EXPECT_EQ(haltMeAgain()->interval(), haltRetry);
        holdHaltMeAgain();
        click(u"StopButton");
        EXPECT_TRUE(haltMeAgain()->isActive());
        EXPECT_TRUE(co_await goesOn());
        EXPECT_TRUE(gameIsSeen());
        EXPECT_FALSE(editor->isEnabled());
        editor->HaltMeAgain_Timer();
        EXPECT_TRUE(isStopped());
        click(u"PlayButton");
        EXPECT_TRUE(co_await played()) << "a new run starts";
    }());
}

TEST_F(Workshop, SetsThePaceWithTheSlider)
{
    perform([this]() -> Script {
        auto* slider = find<QSlider>(u"FramesPerMinute");
        EXPECT_EQ(slider->value(), 1800);
        slider->setValue(600);
        EXPECT_FALSE(gameTimer()->isActive()) << "no game runs";
        click(u"PlayButton");
        co_await played();
        EXPECT_EQ(gameTimer()->interval(), 100);
        struct Row {
            int value;
            int interval;
        };
        for (const Row& row : {Row{1800, 33}, Row{60, 1000}, Row{7, 8571}, Row{1, 60000}, Row{1799, 33},
                               Row{960, 62}, Row{1600, 38}}) {
            slider->setValue(row.value);
            EXPECT_EQ(gameTimer()->interval(), row.interval);
            EXPECT_TRUE(gameTimer()->isActive());
        }
        slider->setValue(0);
        EXPECT_FALSE(gameTimer()->isActive()) << "the game stands still";
        QTest::keyClick(slider, Qt::Key_End);
        EXPECT_TRUE(co_await played());
    }());
}

TEST_F(Workshop, StopsWithItsGameWindow)
{
    perform([this]() -> Script {
        QWidget* window = find<GameWindow>(u"GameWindow");
        click(u"PlayButton");
        co_await played();
        window->close();
        EXPECT_TRUE(isStopped());
        click(u"PlayButton");
        co_await played();
        click(u"PauseButton");
        co_await waits();
        window->close();
        EXPECT_TRUE(gameIsSeen()) << "a statement still waits";
        EXPECT_TRUE(co_await stops());
    }());
}

TEST_F(Workshop, LeavesNothingOfARunToTheNext)
{
    perform([this]() -> Script {
        QWidget* window = find<GameWindow>(u"GameWindow");
        click(u"PlayButton");
        co_await played();
        click(u"PauseButton");
        co_await waits();
        holdHaltMeAgain();
        click(u"StopButton");
        EXPECT_TRUE(co_await goesOn());
        window->showMinimized();
        window->close(); // before the stop is tried again
        EXPECT_TRUE(isStopped());
        click(u"PlayButton");
        EXPECT_TRUE(window->isVisible());
        EXPECT_FALSE(window->isMinimized());
        EXPECT_FALSE(haltMeAgain()->isActive()) << "the stop was meant for the run before";
        EXPECT_TRUE(co_await played());
    }());
}

TEST_F(Workshop, ComesBackToTheLineOfAnError)
{
    perform([this]() -> Script {
        const ZB& module = editor->interpreter().module();
        desk.code.program = failingGame;
        desk.code.hide(); // an error brings it up
        click(u"PlayButton");
        EXPECT_TRUE(co_await boxIsSeen());
        answerBox(Qt::Key_Escape);
        EXPECT_TRUE(co_await stops());
        EXPECT_TRUE(desk.code.isVisible());
        EXPECT_EQ(desk.code.moves, QStringLiteral("16,1 6,1 11,1 focus")) << "with some lines around";
        EXPECT_EQ(module.ErrorLine, 11);
        EXPECT_EQ(module.ErrorText, "You used change on a counter you have not set yet!");

        desk.code.program = "program{\r\nnonsense";
        click(u"PlayButton");
        EXPECT_EQ(module.ErrorLine, 1);
        EXPECT_TRUE(module.ErrorText.ends_with("\r\n\r\n   program{\r\n\r\n(line 1)")) << module.ErrorText;
        auto* parseError = find<ParseError>(u"ParseError");
        EXPECT_TRUE(parseError->isVisible());
        EXPECT_FALSE(running());
        desk.code.program = countingGame;
        click(u"PlayButton");
        EXPECT_TRUE(co_await played());
        EXPECT_FALSE(parseError->isVisible());
        EXPECT_EQ(module.ErrorLine, 0);
        EXPECT_TRUE(module.ErrorText.empty());
    }());
}

TEST_F(Workshop, CanBeToldAnErrorWhileItStops)
{
    perform([this]() -> Script {
        desk.code.program =
            programOf("set counter$n 0", "if counter$n = 2 {\r\nchange counter$unset 1\r\n}if\r\n"
                                         "change counter$n 1\r\nif counter$n = 2 {\r\npause\r\n}if");
        find<QAbstractButton>(u"ShowEveryLineOfCode")->click();
        click(u"PlayButton");
        co_await waits();
        EXPECT_TRUE(co_await steps()); // the if; the next statement fails
        EXPECT_TRUE(lastLine().endsWith(QStringLiteral("change counter$unset 1")));
        editor->activateWindow();
        int triesAgain = 0;
        const auto counting = haltMeAgain()->callOnTimeout([&triesAgain] { ++triesAgain; });
        click(u"StopButton"); // the statement that is let go of fails while this window is switched off
        EXPECT_TRUE(co_await boxIsSeen());
        EXPECT_FALSE(editor->isEnabled());
        EXPECT_TRUE(co_await until([&triesAgain] { return triesAgain > 0; }));
        EXPECT_TRUE(QApplication::activeModalWidget()->isEnabled());
        answerBox(Qt::Key_Return);
        EXPECT_TRUE(co_await stops());
        QObject::disconnect(counting);
    }());
}

TEST_F(Workshop, TellsAMistakeOnce)
{
    // The operand cannot be had, and so the statement cannot be done: the child is told the first only.
    desk.code.program = programOf("set counter$n 0\r\ncreate it.class 1 \"dot\" 0 0 0 0 0", "");
    perform([this]() -> Script {
        click(u"PlayButton");
        EXPECT_TRUE(co_await boxIsSeen());
        EXPECT_FALSE(running());
        answerBox(Qt::Key_Return);
        EXPECT_TRUE(co_await stops());
        co_await Script::turn();
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        EXPECT_EQ(desk.module().ErrorLine, 8);
        EXPECT_EQ(desk.module().ErrorText, "@@@You can't use IT if you aren't in an event!");
    }());
}

TEST_F(Workshop, PassesKeysOnAndLetsGoOfThem)
{
    perform([this]() -> Script {
        desk.code.program =
            programOf("set text$left \"no\"", "set text$left keyboard.left\r\nset counter$b 1");
        find<QAbstractButton>(u"ShowEveryLineOfCode")->click();
        auto* display = find<GameDisplay>(u"Display");
        auto* variables = find<QListView>(u"Variables")->model();
        auto left = [variables] {
            return variables->index(0, 0).data().toString().contains(QStringLiteral("true"));
        };
        click(u"PlayButton");
        co_await played();
        click(u"PauseButton");
        struct Row {
            const char* what;
            std::function<void()> act;
            bool left;
        };
        for (const Row& row : {Row{"nothing held", [] {}, false},
                               Row{"pressed", [&] { QTest::keyPress(display, Qt::Key_Left); }, true},
                               Row{"still held", [] {}, true},
                               Row{"let go", [&] { QTest::keyRelease(display, Qt::Key_Left); }, false},
                               Row{"pressed again", [&] { QTest::keyPress(display, Qt::Key_Left); }, true},
                               Row{"a button takes the focus of a paused game",
                                   [&] {
                                       QFocusEvent away(QEvent::FocusOut);
                                       QApplication::sendEvent(display, &away);
                                   },
                                   true},
                               Row{"the game has gone on since",
                                   [&] {
                                       click(u"PlayButton");
                                       click(u"PauseButton");
                                   },
                                   false}}) {
            row.act();
            for (int i = 0; i < 3; ++i) { // the statement that reads the key, and those around it
                co_await waits();
                EXPECT_TRUE(co_await steps()) << row.what;
            }
            EXPECT_EQ(left(), row.left) << row.what;
        }
    }());
}

TEST(GameDisplay, KeepsTheKeysOfTheMomentOfAPause)
{
    GameDisplay display;
    std::vector<int> seen;
    QObject::connect(&display, &GameDisplay::keyDown, [&](int code, int) { seen.push_back(code); });
    QObject::connect(&display, &GameDisplay::keyUp, [&](int code, int) { seen.push_back(-code); });
    const auto loseFocus = [&] {
        QFocusEvent away(QEvent::FocusOut);
        QApplication::sendEvent(&display, &away);
    };
    const auto expect = [&](const char* what, const std::vector<int>& wanted) {
        EXPECT_EQ(std::exchange(seen, {}), wanted) << what;
    };
    QTest::keyPress(&display, Qt::Key_Left);
    loseFocus(); // the click on Pause begins
    expect("the press of the button takes the focus", {37, -37});
    display.holdKeys();
    expect("it was the one on Pause", {37});
    display.holdKeys(); // a pause statement in a paused game
    loseFocus();
    expect("still paused", {});
    display.letKeysGo();
    expect("the game goes on", {-37});
    display.letKeysGo();
    expect("it goes on all the same", {});
    QTest::keyPress(&display, Qt::Key_Up);
    display.holdKeys(); // by a pause statement: the focus is still here
    loseFocus();
    expect("a pause of the game's own", {38});
    display.letKeysGo();
    expect("and its end", {-38});
}

struct KeyStroke {
    enum { Down, Up } way;
    quint64 time;
    quint32 place;
    int key;
};

TEST(GameDisplay, HoldsAKeyThroughItsRepetitionsAndThroughAFrame)
{
    constexpr auto down = KeyStroke::Down;
    constexpr auto up = KeyStroke::Up;
    struct Row {
        const char* what;
        std::vector<KeyStroke> strokes;
        QString atOnce;
        QString later; ///< when a frame has passed
    };
    const Row rows[] = {
        {"unmarked repetitions",
         {{down, 100, 113, Qt::Key_Left},
          {up, 700, 113, Qt::Key_Left},
          {down, 700, 113, Qt::Key_Left},
          {up, 740, 113, Qt::Key_Left},
          {down, 740, 113, Qt::Key_Left}},
         QStringLiteral("+37"),
         QStringLiteral("+37")},
        {"held and let go",
         {{down, 100, 113, Qt::Key_Left}, {up, 700, 113, Qt::Key_Left}},
         QStringLiteral("+37"),
         QStringLiteral("+37-37")},
        {"a quick tap",
         {{down, 100, 113, Qt::Key_Left}, {up, 101, 113, Qt::Key_Left}},
         QStringLiteral("+37"),
         QStringLiteral("+37-37")},
        {"another key comes between",
         {{down, 100, 113, Qt::Key_Left},
          {down, 300, 114, Qt::Key_Right},
          {up, 700, 113, Qt::Key_Left},
          {up, 700, 114, Qt::Key_Right},
          {down, 700, 114, Qt::Key_Right}},
         QStringLiteral("+37+39"),
         QStringLiteral("+37+39-37")},
        {"no keyboard's key",
         {{down, 100, 0, Qt::Key_Left}, {up, 101, 0, Qt::Key_Left}},
         QStringLiteral("+37-37"),
         QStringLiteral("+37-37")},
    };
    for (const Row& row : rows) {
        GameDisplay display;
        QString seen;
        QObject::connect(&display, &GameDisplay::keyDown,
                         [&](int code) { seen += QStringLiteral("+%1").arg(code); });
        QObject::connect(&display, &GameDisplay::keyUp,
                         [&](int code) { seen += QStringLiteral("-%1").arg(code); });
        for (const KeyStroke& stroke : row.strokes) {
            QKeyEvent event(stroke.way == down ? QEvent::KeyPress : QEvent::KeyRelease, stroke.key,
                            Qt::NoModifier, stroke.place, 0, 0);
            event.setTimestamp(stroke.time);
            QApplication::sendEvent(&display, &event);
        }
        EXPECT_EQ(seen, row.atOnce) << row.what;
        EXPECT_TRUE(QTest::qWaitFor([&] { return display.findChildren<QTimer*>().isEmpty(); })) << row.what;
        EXPECT_EQ(seen, row.later) << row.what;
    }
}

TEST_F(Workshop, EndsUpStoppedAfterAStormOfClicks)
{
    perform([this]() -> Script {
        for (int round = 0; round < 60; ++round) {
            for (const char16_t* name : {u"PlayButton", u"PlayButton", u"PauseButton", u"StepButton",
                                         u"StopButton", u"StopButton"}) {
                click(name);
                if (round % 3 == 0)
                    co_await Script::turn();
            }
            if (round % 20 == 0) {
                EXPECT_TRUE(co_await stops());
            }
        }
        click(u"StopButton");
        EXPECT_TRUE(co_await stops());
        click(u"PlayButton");
        EXPECT_TRUE(co_await played());
    }());
}

TEST_F(Workshop, AsksBeforeItThrowsTheTextAway)
{
    perform([this]() -> Script {
        struct Row {
            const char* what;
            Qt::Key key;
            bool saveWorks;
            bool spritesClose;
            int saves;
            bool closes;
        };
        for (const Row& row : {Row{"Cancel", Qt::Key_Escape, true, true, 0, false},
                               Row{"Yes, on a full disk", Qt::Key_Y, false, true, 1, false},
                               Row{"No, but a sprite is not saved", Qt::Key_N, true, false, 0, false},
                               Row{"Yes", Qt::Key_Y, true, true, 1, true}}) {
            desk.code.modified = true;
            desk.code.saves = 0;
            desk.code.saveWorks = row.saveWorks;
            desk.gameWindowsClose = row.spritesClose;
            bool hasClosed = false;
            later([this, &hasClosed] {
                close();
                hasClosed = true;
            });
            EXPECT_TRUE(co_await boxIsSeen());
            answerBox(row.key);
            EXPECT_TRUE(co_await until([&hasClosed] { return hasClosed; })) << row.what;
            co_await Script::turn();
            EXPECT_EQ(desk.code.saves, row.saves) << row.what;
            EXPECT_EQ(desk.code.closed, row.closes) << row.what;
            EXPECT_EQ(desk.libraries(), row.closes ? 1 : 0) << row.what;
            EXPECT_EQ(editor.isNull(), row.closes) << row.what;
        }
    }());
}

TEST_F(Workshop, TakesNoClickAnyMoreOnceItIsClosed)
{
    close();
    click(u"PlayButton"); // it waited in the queue and comes before the window is gone
    EXPECT_FALSE(running());
}

/// How far a run has come when the game editor is closed.
enum class Reached { Nothing, Run, Wait, Stop, Error };

class ClosingWorkshop : public Workshop, public testing::WithParamInterface<Reached>
{
};

TEST_P(ClosingWorkshop, EndsTheRunFirst)
{
    perform([this]() -> Script {
        const Reached wanted = GetParam();
        if (wanted == Reached::Error)
            desk.code.program = failingGame;
        if (wanted != Reached::Nothing)
            click(u"PlayButton");
        if (wanted == Reached::Error) {
            co_await boxIsSeen();
        } else if (wanted != Reached::Nothing) {
            co_await played();
        }
        if (wanted == Reached::Wait || wanted == Reached::Stop) {
            click(u"PauseButton");
            co_await waits();
        }
        if (wanted == Reached::Stop)
            click(u"StopButton");
        bool hasClosed = false;
        later([this, &hasClosed] {
            close();
            hasClosed = true;
        });
        EXPECT_TRUE(co_await until([&hasClosed] { return hasClosed; }));
        if (wanted == Reached::Error) {
            EXPECT_FALSE(desk.code.closed) << "the message is still to be read";
            answerBox(Qt::Key_Return);
        }
        EXPECT_TRUE(co_await until([this] { return editor.isNull(); }));
        EXPECT_EQ(desk.libraries(), 1);
        EXPECT_TRUE(desk.code.closed);
    }());
}

INSTANTIATE_TEST_SUITE_P(InEveryState, ClosingWorkshop,
                         testing::Values(Reached::Nothing, Reached::Run, Reached::Wait, Reached::Stop,
                                         Reached::Error));

} // namespace
