// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "forms/Desk.h"
#include "sprites/SpriteModel.h"
#include "sprites/SpriteStrokes.h"

#include <QMainWindow>

class ColorsPanel;
class FramesPanel;
class FrameView;
class QLabel;
class QScrollArea;
class SettingsPanel;
class SpriteCommands;
class SpriteKeeper;
enum class SpriteCommand;
struct EditorSizes;

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
    /// Empty for a sprite that has not been saved yet.
    QString graphicName() const;

    void CurrentFrame_MouseDown(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, int x, int y);
    void CurrentFrame_MouseMove(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, int x, int y);
    void CurrentFrame_MouseUp(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, int x, int y);
    void CurrentFrame_LostFocus();
    void palettep_MouseMove(Pixel color);

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Load(const QString& graphicName);
    void makeBars(const EditorSizes& sizes);
    QScrollArea* makePage(const EditorSizes& sizes);
    QWidget* makeStage(int smallestSide);
    void connectParts();
    void makeFit();
    QSize wholeSize() const;

    /// Does what the user has asked for.
    void run(SpriteCommand command);
    void setTool(SpriteTool tool);
    /// Ends what is still under way: a stroke, a frame size that is being typed.
    void finishInput();

    /// Brings everything up to date with another sprite, and says where a part of it is missing.
    void showLoaded(bool isWhole);
    void showSaved(const QString& name);
    /// Brings every view up to date with the model.
    void refresh();
    /// After a change on the current frame only.
    void refreshPixels();
    void refreshState();
    void placeCurrentFrame();
    void showPosition(int x, int y);

    SpriteModel m_model;
    SpriteStrokes m_strokes{m_model};
    SpriteKeeper* m_keeper;
    SpriteCommands* m_commands;

    FrameView* m_currentFrame = nullptr;
    QWidget* m_stage = nullptr;
    ColorsPanel* m_colors = nullptr;
    SettingsPanel* m_settings = nullptr;
    FramesPanel* m_frames = nullptr;
    QLabel* m_nameLabel = nullptr;
    QLabel* m_position = nullptr;
};
