// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/FileStamp.h"

#include "platform/Installation.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <functional>

TEST(FileStamp, NoticesWhatSomebodyElseHasDone)
{
    struct Case {
        const char* what;
        std::function<void(const ScratchFolder&)> done;
        bool changed;
    };
    const Case cases[] = {
        {"nothing", [](const auto&) {}, false},
        {"other bytes of the same size", [](const auto& folder) { folder.write("a.txt", "abd"); }, true},
        {"bytes exchanged", [](const auto& folder) { folder.write("a.txt", "bac"); }, true},
        {"more bytes", [](const auto& folder) { folder.write("a.txt", std::string("abc\0", 4)); }, true},
        {"emptied", [](const auto& folder) { folder.write("a.txt", ""); }, true},
        {"written again as it was", [](const auto& folder) { folder.write("a.txt", "abc"); }, false},
        {"removed", [](const auto& folder) { folder.remove("a.txt"); }, false},
        {"too large to be looked at",
         [](const auto& folder) {
             std::filesystem::resize_file(folder.path() / "a.txt", Installation::maximumFileSize + 1);
         },
         true},
    };
    for (const Case& c : cases) {
        const ScratchFolder folder;
        folder.write("a.txt", "abc");
        const FileStamp stamp("abc");
        c.done(folder);
        EXPECT_EQ(stamp.hasChanged(Installation(folder.path()), "A.txt"), c.changed) << c.what;
    }
}

TEST(FileStamp, OfAFileThatWasNotThereNoticesANewOne)
{
    const ScratchFolder folder;
    const Installation installation(folder.path());
    EXPECT_FALSE(FileStamp().hasChanged(installation, "a.txt"));
    folder.write("a.txt", "");
    EXPECT_TRUE(FileStamp().hasChanged(installation, "a.txt"));
    EXPECT_FALSE(FileStamp("").hasChanged(installation, "a.txt"));
}
