// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/FramePainting.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <set>

TEST(FitFrame, TakesWholeScreenPixelsForEachOfTheFrame)
{
    struct Case {
        QRect area;
        int width, height;
        QRect place;
    };
    const Case cases[] = {
        {{0, 0, 64, 64}, 32, 32, {0, 0, 64, 64}},
        {{0, 0, 95, 64}, 32, 32, {15, 0, 64, 64}},
        {{10, 20, 70, 100}, 32, 32, {13, 38, 64, 64}},
        {{0, 0, 64, 63}, 32, 32, {16, 15, 32, 32}},
        {{0, 0, 20, 20}, 40, 20, {0, 5, 20, 10}}, // shrunk, in proportion
        {{0, 0, 20, 20}, 20, 80, {7, 0, 5, 20}},
        {{0, 0, 20, 20}, 2000, 1, {0, 9, 20, 1}}, // never nothing
        {{0, 0, 20, 20}, 0, 0, {10, 10, 0, 0}},
    };
    for (const Case& c : cases) {
        const QRect place = fitFrame(c.area, c.width, c.height);
        EXPECT_EQ(place, c.place) << c.width << ": " << place.x() << ' ' << place.y() << ' ' << place.width()
                                  << ' ' << place.height();
    }
}

TEST(DrawFrame, ShowsACheckerboardThroughWhatIsSeeThrough)
{
    constexpr Pixel red = rgb(255, 0, 0);
    Surface frame(2, 2, 0);
    frame.set(1, 0, red);
    frame.set(0, 1, 0x80000000); // a shadow
    QImage picture(20, 20, QImage::Format_RGB32);
    QPainter painter(&picture);
    drawFrame(painter, picture.rect(), frame);
    painter.end();
    const auto colorsIn = [&picture](const QRect& area) {
        std::set<QRgb> colors;
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x)
                colors.insert(picture.pixel(x, y));
        return colors;
    };
    EXPECT_EQ(colorsIn({10, 0, 10, 10}), std::set<QRgb>{red});
    const auto board = colorsIn({0, 0, 10, 10});
    EXPECT_EQ(board.size(), 2U);
    EXPECT_EQ(colorsIn({10, 10, 10, 10}), board);
    const auto shadow = colorsIn({0, 10, 10, 10});
    EXPECT_EQ(shadow.size(), 2U);
    EXPECT_LT(qRed(*shadow.rbegin()), qRed(*board.begin()));
}
