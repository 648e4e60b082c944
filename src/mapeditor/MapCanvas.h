// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

/// The place around the map's display. Rulers along its edges show where the squares are and which one the
/// mouse is on, so that nothing has to be drawn on the map itself.
class MapCanvas : public QWidget
{
    Q_OBJECT
public:
    explicit MapCanvas(QWidget* parent = nullptr);
    /// The largest square for the display.
    QRect displayRect() const;
    void setGrid(int columns, int rows);
    /// Marks a column and a row; -1 marks none.
    void setMarked(int column, int row);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void resized();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    int m_columns = 0;
    int m_rows = 0;
    int m_column = -1;
    int m_row = -1;
};
