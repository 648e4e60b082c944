#include "play/LineDelegate.h"

#include <algorithm>

QSize LineDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    // Asked for once per layout, about the first line.
    const QAbstractItemModel& lines = *index.model();
    qsizetype longest = 0;
    for (int row = lines.rowCount() - 1; row >= 0; --row)
        longest = std::max(longest, lines.index(row, 0).data().toString().size());
    const QSize plain = QStyledItemDelegate::sizeHint(option, index);
    const int margins = plain.width() - option.fontMetrics.horizontalAdvance(index.data().toString());
    const qreal width = static_cast<qreal>(longest) * QFontMetricsF(option.font).horizontalAdvance(u'0');
    return {static_cast<int>(width) + margins + 1, plain.height()};
}
