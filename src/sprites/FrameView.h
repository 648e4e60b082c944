// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <QWidget>

#include <memory>

/// The frame that is drawn on, enlarged. Tells mouse positions in the frame's own pixels, also beyond its
/// edges.
class FrameView : public QWidget
{
    Q_OBJECT
public:
    explicit FrameView(QWidget* parent = nullptr);
    void showFrame(std::shared_ptr<const Surface> frame);

Q_SIGNALS:
    void mouseDown(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, int x, int y);
    void mouseMove(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, int x, int y);
    void mouseUp(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, int x, int y);
    void lostFocus();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    QPoint framePoint(const QMouseEvent& event) const;

    std::shared_ptr<const Surface> m_frame;
    QPoint m_cursor;            ///< of the keyboard
    bool m_cursorShown = false; ///< the keyboard was used last
    bool m_spacePressed = false;
};
