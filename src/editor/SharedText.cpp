// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "editor/SharedText.h"

#include <algorithm>

namespace
{

constexpr qsizetype pieceLength = 2048;
constexpr qsizetype longestPiece = 2 * pieceLength;
constexpr qsizetype shortestPiece = pieceLength / 4;

QList<QString> cutIntoPieces(QStringView text)
{
    QList<QString> pieces;
    pieces.reserve(text.size() / pieceLength + 1);
    while (text.size() > longestPiece) {
        pieces.append(text.first(pieceLength).toString());
        text = text.sliced(pieceLength);
    }
    if (!text.isEmpty())
        pieces.append(text.toString());
    return pieces;
}

bool isSamePiece(const QString& a, const QString& b)
{
    return a.constData() == b.constData() && a.size() == b.size();
}

} // namespace

SharedText::SharedText(QStringView text)
    : m_pieces(cutIntoPieces(text))
    , m_length(text.size())
{
}

SharedText::Place SharedText::placeOf(qsizetype position) const
{
    Place place{0, position};
    while (place.piece < m_pieces.size() && place.offset > m_pieces[place.piece].size()) {
        place.offset -= m_pieces[place.piece].size();
        ++place.piece;
    }
    return place;
}

QString SharedText::mid(qsizetype position, qsizetype length) const
{
    QString result;
    result.reserve(length);
    Place place = placeOf(position);
    while (length > 0) {
        const QStringView part = QStringView(m_pieces[place.piece]).sliced(place.offset);
        result += part.first(std::min(length, part.size()));
        length -= std::min(length, part.size());
        place = {place.piece + 1, 0};
    }
    return result;
}

void SharedText::replace(qsizetype position, qsizetype removed, QStringView inserted)
{
    if (m_pieces.isEmpty()) {
        *this = SharedText(inserted);
        return;
    }
    const Place from = placeOf(position);
    Place to = placeOf(position + removed);
    QString joined;
    joined.reserve(from.offset + inserted.size() + longestPiece);
    joined += QStringView(m_pieces[from.piece]).first(from.offset);
    joined += inserted;
    joined += QStringView(m_pieces[to.piece]).sliced(to.offset);
    // Crumbs are swept together with the piece behind them, or the text would fall into ever smaller ones.
    if (joined.size() < shortestPiece && to.piece + 1 < m_pieces.size())
        joined += m_pieces[++to.piece];

    QList<QString> pieces = cutIntoPieces(joined);
    const qsizetype old = to.piece - from.piece + 1;
    const qsizetype common = std::min(old, pieces.size());
    for (qsizetype i = 0; i < common; ++i)
        m_pieces[from.piece + i] = std::move(pieces[i]);
    if (common < old) {
        m_pieces.remove(from.piece + common, old - common);
    } else if (common < pieces.size()) {
        m_pieces.insert(from.piece + common, pieces.size() - common, QString());
        std::move(pieces.begin() + common, pieces.end(), m_pieces.begin() + from.piece + common);
    }
    m_length += inserted.size() - removed;
}

qsizetype SharedText::commonStart(const SharedText& other) const
{
    qsizetype common = 0;
    Place a;
    Place b;
    while (a.piece < m_pieces.size() && b.piece < other.m_pieces.size()) {
        const QString& mine = m_pieces[a.piece];
        const QString& theirs = other.m_pieces[b.piece];
        qsizetype same = std::min(mine.size() - a.offset, theirs.size() - b.offset);
        if (a.offset != b.offset || !isSamePiece(mine, theirs)) {
            const QChar* start = mine.constData() + a.offset;
            const QChar* differs = std::mismatch(start, start + same, theirs.constData() + b.offset).first;
            if (differs != start + same)
                return common + (differs - start);
        }
        common += same;
        a.offset += same;
        b.offset += same;
        if (a.offset == mine.size())
            a = {a.piece + 1, 0};
        if (b.offset == theirs.size())
            b = {b.piece + 1, 0};
    }
    return common;
}

// Both texts are walked from their ends towards their starts. The pieces of the two need not be cut at the
// same places, so each step compares no more than the shorter of what is left of the two current pieces, and
// the piece that is used up gives way to the one in front of it. Where both stand at the same offset in one
// and the same piece, which is so for nearly all of a long text after a small change, the characters are not
// looked at: copies share their pieces, and the piece is known to be equal to itself.
//
// `limit` keeps the common end out of the common start. From "aa" to "aaa" both texts start with "aa" and end
// with "aa", but only three characters are there: without the limit the difference would have a negative
// length.
qsizetype SharedText::commonEnd(const SharedText& other, qsizetype limit) const
{
    qsizetype common = 0;
    // Here the offset counts the characters of the piece that are still to be compared.
    Place a{m_pieces.size() - 1, m_pieces.isEmpty() ? 0 : m_pieces.last().size()};
    Place b{other.m_pieces.size() - 1, other.m_pieces.isEmpty() ? 0 : other.m_pieces.last().size()};
    while (common < limit) {
        const QString& mine = m_pieces[a.piece];
        const QString& theirs = other.m_pieces[b.piece];
        const qsizetype same = std::min({a.offset, b.offset, limit - common});
        if (a.offset != b.offset || !isSamePiece(mine, theirs)) {
            qsizetype i = 0;
            while (i < same && mine[a.offset - 1 - i] == theirs[b.offset - 1 - i])
                ++i;
            if (i < same)
                return common + i;
        }
        common += same;
        a.offset -= same;
        b.offset -= same;
        if (a.offset == 0 && --a.piece >= 0)
            a.offset = m_pieces[a.piece].size();
        if (b.offset == 0 && --b.piece >= 0)
            b.offset = other.m_pieces[b.piece].size();
    }
    return common;
}

bool SharedText::operator==(const SharedText& other) const
{
    if (m_length != other.m_length)
        return false;
    return m_pieces.constData() == other.m_pieces.constData() || commonStart(other) == m_length;
}

TextDifference SharedText::differenceTo(const SharedText& other) const
{
    const qsizetype start = commonStart(other);
    const qsizetype end = commonEnd(other, std::min(m_length, other.m_length) - start);
    return {start, m_length - start - end, other.mid(start, other.m_length - start - end)};
}
