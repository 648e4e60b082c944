#include "play/GamePlayer.h"

#include "PlayDesk.h"
#include "runtime/ZBContext.h"
#include "runtime/ZBInterpreter.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace
{

class Player : public testing::Test
{
protected:
    /// Presses OK in every message box that comes up, and counts them.
    void answerBoxes()
    {
        auto* timer = new QTimer(&player);
        timer->callOnTimeout(&player, [this] {
            if (QWidget* box = QApplication::activeModalWidget()) {
                ++boxes;
                QTest::keyClick(box, Qt::Key_Return);
            }
        });
        timer->start(10);
    }

    PlayDesk desk;
    GamePlayer player{desk.module(), desk.installation(), desk.pictures()};
    QSignalSpy ended{&player, &GamePlayer::ended};
    int boxes = 0;
};

TEST_F(Player, PlaysUntilItsWindowIsClosed)
{
    desk.writeProgram(programOf("set counter$n 0", "change counter$n 1\r\npause"));
    ASSERT_TRUE(player.play());
    EXPECT_TRUE(player.window().isVisible());
    EXPECT_EQ(player.window().windowTitle(), QStringLiteral("Bounce"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return player.interpreter().context().frameNumber() > 3; }));
    EXPECT_EQ(ended.count(), 0);
    static_cast<QWidget&>(player.window()).close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return ended.count() == 1; }));
    EXPECT_FALSE(player.window().isVisible());
}

TEST_F(Player, TellsWhatIsWrongAndEnds)
{
    answerBoxes();
    desk.writeProgram("program{\r\nnonsense");
    EXPECT_TRUE(player.play());
    EXPECT_TRUE(QTest::qWaitFor([this] { return ended.count() == 1; }));
    EXPECT_EQ(boxes, 1);
    desk.writeProgram(programOf("", "change counter$unset 1"));
    EXPECT_TRUE(player.play());
    EXPECT_TRUE(QTest::qWaitFor([this] { return ended.count() == 2; }));
    EXPECT_EQ(boxes, 2);
}

TEST_F(Player, CannotPlayWithoutAProgram)
{
    EXPECT_FALSE(player.play());
}

} // namespace
