// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "forms/Desk.h"
#include "sprites/SpriteFiles.h"
#include "sprites/SpriteModel.h"
#include "sprites/SpriteStrokes.h"

#include <QMainWindow>

#include <array>
#include <cstddef>

class ColorPlate;
class FrameView;
class PaletteView;
class QAction;
class QComboBox;
class QLabel;
class QScrollArea;
class QSpinBox;
class QTimer;
class StripView;

/// The paint window for the frames of one sprite graphic of the current game.
class SpriteEditor : public QMainWindow
{
    Q_OBJECT
public:
    /// An empty name starts a new graphic.
    SpriteEditor(Desk& desk, const QString& graphicName);
    ~SpriteEditor() override;

    /// Asks what to do with unsaved work; false where the user wants to stay.
    bool mayClose();
    const SpriteModel& model() const { return m_model; }
    /// Empty for a sprite that has not been saved yet.
    QString graphicName() const;

    void CurrentFrame_MouseDown(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, int x, int y);
    void CurrentFrame_MouseMove(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, int x, int y);
    void CurrentFrame_MouseUp(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, int x, int y);
    void CurrentFrame_LostFocus();
    void palettep_MouseMove(Pixel color);

Q_SIGNALS:
    /// A graphic of the current game has been written.
    void saved(const QString& graphicName);

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    // clang-format off
    /// What the user can ask for, in the order of the menus.
    enum Command : std::size_t {
        NewSprite, OpenSprite, SaveSprite, SaveSpriteAs, CloseEditor,
        Undo, Redo,
        PointerTool, PencilTool, FillTool,
        AddFrame, DuplicateFrame, DeleteFrame, FrameLeft, FrameRight,
        CommandCount
    };
    // clang-format on
    struct CommandRow;

    void Form_Load(const QString& graphicName);
    void makeCommands();
    QAction& action(Command command) const { return *m_actions[command]; }
    void makeToolbar();
    QWidget* makePage();
    QSize wholeSize() const;
    QWidget* makeColors();
    QWidget* makeStage();
    QWidget* makeSide();
    QWidget* makeFrames();
    void connectModel();

    /// Shows a sprite that has been loaded, and says where a part of it is missing.
    void showLoaded(SpriteLoad result);
    void newSprite();
    void openSprite();
    bool saveSprite();
    bool saveSpriteAs();
    /// Asks for a name until it is one that a sprite can have; empty where that was cancelled.
    QString askName();
    bool saveAs(const QString& name);
    /// Asks where somebody else has written to the sprite or works on the game.
    bool mayReplace(const QString& name);
    void moreColors();
    void setTool(SpriteTool tool);
    void setSwatch(Pixel color);
    void setFrameSize();
    /// Ends what is still under way: a stroke, a frame size that is being typed.
    void finishInput();

    /// Brings every view up to date with the model.
    void refresh();
    /// After a change on the current frame only.
    void refreshPixels();
    void refreshState();
    void placeCurrentFrame();
    void showCurrentOnStrip();
    void preview_Timer();
    void updatePreviewTimer();
    void showPosition(int x, int y);

    Desk& m_desk;
    SpriteFiles m_files; ///< of the game that this window was opened for
    SpriteModel m_model;
    SpriteStrokes m_strokes{m_model};
    bool m_discardAllowed = false; ///< the user has said that unsaved work may go

    std::array<QAction*, CommandCount> m_actions = {};
    FrameView* m_currentFrame = nullptr;
    QWidget* m_stage = nullptr;
    StripView* m_strip = nullptr;
    QScrollArea* m_stripArea = nullptr;
    PaletteView* m_palette = nullptr;
    ColorPlate* m_swatch = nullptr;
    QLabel* m_preview = nullptr;
    QComboBox* m_kind = nullptr;
    QSpinBox* m_width = nullptr;
    QSpinBox* m_height = nullptr;
    QLabel* m_hint = nullptr;
    QLabel* m_nameLabel = nullptr;
    QLabel* m_position = nullptr;
    QTimer* m_previewTimer = nullptr;
    int m_previewFrame = 0;
};
