// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "games/GameLock.h"

#include "platform/Installation.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

TEST(GameLock, TellsWhoComesSecondUntilTheFirstHasLeft)
{
    const ScratchFolder folder;
    folder.makeFolder("games/00000001");
    folder.makeFolder("games/00000002");
    const Installation installation(folder.path());

    GameLock first(installation, "00000001\\");
    GameLock second(installation, "00000001\\");
    GameLock other(installation, "00000002\\");
    EXPECT_FALSE(first.isTakenElsewhere());
    EXPECT_TRUE(second.isTakenElsewhere());
    EXPECT_FALSE(other.isTakenElsewhere());
    first = GameLock();
    EXPECT_FALSE(second.isTakenElsewhere()) << "now it is the second's";
    EXPECT_TRUE(GameLock(installation, "00000001\\").isTakenElsewhere());
    EXPECT_EQ(folder.entries("games/00000001"), 0U) << "nothing is left behind";
}

TEST(GameLock, StandsInNobodysWayWhereThereIsNothingToLock)
{
    const ScratchFolder folder;
    const Installation installation(folder.path());
    EXPECT_FALSE(GameLock().isTakenElsewhere());
    EXPECT_FALSE(GameLock(installation, "00000001\\").isTakenElsewhere());
    folder.makeFolder("games/00000001");
    std::filesystem::permissions(folder.path() / "games/00000001",
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    GameLock readOnly(installation, "00000001\\");
    EXPECT_FALSE(readOnly.isTakenElsewhere());
    EXPECT_TRUE(GameLock(installation, "00000001\\").isTakenElsewhere());
}
