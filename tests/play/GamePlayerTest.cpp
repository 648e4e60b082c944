// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/GamePlayer.h"

#include "runtime/ZBContext.h"
#include "runtime/ZBInterpreter.h"
#include "support/Dialogs.h"
#include "support/PlayDesk.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace
{

class Player : public testing::Test
{
protected:
    PlayDesk desk;
    GamePlayer player{desk.module(), desk.installation(), desk.pictures()};
    QSignalSpy ended{&player, &GamePlayer::ended};
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
    const Dialogs dialogs;
    desk.writeProgram("program{\r\nnonsense");
    EXPECT_TRUE(player.play());
    EXPECT_TRUE(QTest::qWaitFor([this] { return ended.count() == 1; }));
    EXPECT_EQ(dialogs.said.size(), 1U);
    desk.writeProgram(programOf("", "change counter$unset 1"));
    EXPECT_TRUE(player.play());
    EXPECT_TRUE(QTest::qWaitFor([this] { return ended.count() == 2; }));
    EXPECT_EQ(dialogs.said.size(), 2U);
}

TEST_F(Player, CannotPlayWithoutAProgram)
{
    EXPECT_FALSE(player.play());
}

} // namespace
