// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "editor/UndoRing.h"

#include <gtest/gtest.h>

TEST(UndoRing, GivesBackTheLastThirtyOneTexts)
{
    UndoRing ring;
    EXPECT_FALSE(ring.record(SharedText())) << "an empty text is what it starts with";
    for (int i = 1; i <= 40; ++i)
        EXPECT_TRUE(ring.record(SharedText(QString::number(i))));
    EXPECT_FALSE(ring.record(SharedText(QStringLiteral("40")))) << "the newest is not kept twice";
    EXPECT_EQ(ring.count(), 31);
    for (int i = 40; i > 9; --i)
        EXPECT_EQ(ring.undo().toString().toStdString(), std::to_string(i));
    EXPECT_EQ(ring.count(), 0);
    // The ring has come round to its newest text, which is now compared with.
    EXPECT_FALSE(ring.record(SharedText(QStringLiteral("40"))));
    EXPECT_TRUE(ring.record(SharedText(QStringLiteral("10"))));
}
