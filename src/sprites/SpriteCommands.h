// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "sprites/SpriteStrokes.h"

#include <QObject>

#include <array>
#include <cstddef>

class QAction;
class QMenuBar;
class QToolBar;
class SpriteModel;

// clang-format off
/// What the user can ask the sprite editor for, in the order of the menus.
enum class SpriteCommand {
    NewSprite, OpenSprite, SaveSprite, SaveSpriteAs, CloseEditor,
    Undo, Redo,
    PointerTool, PencilTool, FillTool,
    AddFrame, DuplicateFrame, DeleteFrame, FrameLeft, FrameRight,
    Count
};
// clang-format on

/// The commands of the sprite editor as its menus, its toolbar and its buttons have them.
class SpriteCommands : public QObject
{
    Q_OBJECT
public:
    explicit SpriteCommands(QObject* parent);

    QAction& action(SpriteCommand command) const;
    void fill(QMenuBar& menus) const;
    void fill(QToolBar& bar) const;

    void showTool(SpriteTool tool);
    /// Which of the commands make sense now.
    void showState(const SpriteModel& model);

Q_SIGNALS:
    void asked(SpriteCommand command);

private:
    std::array<QAction*, static_cast<std::size_t>(SpriteCommand::Count)> m_actions = {};
};
