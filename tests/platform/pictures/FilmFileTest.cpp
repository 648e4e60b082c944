// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/pictures/FilmFile.h"

#include "platform/Random.h"
#include "platform/pictures/GifReader.h"
#include "support/Art.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

// A film, seen through our own reader of GIF pictures: it reads the first picture of a file, so each picture
// of the film becomes a file of its own.

namespace
{

struct Shown {
    std::vector<Surface> frames;
    std::vector<int> delays; ///< hundredths of a second
};

class FilmSplitter
{
public:
    explicit FilmSplitter(const std::string& film)
        : m_film(film)
    {
    }

    Shown split()
    {
        Shown shown;
        std::string control;
        std::size_t at = 13;
        while (at < m_film.size() && byte(at) != 0x3b) {
            const std::size_t begin = at;
            if (byte(at) == 0x21) {
                at = behindBlocks(at + 2);
                if (byte(begin + 1) == 0xf9) {
                    control = m_film.substr(begin, at - begin);
                    shown.delays.push_back(byte(begin + 4) + 256 * byte(begin + 5));
                }
            } else {
                at = behindBlocks(at + 10 + (std::size_t{6} << (byte(at + 9) & 7U)) + 1);
                lay(shown, m_film.substr(0, 13) + control + m_film.substr(begin, at - begin) + ';');
            }
        }
        EXPECT_EQ(at + 1, m_film.size());
        return shown;
    }

private:
    unsigned char byte(std::size_t at) const { return static_cast<unsigned char>(m_film.at(at)); }
    std::size_t behindBlocks(std::size_t at) const
    {
        while (byte(at) != 0)
            at += byte(at) + std::size_t{1};
        return at + 1;
    }
    /// See-through pixels are read as white and those beside the picture as 0: what was there before shows.
    static void lay(Shown& shown, const std::string& file)
    {
        const auto picture = readGif(file);
        ASSERT_TRUE(picture);
        Surface frame =
            shown.frames.empty() ? Surface(picture->width(), picture->height(), black) : shown.frames.back();
        for (int y = 0; y < frame.height(); ++y)
            for (int x = 0; x < frame.width(); ++x)
                if (picture->at(x, y) != white && picture->at(x, y) != 0)
                    frame.set(x, y, picture->at(x, y));
        shown.frames.push_back(frame);
    }

    const std::string& m_film;
};

Shown shownBy(const std::vector<Surface>& frames)
{
    FilmFile film;
    for (const Surface& frame : frames)
        film.add(frame);
    const std::string bytes = film.finish();
    return FilmSplitter(bytes).split();
}

/// A field on which a square of `colors` colors has another place in each frame. Nothing in it is white.
std::vector<Surface> movingSquare(unsigned colors, int count)
{
    Random chance(1);
    std::vector<Surface> frames;
    for (int i = 0; i < count; ++i) {
        Surface frame(64, 48, rgb(0, 0, 99));
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < 16; ++x) {
                const auto color = static_cast<unsigned>(chance.below(colors));
                frame.set(x + i * 3, y + i * 2, rgb(color % 256, color / 256 * 3, 7));
            }
        frames.push_back(std::move(frame));
    }
    return frames;
}

} // namespace

TEST(FilmFile, ShowsEachFrameAsItWas)
{
    for (const unsigned colors : {1U, 2U, 5U, 60U, 240U}) {
        const auto frames = movingSquare(colors, 12);
        const Shown shown = shownBy(frames);
        EXPECT_EQ(shown.frames, frames) << colors;
        EXPECT_EQ(shown.delays, std::vector<int>(12, 3));
    }
}

TEST(FilmFile, ComesNearToManyColors)
{
    Surface frame(64, 64);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            frame.set(x, y, rgb(static_cast<unsigned>(x) * 3, static_cast<unsigned>(y) * 3, 40));
    const Shown shown = shownBy({frame});
    ASSERT_EQ(shown.frames.size(), 1U);
    const auto part = [](Pixel pixel, unsigned shift) { return static_cast<int>((pixel >> shift) & 255U); };
    int farthest = 0;
    for (std::size_t i = 0; i < frame.pixels().size(); ++i)
        for (const unsigned shift : {0U, 8U, 16U})
            farthest = std::max(farthest, std::abs(part(frame.pixels()[i], shift) -
                                                   part(shown.frames[0].pixels()[i], shift)));
    EXPECT_LE(farthest, 12); // of 189
}

TEST(FilmFile, AFrameThatStaysIsStoredOnce)
{
    const Surface one = art({"rg", "bc"});
    const Surface other = art({"rg", "yc"});
    const Shown shown = shownBy({one, one, one, other, other, one});
    EXPECT_EQ(shown.frames, (std::vector<Surface>{one, other, one}));
    EXPECT_EQ(shown.delays, (std::vector<int>{9, 6, 3}));
    // A delay has 16 bits.
    EXPECT_EQ(shownBy(std::vector<Surface>(21'846, one)).delays, (std::vector<int>{65535, 3}));
}

TEST(FilmFile, NothingComesOfNothing)
{
    FilmFile film;
    film.add(Surface());
    EXPECT_EQ(film.finish(), "");
    FilmFile other;
    other.add(art({"r"}));
    other.add(art({"gg"}));
    const std::string bytes = other.finish();
    EXPECT_EQ(FilmSplitter(bytes).split().frames.size(), 1U);
    EXPECT_EQ(other.finish(), "");
}
