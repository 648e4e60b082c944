// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/time/TimeWindow.h"

#include "play/time/FieldBoxes.h"
#include "support/Workshop.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSlider>
#include <QToolButton>
#include <QWheelEvent>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace
{

const std::string ballsProgram =
    "program{\r\nclasses{\r\nball{\r\n}ball\r\n}classes\r\nstates{\r\nbegin{\r\ninitialize{\r\ncreate ball 1 "
    "\"dot\" 0 0 0 0 0\r\n}initialize\r\nloop{\r\nset counter$n "
    "1\r\n}loop\r\n}begin\r\n}states\r\n}program\r\n";

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
        // What has changed since the last moment is set off, also once all of the history has come.
        co_await until([this] { return !find<QTimer>(u"RefreshTimer")->isActive(); });
        editor->findChild<QCheckBox*>(QStringLiteral("OptionShowMap"))->toggle();
        const QModelIndex first = find<QListView>(u"Variables")->model()->index(0, 0);
        EXPECT_TRUE(first.data(Qt::FontRole).value<QFont>().bold());
        EXPECT_FALSE(first.siblingAtRow(1).data(Qt::FontRole).value<QFont>().bold());
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

TEST_F(TimeTravel, GoesByWheelAndKeys)
{
    perform([this]() -> Script {
        click(u"PlayButton");
        co_await played(45);
        openTime();
        drag(20);
        EXPECT_TRUE(co_await past(QStringLiteral("20")));
        const int last = slider()->maximum();
        const auto turn = [](QWidget* over, int delta) {
            const QPointF place = over->rect().center();
            QWheelEvent event(place, over->mapToGlobal(place), {}, QPoint(0, delta), Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QSpontaneKeyEvent::setSpontaneous(&event); // only those go on to the widget behind
            qApp->notify(over, &event);
        };
        auto* marks = find<QWidget>(u"Marks");
        struct Way {
            std::function<void()> go;
            int frame;
        };
        const auto press = [this](Qt::Key key) { return [this, key] { QTest::keyClick(slider(), key); }; };
        for (const Way& way : {
                 Way{[&] { turn(slider(), -120); }, 21},
                 Way{[&] { turn(marks, -240); }, 23},
                 Way{[&] { turn(marks, 120); }, 22},
                 Way{[&] { turn(slider(), 60); }, 22}, // half a notch, as pads turn
                 Way{[&] { turn(slider(), 60); }, 21},
                 Way{press(Qt::Key_Right), 22},
                 Way{press(Qt::Key_Left), 21},
                 Way{press(Qt::Key_PageUp), 21 + last / 10},
                 Way{press(Qt::Key_PageDown), 21},
                 Way{press(Qt::Key_Home), 0},
             }) {
            way.go();
            EXPECT_TRUE(co_await until([&] {
                return slider()->value() == way.frame &&
                       momentText().startsWith(QStringLiteral("After frame %1 of").arg(way.frame));
            })) << way.frame
                << ": " << momentText().toStdString();
        }
        QTest::keyClick(slider(), Qt::Key_End);
        EXPECT_TRUE(co_await until([&] { return slider()->value() == last; }));
    }());
}

TEST_F(TimeTravel, DrawsBoxesWhereTheGameStandsStill)
{
    desk.writeGraphic();
    desk.code.program = ballsProgram;
    perform([this]() -> Script {
        const auto middle = [this] {
            return find<QWidget>(u"Display")->grab(QRect(200, 220, 80, 60)).toImage();
        };
        click(u"PlayButton");
        co_await played(8);
        const QImage bare = middle();
        const auto isBoxed = [&] { return middle() != bare; };
        openTime();
        auto* boxes = find<QAbstractButton>(u"ShowBoxes");
        boxes->click();
        EXPECT_FALSE(isBoxed()) << "it runs";
        click(u"PauseButton");
        co_await waits();
        EXPECT_TRUE(co_await until([&] { return isBoxed(); }));
        drag(4);
        EXPECT_TRUE(co_await until([this] { return isPast(); }));
        EXPECT_TRUE(isBoxed());
        boxes->click();
        EXPECT_FALSE(isBoxed());
        boxes->click();
        EXPECT_TRUE(isBoxed());
        click(u"PlayButton");
        EXPECT_TRUE(co_await until([&] { return !isBoxed(); }));
        click(u"PauseButton");
        EXPECT_TRUE(co_await until([&] { return isBoxed(); }));
        find<QWidget>(u"TimeWindow")->close();
        EXPECT_FALSE(isBoxed());
    }());
}

TEST_F(TimeTravel, AsksALargeProgram)
{
    std::string first;
    for (int i = 0; i < 10'000; ++i)
        first += "set counter$v" + std::to_string(i) + " 1\r\n";
    desk.code.program = programOf(first, "change counter$v0 1");
    perform([this]() -> Script {
        click(u"PlayButton");
        co_await played(4);
        openTime();
        auto* questions = find<QComboBox>(u"Questions");
        drag(2);
        EXPECT_TRUE(co_await until([&] { return questions->count() > 10'000; }));
        questions->showPopup();
        EXPECT_TRUE(questions->view()->isVisible());
        questions->hidePopup();
        questions->setCurrentIndex(questions->findText(QStringLiteral("When did counter$v9999 change?")));
        EXPECT_EQ(find<QListView>(u"Answers")->model()->rowCount(), 1);
        EXPECT_GT(desk.code.lineMarks.size(), 10'000U);
    }());
}

TEST(FieldBoxes, OverlapWhereSpritesTouch)
{
    const std::string ball = "ball";
    const std::string left = "left";
    struct Case {
        double x;
        double y;
        bool touches;
    };
    for (const Case& each : {Case{0, 0, true}, Case{5.99, 0, true}, Case{6.001, 0, false},
                             Case{5.99, -5.99, true}, Case{0, 6.01, false}, Case{-5.5, 20, false}}) {
        RunState run;
        for (const auto& [x, y] : {std::pair(0.0, 0.0), std::pair(each.x, each.y), std::pair(200.0, 0.0)}) {
            ZBSprite sprite;
            sprite.className = &ball;
            sprite.x = x;
            sprite.y = y;
            run.sprites.push_back(sprite);
        }
        run.sprites[1].tag = ZBLValueExp::text(&left);
        run.spriteCount = 3;
        const std::vector<FieldBox> boxes = fieldBoxes(run);
        ASSERT_EQ(boxes.size(), 2U) << "the third is far away";
        EXPECT_EQ(boxes[0].place.intersects(boxes[1].place), each.touches) << each.x << ", " << each.y;
        EXPECT_EQ(boxes[0].touches, each.touches);
        EXPECT_EQ(boxes[1].touches, each.touches);
        EXPECT_EQ(boxes[0].place.center(), QPointF(240, 240));
        EXPECT_EQ(boxes[0].name, QStringLiteral("ball"));
        EXPECT_EQ(boxes[1].name, QStringLiteral("ball \"left\""));
        run.sprites[1].hidden = true;
        EXPECT_EQ(fieldBoxes(run).size(), 1U);
    }
}

} // namespace
