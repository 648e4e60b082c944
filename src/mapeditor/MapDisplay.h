// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "forms/PictureArea.h"

/// The picture that a map is painted on. Tells mouse positions in its own pixels, also beyond its edges.
class MapDisplay : public forms::PictureArea
{
    Q_OBJECT
public:
    explicit MapDisplay(QWidget* parent = nullptr);

Q_SIGNALS:
    void mouseDown(int x, int y);
    void mouseMove(int x, int y);
    void mouseUp();
    void mouseLeft();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
};
