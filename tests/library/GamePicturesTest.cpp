// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "library/GamePictures.h"

#include "support/Pictures.h"
#include "support/PretendDesk.h"

#include <QImage>
#include <QSet>

#include <gtest/gtest.h>

namespace
{

/// How many colors a picture of black and white columns has when it is shown in `to` pixels.
int colorsShown(QSize from, QSize to)
{
    const ScratchFolder folder;
    QImage image(from, QImage::Format_RGB32);
    for (int y = 0; y < from.height(); ++y) {
        for (int x = 0; x < from.width(); ++x)
            image.setPixelColor(x, y, (x + y) % 2 == 0 ? Qt::black : Qt::white);
    }
    folder.write("games/picture.bmp", encoded(image, "BMP"));
    PretendDesk desk(folder.path());
    const QImage shown = pictureOf(desk, "games\\picture.bmp", to).toImage();
    EXPECT_EQ(shown.size(), to);
    QSet<QRgb> colors;
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x)
            colors += shown.pixel(x, y);
    }
    return static_cast<int>(colors.size());
}

TEST(GamePictures, KeepHardPixelsWhereTheyGrowByWholeFactors)
{
    const struct {
        QSize from;
        QSize to;
        bool isHard;
    } pictures[] = {
        {{4, 4}, {4, 4}, true},  {{4, 4}, {8, 8}, true},  {{4, 4}, {8, 12}, true}, {{3, 4}, {8, 8}, false},
        {{4, 3}, {8, 8}, false}, {{8, 8}, {4, 4}, false}, {{8, 4}, {4, 8}, false}, {{4, 8}, {8, 4}, false},
    };
    for (const auto& picture : pictures)
        EXPECT_EQ(colorsShown(picture.from, picture.to) == 2, picture.isHard)
            << picture.from.width() << 'x' << picture.from.height() << " to " << picture.to.width() << 'x'
            << picture.to.height();
}

TEST(GamePictures, KeepTheirShapeWhereThatIsWanted)
{
    const ScratchFolder folder;
    folder.write("games/wide.bmp", bitmap(Qt::red, 40, 10));
    PretendDesk desk(folder.path());
    EXPECT_EQ(pictureOf(desk, "games\\wide.bmp", QSize(80, 80), Qt::KeepAspectRatio).size(), QSize(80, 20));
    EXPECT_EQ(pictureOf(desk, "games\\wide.bmp", QSize(80, 80)).size(), QSize(80, 80));
    EXPECT_TRUE(pictureOf(desk, "games\\gone.bmp", QSize(80, 80)).isNull());
}

} // namespace
