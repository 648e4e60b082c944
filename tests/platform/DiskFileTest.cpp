// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/DiskFile.h"

#include "platform/Installation.h"
#include "support/FailingCalls.h"
#include "support/TestGame.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{

std::size_t entries(const fs::path& folder)
{
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

} // namespace

TEST(DiskFile, WhatAKilledProgramLeavesIsNobodysFileAndGoesWithTheNextSave)
{
    const ScratchFolder folder;
    folder.write("icon.bmp", "old");
    for (int call = 1; call <= 5; ++call) {
        const pid_t child = ::fork();
        if (child == 0) {
            const FailingCalls killed(call, FailingCalls::Then::EndProcess);
            ::_exit(writeFileWhole(folder.path() / "icon.bmp", "new") ? 0 : 1);
        }
        ::waitpid(child, nullptr, 0);
        const Installation installation(folder.path());
        EXPECT_EQ(installation.listFiles("", "*.*"), std::vector<std::string>{"icon.bmp"}) << call;
        EXPECT_EQ(installation.list("").size(), 1U) << call;
        EXPECT_EQ(ScratchFolder::contents(folder.path() / "icon.bmp"), "old") << call;
    }
    EXPECT_EQ(entries(folder.path()), 2U); // each save has cleared what the one before it left
    EXPECT_TRUE(writeFileWhole(folder.path() / "icon.bmp", "new"));
    EXPECT_EQ(entries(folder.path()), 1U);
}

TEST(DiskFile, TwoSavesAtTheSameTimeLeaveEachOtherAlone)
{
    const ScratchFolder folder;
    FileReplacement first(folder.path() / "a", "1");
    FileReplacement second(folder.path() / "b", "2");
    EXPECT_TRUE(first.takePlace() && second.takePlace());
    EXPECT_EQ(entries(folder.path()), 2U);
    EXPECT_EQ(ScratchFolder::contents(folder.path() / "a"), "1");
}
