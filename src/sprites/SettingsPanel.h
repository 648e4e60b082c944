// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QComboBox;
class QFormLayout;
class QLabel;
class QSpinBox;
class SpriteModel;
class SpritePreview;
struct EditorSizes;

/// What a sprite is as a whole: how it looks in the game, its kind, and the size of its frames.
class SettingsPanel : public QWidget
{
    Q_OBJECT
public:
    SettingsPanel(SpriteModel& model, const EditorSizes& sizes, QWidget* parent);

    /// Takes a size that is still being typed.
    void finishInput();
    /// The sprite has changed.
    void refresh();
    /// The current frame has been drawn on.
    void refreshPixels();

Q_SIGNALS:
    /// The user has changed the sprite.
    void changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QComboBox* makeKinds();
    QSpinBox* makeSide(const char* name, const QString& what);
    QFormLayout* makeForm();
    void setFrameSize();

    SpriteModel& m_model;
    SpritePreview* m_preview;
    QComboBox* m_kind;
    QSpinBox* m_width;
    QSpinBox* m_height;
    QLabel* m_hint;
};
