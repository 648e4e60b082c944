// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QHBoxLayout;
class QScrollArea;
class SpriteCommands;
class SpriteModel;
class StripView;
struct EditorSizes;

/// All frames of a sprite on a strip that can be scrolled, and the buttons for them.
class FramesPanel : public QWidget
{
    Q_OBJECT
public:
    FramesPanel(SpriteModel& model, const SpriteCommands& commands, const EditorSizes& sizes,
                QWidget* parent);

    /// The frames have changed.
    void refresh();
    /// The current frame has been drawn on.
    void refreshPixels();

Q_SIGNALS:
    /// The user has chosen or carried a frame.
    void changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QHBoxLayout* makeButtons(const SpriteCommands& commands, bool withLogo);
    void connectStrip();
    QScrollArea* makeStripArea();
    void showCurrentOnStrip();

    SpriteModel& m_model;
    StripView* m_strip;
    QScrollArea* m_stripArea;
};
