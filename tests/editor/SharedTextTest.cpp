// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "editor/SharedText.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace
{

QString fromLatin(const char* text)
{
    return QString::fromLatin1(text);
}

} // namespace

TEST(SharedText, StaysEqualToATextThatGoesThroughTheSameChanges)
{
    std::mt19937 chance(7);
    const auto below = [&chance](qsizetype limit) {
        return std::uniform_int_distribution<qsizetype>(0, limit)(chance);
    };
    QString plain;
    SharedText record;
    std::vector<std::pair<QString, SharedText>> kept;
    for (int step = 0; step < 3000; ++step) {
        const qsizetype at = below(plain.size());
        const qsizetype removed = below(std::min<qsizetype>(plain.size() - at, step % 50 == 0 ? 9000 : 5));
        const QString inserted(below(step % 20 == 0 ? 12000 : 3),
                               QChar(static_cast<char16_t>(u'a' + below(3))));
        plain.replace(at, removed, inserted);
        record.replace(at, removed, inserted);
        ASSERT_EQ(record.length(), plain.size());
        if (step % 100 == 0) {
            ASSERT_EQ(record.toString(), plain) << "step " << step;
            kept.emplace_back(plain, record);
        }
    }
    for (const auto& [text, old] : kept) {
        EXPECT_EQ(old.toString(), text) << "a kept version must not follow";
        EXPECT_EQ(old == record, text == plain);
        EXPECT_TRUE(old == SharedText(text)) << "equal texts may be cut differently";
        const TextDifference difference = record.differenceTo(old);
        QString changed = plain;
        changed.replace(difference.position, difference.removed, difference.inserted);
        EXPECT_EQ(changed, text);
    }
}

TEST(SharedText, FindsTheSmallestDifference)
{
    struct {
        const char* from;
        const char* to;
        qsizetype position, removed;
        const char* inserted;
    } const rows[] = {
        {"", "", 0, 0, ""},         {"", "abc", 0, 0, "abc"}, {"abc", "", 0, 3, ""},
        {"aaa", "aa", 2, 1, ""},    {"aa", "aaa", 2, 0, "a"}, {"abcd", "abXd", 2, 1, "X"},
        {"same", "same", 4, 0, ""},
    };
    for (const auto& row : rows) {
        const TextDifference found =
            SharedText(fromLatin(row.from)).differenceTo(SharedText(fromLatin(row.to)));
        EXPECT_EQ(found.position, row.position) << row.from;
        EXPECT_EQ(found.removed, row.removed) << row.from;
        EXPECT_EQ(found.inserted.toStdString(), row.inserted) << row.from;
    }
}
