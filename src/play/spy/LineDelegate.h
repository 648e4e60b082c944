// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QStyledItemDelegate>

/// Draws the lines of a list in a fixed-pitch font. All of them count as wide as the longest, so that a list
/// with uniform sizes can be scrolled to the end of each. Of an endless line only the beginning is drawn, and
/// an empty one shows its selection only to who moves it with the keyboard.
class LineDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale& locale) const override;
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
