// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/TextFile.h"

#include "platform/DiskFile.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

TEST(TextFile, KnowsUtf8FromOtherBytes)
{
    for (const char* good : {"", "plain",
                             "gr\xc3\xb6\xc3\x9f"
                             "e",
                             "\xe2\x82\xac", "\xf0\x9f\x90\x8c", "\xf4\x8f\xbf\xbf", "\xed\x9f\xbf"})
        EXPECT_TRUE(isValidUtf8(good)) << good;
    for (const char* bad :
         {"\x80", "\xc3", "\xc3x", "\xc0\x80", "\xc1\xbf", "\xe0\x80\x80", "\xe2\x82", "\xed\xa0\x80",
          "\xf0\x80\x80\x80", "\xf4\x90\x80\x80", "\xf5\x80\x80\x80", "\xff"})
        EXPECT_FALSE(isValidUtf8(bad)) << bad;
}

TEST(TextFile, ReadsOtherBytesAsWindows1252)
{
    EXPECT_EQ(decodeText("\xef\xbb\xbfmove me"), "move me");
    EXPECT_EQ(decodeText("gr\xf6\xdf"
                         "e"),
              "größe");
    EXPECT_EQ(decodeText("\x80 \x93quoted\x94 \x9f"), "€ “quoted” Ÿ");
    EXPECT_TRUE(isValidUtf8(decodeText("\x81\x8d\xfe\xff")));
    // One bad byte makes the whole text Windows-1252.
    EXPECT_EQ(decodeText("\xc3\xb6 \xf6"), "Ã¶ ö");
}

TEST(TextFile, ReadsUtf16ByItsByteOrderMark)
{
    using namespace std::string_view_literals;
    const struct {
        std::string_view bytes;
        const char* text;
    } rows[] = {
        {"\xff\xfe"
         "a\0\xe4\0\r\0\n\0"sv,
         "aä\r\n"},
        {"\xfe\xff\0a\0\xe4\x20\xac"sv, "aä€"},
        {"\xff\xfe\x3d\xd8\x1f\xdc!\0"sv, "🐟!"},
        {"\xfe\xff\xd8\x3d\xdc\x1f\xdb\xff\xdf\xff"sv, "🐟\U0010ffff"},
        {"\xff\xfe"sv, ""},
        {"\xff\xfe\x3d\xd8z\0"sv, "\ufffdz"},           // half a pair,
        {"\xff\xfe\x1f\xdc\x3d\xd8"sv, "\ufffd\ufffd"}, // its other half in front,
        {"\xff\xfez\0\x3d"sv, "z\ufffd"},               // half a unit
        {"\xff\xfe\xff\xd7\0\xe0"sv, "\ud7ff\ue000"},   // around the surrogates
    };
    for (const auto& row : rows)
        EXPECT_EQ(decodeText(std::string(row.bytes)), row.text);
}

TEST(TextFile, LinesEndInThreeWays)
{
    using Lines = std::vector<std::string_view>;
    EXPECT_EQ(splitLines(""), Lines{});
    EXPECT_EQ(splitLines("a"), Lines{"a"});
    EXPECT_EQ(splitLines("a\n"), Lines{"a"});
    EXPECT_EQ(splitLines("a\r\nb\nc\rd"), (Lines{"a", "b", "c", "d"}));
    EXPECT_EQ(splitLines("\n\r\r\n\n"), (Lines{"", "", "", ""}));
}

TEST(TextFile, ChangesTheCaseOfOneCharacterForOne)
{
    EXPECT_EQ(lowerCase("MOVE Ärger ΣΑΣ Жук 🐌"), "move ärger σασ жук 🐌");
    EXPECT_EQ(lowerCase("ABC É"), "abc é");
    EXPECT_EQ(upperCase("ärger straße ÿ"), "ÄRGER STRAßE Ÿ");
    EXPECT_EQ(lowerCase("\xc3 A\xff"), "\xc3 a\xff"); // malformed bytes stay
}

TEST(ReadFileBytes, TakesPlainFilesUpToALimit)
{
    const ScratchFolder folder;
    folder.write("four", "four");
    EXPECT_EQ(readFileBytes(folder.path() / "four", 4), "four");
    EXPECT_EQ(readFileBytes(folder.path() / "four", 3), std::nullopt);
    EXPECT_EQ(readFileBytes(folder.path() / "five", 9), std::nullopt);
    EXPECT_EQ(readFileBytes(folder.path(), 9999), std::nullopt);
    ASSERT_EQ(::mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(readFileBytes(folder.path() / "pipe", 9), std::nullopt); // and does not wait for a writer
}

TEST(WriteFileWhole, ReplacesAFileAndKeepsItsRights)
{
    const ScratchFolder folder;
    const fs::path file = folder.path() / "save";
    EXPECT_TRUE(writeFileWhole(file, "old"));
    ASSERT_EQ(::chmod(file.c_str(), 0640), 0);
    EXPECT_TRUE(writeFileWhole(file, std::string("new\0bytes", 9)));
    EXPECT_EQ(readFileBytes(file, 99), std::string("new\0bytes", 9));
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
    EXPECT_FALSE(writeFileWhole(folder.path() / "no folder" / "save", "new"));
    EXPECT_FALSE(writeFileWhole(folder.path(), "new"));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1); // nothing half made is left
}

TEST(WriteFileWhole, LeavesTheOldFileWhereThereIsNoRoom)
{
    const ScratchFolder folder;
    const fs::path file = folder.path() / "save";
    folder.write("save", "old");
    // A file may not grow beyond this: what a full disk does, for this process only.
    ::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    rlimit small = before;
    small.rlim_cur = 1000;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    EXPECT_FALSE(writeFileWhole(file, std::string(1001, 'x')));
    EXPECT_TRUE(writeFileWhole(folder.path() / "other", std::string(1000, 'x')));
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    EXPECT_EQ(readFileBytes(file, 9999), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 2);
}
