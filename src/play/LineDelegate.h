#pragma once

#include <QStyledItemDelegate>

/// Draws the lines of a list in a fixed-pitch font. All of them count as wide as the longest, so that a list
/// with uniform sizes can be scrolled to the end of each. Of an endless line only the beginning is drawn.
class LineDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale& locale) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
