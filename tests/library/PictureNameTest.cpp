// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "library/PictureName.h"

#include <gtest/gtest.h>

TEST(PictureName, IsOneThatAProgramCanWrite)
{
    const std::pair<const char16_t*, const char16_t*> names[] = {
        {u"Blue  Sky", u"blue_sky"}, {u"B\u00e4ume {am} Fluss", u"b\u00e4ume_am_fluss"},
        {u"a\u0308", u"\u00e4"}, // an accent that is a letter of its own
        {u"v1.2", u"v1_2"},          {u" .hidden. ", u"hidden"},
        {u"!", u"picture"},          {u"", u"picture"},
        {u"ICON", u"icon_picture"},  {u"icon!", u"icon_picture"},
        {u"icons", u"icons"},
    };
    for (const auto& [wish, name] : names)
        EXPECT_EQ(pictureName(QString::fromUtf16(wish)), QString::fromUtf16(name));
}
