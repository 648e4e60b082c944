// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QPixmap>
#include <QString>
#include <QWidget>

#include <vector>

/// A picture area that shows game tiles: the title, the icon below it and the author, on a part of the
/// picture behind.
class TileArea : public QWidget
{
    Q_OBJECT
public:
    struct Tile {
        QString title;
        QString author;
        QPixmap icon;
        int left = 0;
        int top = 0;
    };

    TileArea(const char* objectName, int slotWidth, QWidget* parent);

    /// What lies behind the area: the part of `backdrop` at `origin` shows through.
    void setBackdrop(const QPixmap& backdrop, QPoint origin);
    void setSlotWidth(int width);
    void clear();
    void addTile(Tile tile);
    /// Draws a frame around a tile for those who pick with the keyboard; -1 for none.
    void setMarked(int slot);
    int marked() const { return m_marked; }
    int count() const { return static_cast<int>(m_tiles.size()); }

    QSize sizeHint() const override;

Q_SIGNALS:
    void pressed(int x);
    void keyPressed(int key);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    enum class Place { AboveIcon, BelowIcon };
    void drawText(QPainter& painter, const QString& text, QPoint at, Place place) const;
    void drawTile(QPainter& painter, const Tile& tile) const;

    std::vector<Tile> m_tiles;
    QPixmap m_backdrop;
    QPoint m_origin;
    int m_slotWidth;
    int m_marked = -1;
};
