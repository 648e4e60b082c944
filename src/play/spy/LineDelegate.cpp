// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/spy/LineDelegate.h"

#include "play/spy/HistoryModel.h"

#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr qsizetype longestShown = 1000; // laying a megabyte out takes seconds

/// In characters, with the gap in front of it.
qsizetype explanationSize(const QModelIndex& index)
{
    const qsizetype size = index.data(HistoryModel::explanationRole).toString().size();
    return size > 0 ? size + 6 : 0;
}

} // namespace

QString LineDelegate::displayText(const QVariant& value, const QLocale& locale) const
{
    const QString line = value.toString();
    if (line.size() <= longestShown)
        return QStyledItemDelegate::displayText(value, locale);
    return QStyledItemDelegate::displayText(QString(line.left(longestShown) + u"..."_s), locale);
}

void LineDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->text.isEmpty() && !option->state.testFlag(QStyle::State_HasFocus))
        option->state &= ~QStyle::State_Selected;
}

void LineDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    const QString explanation = index.data(HistoryModel::explanationRole).toString();
    if (explanation.isEmpty())
        return;
    constexpr int gap = 24;
    const int begin = gap + option.fontMetrics.horizontalAdvance(displayText(index.data(), option.locale));
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    painter->save();
    painter->setFont(option.font);
    painter->setPen(option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Link));
    painter->drawText(option.rect.adjusted(begin, 0, 0, 0), Qt::AlignVCenter | Qt::TextSingleLine,
                      u"\u25c2 "_s + explanation);
    painter->restore();
}

QSize LineDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    // Asked for once per layout, about the first line.
    const QAbstractItemModel& lines = *index.model();
    qsizetype longest = 0;
    for (int row = lines.rowCount() - 1; row >= 0; --row)
        longest = std::max(longest, lines.index(row, 0).data().toString().size() +
                                        explanationSize(lines.index(row, 0)));
    longest = std::min(longest, longestShown + 3);
    const QSize plain = QStyledItemDelegate::sizeHint(option, index);
    const int margins =
        plain.width() - option.fontMetrics.horizontalAdvance(displayText(index.data(), option.locale));
    const qreal width = static_cast<qreal>(longest) * QFontMetricsF(option.font).horizontalAdvance(u'0');
    return {static_cast<int>(width) + margins + 1, plain.height()};
}
