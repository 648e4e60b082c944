// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "forms/KeyCodes.h"
#include "forms/MessageBoxes.h"
#include "forms/PictureArea.h"
#include "forms/Replacing.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <chrono>
#include <tuple>

namespace
{

using namespace Qt::StringLiterals;

QKeyEvent key(int code, Qt::KeyboardModifiers held = Qt::NoModifier, quint32 place = 0, bool repeated = false)
{
    return QKeyEvent(QEvent::KeyPress, code, held, place, 0, 0, QString(), repeated);
}

TEST(KeyCodes, AreThoseOfTheVirtualKeys)
{
    struct Row {
        int key;
        Qt::KeyboardModifiers held;
        int code;
    };
    for (const Row& row :
         {Row{Qt::Key_A, Qt::NoModifier, 65},          Row{Qt::Key_Z, Qt::ShiftModifier, 90},
          Row{Qt::Key_0, Qt::NoModifier, 48},          Row{Qt::Key_9, Qt::NoModifier, 57},
          Row{Qt::Key_Percent, Qt::ShiftModifier, 53}, Row{Qt::Key_5, Qt::KeypadModifier, 101},
          Row{Qt::Key_Left, Qt::NoModifier, 37},       Row{Qt::Key_Up, Qt::KeypadModifier, 38},
          Row{Qt::Key_Right, Qt::NoModifier, 39},      Row{Qt::Key_Down, Qt::NoModifier, 40},
          Row{Qt::Key_Space, Qt::NoModifier, 32},      Row{Qt::Key_Return, Qt::NoModifier, 13},
          Row{Qt::Key_Enter, Qt::KeypadModifier, 13},  Row{Qt::Key_Shift, Qt::ShiftModifier, 16},
          Row{Qt::Key_Control, Qt::NoModifier, 17},    Row{Qt::Key_Backtab, Qt::ShiftModifier, 9},
          Row{Qt::Key_F1, Qt::NoModifier, 112},        Row{Qt::Key_F12, Qt::NoModifier, 123},
          Row{Qt::Key_Plus, Qt::KeypadModifier, 107},  Row{Qt::Key_Plus, Qt::NoModifier, 187},
          Row{Qt::Key_VolumeUp, Qt::NoModifier, 0}})
        EXPECT_EQ(forms::virtualKeyCode(key(row.key, row.held)), row.code) << row.key;
}

TEST(HeldKeys, GoUpAsTheyWentDown)
{
    forms::HeldKeys keys;
    constexpr quint32 one = 10;
    EXPECT_EQ(keys.press(key(Qt::Key_1, Qt::NoModifier, one)), 49);
    EXPECT_EQ(keys.press(key(Qt::Key_Shift, Qt::ShiftModifier, 50)), 16);
    EXPECT_EQ(keys.release(key(Qt::Key_Exclam, Qt::ShiftModifier, one)), 49);
    EXPECT_EQ(keys.press(key(Qt::Key_Shift, Qt::ShiftModifier, 62)), 16);
    EXPECT_EQ(keys.release(key(Qt::Key_Shift, Qt::NoModifier, 50)), 0) << "the right one is still down";
    EXPECT_EQ(keys.release(key(Qt::Key_Shift, Qt::NoModifier, 62)), 16);
}

TEST(HeldKeys, StayDownWhileTheyRepeat)
{
    forms::HeldKeys keys;
    EXPECT_EQ(keys.press(key(Qt::Key_Left)), 37);
    EXPECT_EQ(keys.release(key(Qt::Key_Left, Qt::NoModifier, 0, true)), 0);
    EXPECT_EQ(keys.press(key(Qt::Key_Left, Qt::NoModifier, 0, true)), 0);
    EXPECT_EQ(keys.releaseAll(), std::vector<int>{37});
    EXPECT_EQ(keys.release(key(Qt::Key_Left)), 0) << "it has been let go of already";
    EXPECT_EQ(keys.press(key(Qt::Key_Left, Qt::NoModifier, 0, true)), 0) << "held since before";
}

TEST(PictureArea, ShowsEveryPixelOnce)
{
    Surface picture(3, 2, rgb(1, 2, 3));
    picture.set(2, 1, rgb(200, 100, 50));
    forms::PictureArea area("Picture");
    area.resize(5, 4);
    area.showSurface(&picture);
    const QImage shown = area.grab().toImage();
    EXPECT_EQ(shown.pixel(0, 0), rgb(1, 2, 3));
    EXPECT_EQ(shown.pixel(2, 1), rgb(200, 100, 50));
    const QRgb bare = area.palette().color(QPalette::Window).rgb();
    EXPECT_EQ(shown.pixel(3, 1), bare);
    EXPECT_EQ(shown.pixel(0, 2), bare);
}

TEST(PictureArea, GrowsWithTheScreenWithoutSmoothing)
{
    Surface picture(2, 1, black);
    picture.set(1, 0, white);
    forms::PictureArea area("Picture");
    area.resize(2, 1);
    area.showSurface(&picture);
    QImage shown(4, 2, QImage::Format_RGB32);
    shown.setDevicePixelRatio(2);
    area.render(&shown);
    for (int y = 0; y < 2; ++y) {
        EXPECT_EQ(shown.pixel(1, y), black);
        EXPECT_EQ(shown.pixel(2, y), white);
    }
}

/// Presses a key in the message box that is about to open.
void answerWith(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier)
{
    QTimer::singleShot(0, qApp, [key, held] {
        QWidget* box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(box));
        QTest::keyClick(box, key, held);
    });
}

TEST(MessageBoxes, AnswerToTheKeyboard)
{
    using forms::Answer;
    struct Row {
        Qt::Key key;
        Qt::KeyboardModifiers held;
        Answer answer;
    };
    for (const Row& row :
         {Row{Qt::Key_Escape, Qt::NoModifier, Answer::Cancel},
          Row{Qt::Key_Return, Qt::NoModifier, Answer::Yes}, Row{Qt::Key_N, Qt::AltModifier, Answer::No},
          Row{Qt::Key_C, Qt::AltModifier, Answer::Cancel}}) {
        answerWith(row.key, row.held);
        EXPECT_EQ(forms::askYesNoCancel(nullptr, u"Title"_s, u"Question?"_s), row.answer) << row.key;
    }
    for (const auto& [key, held, yes] : {std::tuple{Qt::Key_Escape, Qt::NoModifier, false},
                                         {Qt::Key_Return, Qt::NoModifier, false},
                                         {Qt::Key_N, Qt::AltModifier, false},
                                         {Qt::Key_Y, Qt::AltModifier, true}}) {
        answerWith(key, held);
        EXPECT_EQ(forms::askReplaceChanged(nullptr, QStringLiteral("code.txt")), yes) << key;
    }
    answerWith(Qt::Key_Escape);
    forms::tell(nullptr, u"Text"_s); // comes back
    struct BoxRow {
        Qt::Key key;
        Qt::KeyboardModifiers held;
        bool answered;
    };
    for (const BoxRow& row :
         {BoxRow{Qt::Key_Escape, Qt::NoModifier, false}, BoxRow{Qt::Key_C, Qt::AltModifier, false},
          BoxRow{Qt::Key_O, Qt::AltModifier, true}, BoxRow{Qt::Key_Return, Qt::NoModifier, true}}) {
        answerWith(row.key, row.held);
        const auto text = forms::askText(nullptr, u"Title"_s, u"Name"_s, u"old"_s);
        EXPECT_EQ(text.value_or(QString()), row.answered ? u"old"_s : QString()) << row.key;
        answerWith(row.key == Qt::Key_C ? Qt::Key_N : row.key, row.held);
        const auto color = forms::askColor(nullptr, u"Title"_s, rgb(1, 2, 3));
        EXPECT_EQ(color.value_or(black), row.answered ? rgb(1, 2, 3) : black) << row.key;
    }
}

TEST(MessageBoxes, TakeNoLettersFromSomeoneWhoTypes)
{
    QLineEdit text;
    text.show();
    text.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&text));
    QTimer::singleShot(0, qApp, [] {
        QWidget* box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        auto* pause = box->findChild<QTimer*>(u"TypingPause"_s);
        EXPECT_TRUE(pause->isActive());
        pause->setInterval(std::chrono::hours(1)); // whatever the machine takes for the letters
        ASSERT_TRUE(QTest::qWaitForWindowExposed(box));
        QTest::keyClicks(box, u"yonc"_s);
        EXPECT_TRUE(box->isVisible());
        const auto stopTyping = [pause] {
            pause->setInterval(0);
            QTRY_VERIFY_WITH_TIMEOUT(!pause->isActive(), 20000);
        };
        stopTyping();
        QKeyEvent held(QEvent::KeyPress, Qt::Key_N, Qt::NoModifier, u"n"_s, true);
        QApplication::sendEvent(box, &held);
        EXPECT_TRUE(box->isVisible()) << "a letter that is held down since before";
        stopTyping();
        QTest::keyClick(box, Qt::Key_N);
    });
    EXPECT_EQ(forms::askYesNoCancel(nullptr, u"Title"_s, u"Question?"_s), forms::Answer::No);
}

TEST(MessageBoxes, AreSafeWhereEnterWouldLoseSomething)
{
    using forms::DefaultButton;
    for (const DefaultButton button : {DefaultButton::Ok, DefaultButton::Cancel}) {
        answerWith(Qt::Key_Return);
        EXPECT_EQ(forms::askOk(nullptr, u"Title"_s, u"Remove it?"_s, button), button == DefaultButton::Ok);
    }
}

TEST(MessageBoxes, StandInTheMiddleOfAWindowThatIsStillBeingPlaced)
{
    QWidget window;
    window.resize(300, 200);
    window.show();
    QTimer::singleShot(0, &window, [&window] {
        QWidget* box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        const auto isInTheMiddle = [&] {
            return box->frameGeometry().center() == window.frameGeometry().center();
        };
        window.move(300, 350);
        EXPECT_TRUE(QTest::qWaitFor(isInTheMiddle));
        window.resize(400, 100);
        EXPECT_TRUE(QTest::qWaitFor(isInTheMiddle));
        window.move(-200, 350);
        EXPECT_TRUE(QTest::qWaitFor([box] { return box->x() == 0; })) << "still on the screen";
        QTest::keyClick(box, Qt::Key_Escape);
    });
    forms::tell(&window, u"Text"_s);
}

TEST(MessageBoxes, OutliveTheirWindow)
{
    auto* window = new QWidget;
    window->show();
    QTimer::singleShot(0, qApp, [window] { delete window; });
    EXPECT_EQ(forms::askYesNoCancel(window, u"Title"_s, u"Question?"_s), forms::Answer::Cancel);
}

} // namespace
