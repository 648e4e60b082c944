// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>

class QTimer;
class SpriteModel;

/// A sprite as it moves in the game.
class SpritePreview : public QLabel
{
    Q_OBJECT
public:
    /// The picture is shown in a square with that side.
    SpritePreview(const SpriteModel& model, int side, QWidget* parent);
    /// The sprite has changed.
    void refresh();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void preview_Timer();
    void updateTimer();

    const SpriteModel& m_model;
    int m_side;
    int m_frameOfGame = 0;
    QTimer* m_timer;
};
