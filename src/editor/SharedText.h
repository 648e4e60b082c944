// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>

/// What turns one text into another: at `position`, `removed` characters give way to `inserted`.
struct TextDifference {
    qsizetype position = 0;
    qsizetype removed = 0;
    QString inserted;
};

/// A text cut into pieces. Copies share all pieces until one of them is changed, so that a version of a long
/// text can be kept, compared with another and gone back to at the cost of what changed, not of the whole.
class SharedText
{
public:
    SharedText() = default;
    explicit SharedText(QStringView text);

    qsizetype length() const { return m_length; }
    QString toString() const { return mid(0, m_length); }
    /// `length` characters from `position`; both must lie within the text.
    QString mid(qsizetype position, qsizetype length) const;
    /// Puts `inserted` in the place of `removed` characters at `position`.
    void replace(qsizetype position, qsizetype removed, QStringView inserted);

    bool operator==(const SharedText& other) const;
    /// What must be changed in this text so that it becomes `other`.
    TextDifference differenceTo(const SharedText& other) const;

private:
    /// A place between characters: within the piece at index `piece`, before its character `offset`.
    struct Place {
        qsizetype piece = 0;
        qsizetype offset = 0;
    };
    Place placeOf(qsizetype position) const;
    qsizetype commonStart(const SharedText& other) const;
    qsizetype commonEnd(const SharedText& other, qsizetype limit) const;

    QList<QString> m_pieces; ///< none of them empty
    qsizetype m_length = 0;
};
