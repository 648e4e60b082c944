// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/SpriteCommands.h"

#include "forms/ActionRow.h"
#include "sprites/SpriteModel.h"

#include <QAction>
#include <QActionGroup>
#include <QMenuBar>
#include <QToolBar>

namespace
{

using enum SpriteCommand;

constexpr std::size_t commandCount = static_cast<std::size_t>(Count);
constexpr int smallestButton = 64;

// clang-format off
constexpr std::array<forms::MenuRow, commandCount> rows = {{
    {{"NewSprite",      "new",         u"New",       u"Start a new sprite"},                 u"&New Sprite",       u"Ctrl+N"},
    {{"OpenSprite",     "folder",      u"Open",      u"Open a sprite of this game"},         u"&Open Sprite...",   u"Ctrl+O"},
    {{"SaveSprite",     "save",        u"Save",      u"Save this sprite"},                   u"&Save Sprite",      u"Ctrl+S"},
    {{"SaveSpriteAs",   "copy",        u"Save As",   u"Save this sprite under another name"}, u"Save &As...",      u"Ctrl+Shift+S"},
    {{"CloseEditor",    "exit",        u"Close",     u"Close this window"},                  u"&Close",            u"Ctrl+W"},
    {{"Undo",           "undo",        u"Undo",      u"Take the last change back"},          u"&Undo",             u"Ctrl+Z"},
    {{"Redo",           "redo",        u"Redo",      u"Do it again"},                        u"&Redo",             u"Ctrl+Y"},
    {{"PointerTool",    "pointer",     u"Pointer",   u"Point and measure, without drawing"}, u"P&ointer",          u"Ctrl+1"},
    {{"PencilTool",     "pencil",      u"Pencil",    u"Draw with the pencil"},               u"&Pencil",           u"Ctrl+2"},
    {{"FillTool",       "fill",        u"Fill",      u"Fill a shape that has an outline in your color"}, u"&Fill", u"Ctrl+3"},
    {{"AddFrame",       "add",         u"Add",       u"Add an empty frame"},                 u"&Add Frame",        u"Ctrl+Insert"},
    {{"DuplicateFrame", "duplicate",   u"Duplicate", u"Add a copy of this frame"},           u"&Duplicate Frame",  u"Ctrl+D"},
    {{"DeleteFrame",    "remove",      u"Delete",    u"Delete this frame"},                  u"D&elete Frame",     u"Ctrl+Del"},
    {{"FrameLeft",      "frame-left",  u"Left",      u"Move this frame one place to the left"},  u"Move Frame &Left",  u"Ctrl+Left"},
    {{"FrameRight",     "frame-right", u"Right",     u"Move this frame one place to the right"}, u"Move Frame &Right", u"Ctrl+Right"},
}};

struct Menu {
    const char16_t* title;
    SpriteCommand first;
    SpriteCommand end;
};
constexpr std::array<Menu, 4> menus = {{
    {u"&File", NewSprite, Undo}, {u"&Edit", Undo, PointerTool}, {u"&Tools", PointerTool, AddFrame}, {u"F&rames", AddFrame, Count},
}};
// clang-format on

SpriteCommand commandFor(SpriteTool tool)
{
    switch (tool) {
    case SpriteTool::Pointer:
        return PointerTool;
    case SpriteTool::Pencil:
        return PencilTool;
    case SpriteTool::Fill:
        return FillTool;
    }
    return PencilTool;
}

} // namespace

SpriteCommands::SpriteCommands(QObject* parent)
    : QObject(parent)
{
    for (std::size_t index = 0; index < commandCount; ++index) {
        m_actions[index] = forms::makeAction(rows[index], this);
        connect(m_actions[index], &QAction::triggered, this,
                [this, index] { Q_EMIT asked(static_cast<SpriteCommand>(index)); });
    }
    auto* const tools = new QActionGroup(this);
    for (const SpriteCommand tool : {PointerTool, PencilTool, FillTool}) {
        action(tool).setCheckable(true);
        tools->addAction(&action(tool));
    }
}

QAction& SpriteCommands::action(SpriteCommand command) const
{
    return *m_actions[static_cast<std::size_t>(command)];
}

void SpriteCommands::fill(QMenuBar& bar) const
{
    for (const Menu& entry : menus) {
        QMenu* const menu = bar.addMenu(QString::fromUtf16(entry.title));
        for (auto index = static_cast<std::size_t>(entry.first); index < static_cast<std::size_t>(entry.end);
             ++index)
            menu->addAction(m_actions[index]);
    }
}

void SpriteCommands::fill(QToolBar& bar) const
{
    for (const SpriteCommand command :
         {NewSprite, OpenSprite, SaveSprite, Undo, Redo, PointerTool, PencilTool, FillTool}) {
        if (command == Undo || command == PointerTool)
            bar.addSeparator();
        forms::addButton(bar, action(command), smallestButton);
    }
}

void SpriteCommands::showTool(SpriteTool tool)
{
    action(commandFor(tool)).setChecked(true);
}

void SpriteCommands::showState(const SpriteModel& model)
{
    action(Undo).setEnabled(model.canUndo());
    action(Redo).setEnabled(model.canRedo());
    action(AddFrame).setEnabled(model.canAddFrame());
    action(DuplicateFrame).setEnabled(model.canAddFrame());
    action(FrameLeft).setEnabled(model.currentIndex() > 0);
    action(FrameRight).setEnabled(model.currentIndex() + 1 < model.frameCount());
}
