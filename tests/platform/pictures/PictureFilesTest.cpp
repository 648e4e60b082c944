// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/pictures/PictureFiles.h"

#include "support/Art.h"
#include "support/FailingCalls.h"
#include "support/TestGame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sys/stat.h>

using namespace std::string_literals;

namespace
{

/// Numbers of two or four bytes, the lowest first.
std::string number(std::uint32_t value, int bytes)
{
    std::string out;
    for (; bytes > 0; --bytes, value >>= 8U)
        out += static_cast<char>(static_cast<unsigned char>(value));
    return out;
}

struct BmpHead {
    int width = 1;
    int height = 1;
    unsigned bits = 24;
    std::uint32_t compression = 0;
    std::string colors = {}; ///< the table, or the masks
};

std::string bmp(const BmpHead& head, const std::string& pixels)
{
    const auto start = static_cast<std::uint32_t>(54 + head.colors.size());
    return "BM" + number(start + static_cast<std::uint32_t>(pixels.size()), 4) + number(0, 4) +
           number(start, 4) + number(40, 4) + number(static_cast<std::uint32_t>(head.width), 4) +
           number(static_cast<std::uint32_t>(head.height), 4) + number(1, 2) + number(head.bits, 2) +
           number(head.compression, 4) + std::string(12, '\0') +
           number(static_cast<std::uint32_t>(head.bits <= 8 ? head.colors.size() / 4 : 0), 4) + number(0, 4) +
           head.colors + pixels;
}

std::string shown(const std::optional<Surface>& picture)
{
    return picture ? art(*picture) : "none";
}

/// Black, red, green, blue as colors of a table.
const std::string fourColors = "\0\0\0\0"
                               "\0\0\xff\0"
                               "\0\xff\0\0"
                               "\xff\0\0\0"s;

/// A GIF picture of two pixels, red and see-through.
const std::string gif = "GIF89a\x02\0\x01\0\x80\0\0\xff\0\0\0\xff\0"
                        "!\xf9\x04\x01\0\0\x01\0,\0\0\0\0\x02\0\x01\0\0\x02\x02\x44\x0a\0;"s;

} // namespace

TEST(PictureFiles, ReadEveryKindOfBmp)
{
    struct Case {
        const char* name;
        BmpHead head;
        std::string pixels;
        const char* picture;
    };
    const std::string masks565 = number(0xf800, 4) + number(0x7e0, 4) + number(0x1f, 4);
    for (const Case& c : {
             Case{"from the bottom up", {1, 2}, "\xff\0\0\0\0\0\xff\0"s, "r\nb\n"},
             Case{"from the top down", {1, -2}, "\xff\0\0\0\0\0\xff\0"s, "b\nr\n"},
             Case{"rows of four bytes", {3, 1, 24}, "\0\0\xff\0\xff\0\xff\0\0\0\0\0"s, "rgb\n"},
             Case{"one bit", {10, 1, 1, 0, fourColors.substr(0, 8)}, "\x05\x40\0\0"s, ".....r.r.r\n"},
             Case{"four bits", {3, 1, 4, 0, fourColors}, "\x12\x30\0\0"s, "rgb\n"},
             Case{"eight bits", {3, 1, 8, 0, fourColors}, "\x01\x02\x03\0"s, "rgb\n"},
             Case{"no such color", {3, 1, 8, 0, fourColors}, "\x01\xff\x04\0"s, "r..\n"},
             Case{"sixteen bits", {2, 1, 16}, "\0\x7c\x1f\0"s, "rb\n"},
             Case{"sixteen bits by masks", {2, 1, 16, 3, masks565}, "\xe0\x07\x1f\xf8"s, "gp\n"},
             Case{"thirty-two bits", {2, 1, 32}, "\xff\0\0\0\0\0\xff\x7f"s, "br\n"},
             Case{"run lengths",
                  {4, 2, 8, 1, fourColors},
                  "\x03\x01\x01\x02\0\0\0\x03\x03\x02\x01\0\0\x01"s,
                  "bgr.\nrrrg\n"},
             Case{"run lengths of halves", {4, 1, 4, 2, fourColors}, "\x03\x12\x01\x30\0\x01"s, "rgrb\n"},
             Case{
                 "left out", {3, 2, 8, 1, fourColors}, "\x01\x01\0\x02\x01\x01\x01\x03\0\x01"s, "..b\nr..\n"},
             Case{"longer than the rows",
                  {1, 1, 8, 1, fourColors},
                  "\xff\x01\0\0\xff\x02\0\x02\xff\xff\x01\x01"s,
                  "r\n"},
             Case{"fewer bits than announced", {2, 2}, "\0\0\xff\0\0\xff\0\0"s, "??\nrr\n"},
             Case{"no pixel at all", {2, 2}, "", "none"},
             Case{"no pixel wide", {0, 2}, "\0\0\xff\0"s, "none"},
             Case{"too large", {60000, 60000}, "\0\0\xff\0"s, "none"},
             Case{"lowest height there is", {1, INT32_MIN}, "\0\0\xff\0"s, "none"},
             Case{"two bits", {2, 1, 2, 0, fourColors}, "\x40\0\0\0"s, "none"},
         })
        EXPECT_EQ(shown(PictureFiles().decode(bmp(c.head, c.pixels))), c.picture) << c.name;

    const std::string os2 = "BM" + number(0, 8) + number(32, 4) + number(12, 4) + number(2, 2) +
                            number(1, 2) + number(1, 2) + number(1, 2) + "\0\0\xff\0\xff\0"s + "\x40\0\0\0"s;
    EXPECT_EQ(shown(PictureFiles().decode(os2)), "rg\n");
}

TEST(PictureFiles, CutShortAreNothingOrHaveNoColorWhereNothingIs)
{
    const std::string whole = bitmapFile(art({"rgb", "cpy", "rgb"}));
    const std::string jpeg =
        ScratchFolder::contents(std::filesystem::path(ZB_SOURCE_DIR) / "games/00000001/title.jpg");
    ASSERT_GT(jpeg.size(), 1000U);
    const auto check = [](std::string_view bytes, std::size_t step, int width) {
        for (std::size_t length = 0; length < bytes.size(); length += step) {
            const auto picture = PictureFiles().decode(bytes.substr(0, length));
            EXPECT_TRUE(!picture || picture->width() == width) << length;
            const auto isDefined = [](Pixel pixel) {
                return pixel == 0 || (pixel & opaqueBits) == opaqueBits;
            };
            EXPECT_TRUE(!picture || std::ranges::all_of(picture->pixels(), isDefined)) << length;
        }
    };
    check(whole, 1, 3);
    check(gif, 1, 2);
    check(jpeg, 997, 480);
    const auto half = PictureFiles().decode(jpeg.substr(0, jpeg.size() / 2));
    ASSERT_TRUE(half);
    EXPECT_EQ(half->at(479, 0), PictureFiles().decode(jpeg)->at(479, 0));
    EXPECT_TRUE(std::ranges::all_of(half->row(479), [](Pixel pixel) { return pixel == 0; }));
}

TEST(PictureFiles, AreKnownByTheirContent)
{
    const ScratchFolder folder;
    PictureFiles files;
    PictureReader& pictures = files;
    const Surface picture = art({"rg", "bc"});
    folder.write("misnamed.txt", bitmapFile(picture));
    EXPECT_EQ(pictures.read(folder.path() / "misnamed.txt"), picture);
    const auto small = pictures.decode(gif);
    ASSERT_TRUE(small);
    EXPECT_EQ(small->at(0, 0), rgb(255, 0, 0));
    EXPECT_EQ(small->at(1, 0), white); // see-through

    for (const char* bytes : {"", "BM", "This is no picture.", "GIF89a", "\xff\xd8\xff", "\x89PNG\r\n\x1a\n",
                              R"(<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9"/>)"})
        EXPECT_FALSE(pictures.decode(bytes)) << bytes;
    EXPECT_FALSE(pictures.read(folder.path() / "missing.bmp"));
    EXPECT_FALSE(pictures.read(folder.path()));
    ASSERT_EQ(mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(pictures.read(folder.path() / "pipe")); // and does not wait for somebody to write to it
}

TEST(PictureFiles, AreWrittenWholeOrNotAtAll)
{
    const ScratchFolder folder;
    PictureFiles files;
    PictureReader& pictures = files;
    Surface picture(3, 2, rgb(10, 20, 30));
    picture.set(1, 1, rgb(255, 254, 1));
    ASSERT_TRUE(writePng(picture, folder.path() / "picture.png"));
    EXPECT_EQ(pictures.read(folder.path() / "picture.png"), picture);
    EXPECT_FALSE(writePng(picture, folder.path() / "nowhere/picture.png"));
    ASSERT_EQ(mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(writePng(picture, folder.path() / "pipe"));
    EXPECT_TRUE(std::filesystem::is_fifo(folder.path() / "pipe")); // and not replaced
}

TEST(PictureFiles, AreOldOrNewWhenTheDiskFailsAtAnyCall)
{
    using enum FailingCalls::Then;
    const ScratchFolder folder;
    const auto file = folder.path() / "picture.png";
    PictureFiles files;
    PictureReader& pictures = files;
    const Surface before(3, 2, rgb(10, 20, 30));
    const Surface after(40, 30, rgb(1, 2, 3));
    for (const auto then : {FailOnce, FailAll}) {
        for (int call = 1, reached = 1; reached != 0; ++call) {
            ASSERT_TRUE(writePng(before, file));
            const FailingCalls failing(call, then);
            const bool wasWritten = writePng(after, file);
            EXPECT_EQ(pictures.read(file), wasWritten ? after : before) << call;
            reached = failing.reached() ? 1 : 0;
            EXPECT_TRUE(wasWritten || reached != 0) << call;
        }
    }
}
