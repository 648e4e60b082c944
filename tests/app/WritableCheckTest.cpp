// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "app/WritableCheck.h"

#include "platform/Installation.h"
#include "support/OrdinaryUser.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

TEST(WritableCheck, AsksWhetherNewGamesCanBeMade)
{
    const auto readable = fs::perms::others_read | fs::perms::others_exec;
    const auto writable = readable | fs::perms::others_write;
    const struct {
        bool hasGames;
        fs::perms root;
        fs::perms games;
        bool isWritable;
    } cases[] = {
        {true, readable, writable, true},
        {true, writable, readable, false},
        {true, writable, writable & ~fs::perms::others_exec, false},
        {false, writable, {}, true},
        {false, readable, {}, false},
    };
    for (const auto& row : cases) {
        const ScratchFolder folder;
        if (row.hasGames)
            folder.makeFolder("games");
        // The owner keeps what the end of the test needs; whoever asks is somebody else.
        fs::permissions(folder.path(), fs::perms::owner_all | row.root);
        if (row.hasGames)
            fs::permissions(folder.path() / "games", fs::perms::owner_all | row.games);
        const Installation installation(folder.path());
        const bool isOwner = ::geteuid() != 0;
        EXPECT_EQ(asOrdinaryUser([&] { return WritableCheck(installation).isWritable(); }),
                  isOwner || row.isWritable)
            << row.hasGames << ' ' << row.isWritable;
    }
}
