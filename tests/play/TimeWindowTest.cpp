// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/time/TimeWindow.h"

#include "support/Workshop.h"

#include <QLabel>
#include <QSlider>
#include <QToolButton>

namespace
{

class TimeTravel : public Workshop
{
protected:
    TimeTravel()
    {
        desk.code.program = programOf("set counter$n 0", "change counter$n 1\r\nset text$left keyboard.left");
    }

    QSlider* slider() const { return find<QSlider>(u"Moments"); }
    QString momentText() const { return find<QLabel>(u"MomentText")->text(); }
    bool isPast() const
    {
        return find<QWidget>(u"Display")->accessibleName() == QStringLiteral("The game in the past");
    }
    /// What the spy window's list of variables says of the counter.
    QString counter() const
    {
        return find<QListView>(u"Variables")->model()->index(0, 0).data().toString().section(u'=', 1);
    }
    /// The run's own.
    double counterNow() const { return editor->interpreter().context().state().variables.counters.front(); }
    void openTime() const
    {
        click(u"TimeButton");
        EXPECT_TRUE(QTest::qWaitForWindowExposed(find<QWidget>(u"TimeWindow")));
    }
    void press(const char16_t* name) const { QTest::mouseClick(find<QAbstractButton>(name), Qt::LeftButton); }
    void drag(int frame) const
    {
        slider()->setValue(frame); // as the mouse does, position by position
    }
    until past(const QString& value) const
    {
        return until([this, value] { return isPast() && counter() == value; });
    }
};

TEST_F(TimeTravel, GoesBackAndForthWhileTheRunWaits)
{
    perform([this]() -> Script {
        openTime();
        EXPECT_TRUE(momentText().startsWith(QStringLiteral("Nothing has been played yet")));
        EXPECT_FALSE(slider()->isEnabled());
        click(u"PlayButton");
        co_await played(12);
        co_await until([this] { return slider()->maximum() >= 10; });
        drag(5);
        EXPECT_TRUE(co_await past(QStringLiteral("5")));
        EXPECT_TRUE(editor->interpreter().StepMode()) << "pulling the slider pauses the run";
        EXPECT_EQ(enabled(), QStringLiteral("P=>#---s"));
        EXPECT_TRUE(momentText().startsWith(QStringLiteral("After frame 5 of")));

        press(u"FrameBack");
        EXPECT_EQ(counter(), QStringLiteral("4"));
        press(u"FrameForward");
        press(u"FrameForward");
        EXPECT_EQ(counter(), QStringLiteral("6"));
        press(u"StepForward"); // the first statement of frame 7 waits, nothing has run yet
        EXPECT_EQ(counter(), QStringLiteral("6"));
        EXPECT_TRUE(momentText().startsWith(QStringLiteral("In frame 7 of"))) << momentText().toStdString();
        EXPECT_TRUE(momentText().contains(QStringLiteral(", before line 10")));
        click(u"StepButton"); // goes on from the moment that is shown
        EXPECT_EQ(counter(), QStringLiteral("7"));
        press(u"StepBack");
        EXPECT_EQ(counter(), QStringLiteral("6"));
        press(u"StepBack");
        press(u"StepBack");
        EXPECT_EQ(counter(), QStringLiteral("6")) << "the last statement of frame 6 waits";
        press(u"ToBegin");
        EXPECT_TRUE(isPast());
        EXPECT_EQ(find<QListView>(u"Variables")->model()->rowCount(), 0);
        QTest::keyClick(slider(), Qt::Key_PageUp);
        EXPECT_TRUE(co_await until([this] { return counter() != QString(); }));

        press(u"ToNow");
        EXPECT_FALSE(isPast());
        co_await waits();
        const double now = counterNow();
        EXPECT_EQ(counter(), QString::number(now));
        click(u"PlayButton");
        EXPECT_TRUE(co_await until([this, now] { return counterNow() > now + 2; }));
        EXPECT_FALSE(isPast());
    }());
}

TEST_F(TimeTravel, GoesOnFromThePastAndKeepsTheOldEnding)
{
    perform([this]() -> Script {
        click(u"PlayButton");
        co_await played(12);
        openTime();
        EXPECT_FALSE(find<QWidget>(u"OldEnding")->isVisible());
        EXPECT_FALSE(find<QWidget>(u"GoOnFromHere")->isEnabled());
        drag(3);
        EXPECT_TRUE(co_await past(QStringLiteral("3")));
        const auto before = find<QSlider>(u"Moments")->maximum();
        press(u"GoOnFromHere");
        EXPECT_FALSE(isPast());
        EXPECT_TRUE(co_await until([this] { return counterNow() > 3; }));
        EXPECT_EQ(enabled(), QLatin1String(runs));
        EXPECT_TRUE(find<QWidget>(u"OldEnding")->isVisible());
        click(u"PauseButton");
        co_await waits();
        press(u"OldEnding");
        EXPECT_EQ(slider()->maximum(), before);
        EXPECT_EQ(counter(), QString::number(before));
        EXPECT_FALSE(find<QWidget>(u"GoOnFromHere")->isEnabled());
        press(u"OldEnding");
        EXPECT_FALSE(isPast());
        click(u"StopButton");
        co_await stops();
        click(u"PlayButton");
        co_await played();
        EXPECT_FALSE(find<QWidget>(u"OldEnding")->isVisible());
    }());
}

TEST_F(TimeTravel, HoldsKeysThatAreClicked)
{
    perform([this]() -> Script {
        click(u"PlayButton");
        co_await played(8);
        openTime();
        drag(4);
        EXPECT_TRUE(co_await past(QStringLiteral("4")));
        auto* left = find<QToolButton>(u"Key_37");
        EXPECT_FALSE(left->isChecked());
        QTest::mouseClick(left, Qt::LeftButton);
        EXPECT_TRUE(left->isChecked());
        EXPECT_FALSE(isPast()) << "the run waits at that moment";
        EXPECT_EQ(counterNow(), 4);
        co_await waits();
        click(u"StepButton");
        co_await waits();
        click(u"StepButton");
        EXPECT_TRUE(co_await until([this] { // the next frame has begun
            const auto dump = editor->interpreter().context().DumpVariablesInto();
            return dump.back() == "text$left          =\"true\"";
        }));
    }());
}

TEST_F(TimeTravel, StandsBeforeTheMistakeThatEndedTheRun)
{
    desk.code.program = programOf("set counter$n 0", "change counter$n 1\r\nif counter$n > 3 {\r\nchange "
                                                     "counter$m 1\r\n}if");
    perform([this]() -> Script {
        click(u"PlayButton");
        EXPECT_TRUE(co_await boxIsSeen());
        click(u"TimeButton");
        answerBox(Qt::Key_Return);
        EXPECT_TRUE(co_await until([this] { return !running() && !gameIsSeen(); }));
        openTime();
        press(u"ToNow");
        EXPECT_TRUE(isPast());
        EXPECT_TRUE(gameIsSeen());
        EXPECT_EQ(counter(), QStringLiteral("4"));
        EXPECT_TRUE(momentText().contains(QStringLiteral("before line 12"))) << momentText().toStdString();
        press(u"StepForward");
        EXPECT_TRUE(momentText().contains(QStringLiteral("before line 12")));
        press(u"FrameBack");
        EXPECT_EQ(counter(), QStringLiteral("3"));
        press(u"GoOnFromHere"); // it comes to the same mistake
        EXPECT_TRUE(co_await boxIsSeen());
        answerBox(Qt::Key_Return);
        EXPECT_TRUE(co_await until([this] { return !running() && !gameIsSeen(); }));
        press(u"StepBack");
        EXPECT_TRUE(isPast());
        find<QWidget>(u"TimeWindow")->close();
        EXPECT_FALSE(gameIsSeen());
    }());
}

TEST_F(TimeTravel, SurvivesWindowsThatCloseInTheMiddle)
{
    perform([this]() -> Script {
        click(u"PlayButton");
        co_await played(8);
        openTime();
        drag(4);
        click(u"StopButton"); // with the slider on its way
        co_await stops();
        drag(3);
        EXPECT_TRUE(co_await past(QStringLiteral("3")));
        find<QWidget>(u"GameWindow")->close();
        EXPECT_FALSE(isPast());
        press(u"PlayForward");
        EXPECT_TRUE(co_await until([this] { return isPast(); }));
        click(u"PlayButton"); // a new run, while the old one is played again
        co_await played();
        EXPECT_FALSE(isPast());
        co_await until([this] { return counterNow() >= 6; });
        drag(1);
        EXPECT_TRUE(co_await past(QStringLiteral("1")));
        press(u"PlayBack");
        find<QWidget>(u"TimeWindow")->close();
        EXPECT_FALSE(isPast());
        openTime();
        drag(1);
        EXPECT_TRUE(co_await past(QStringLiteral("1")));
        close();
    }());
}

} // namespace
