// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class SpriteModel;

/// All frames of a sprite side by side. A click asks for a frame; dragging carries the current one along.
class StripView : public QWidget
{
    Q_OBJECT
public:
    /// Each frame is shown in a square with that side.
    StripView(const SpriteModel& model, int side, QWidget* parent = nullptr);
    /// The frames have changed.
    void refresh();
    /// The place of a frame in the strip.
    QRect frameRect(int index) const;

Q_SIGNALS:
    void picked(int index);
    void dragStarted();
    void dragged(int toIndex);
    void dragEnded();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int indexAt(const QPointF& position) const;
    int labelHeight() const;

    const SpriteModel& m_model;
    int m_side;
    QPointF m_pressed;
    bool m_isDragging = false;
};
