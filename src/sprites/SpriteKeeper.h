// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "forms/Desk.h"
#include "sprites/SpriteFiles.h"

#include <QObject>

class SpriteModel;

/// Opens and saves the sprite of a window, and asks and tells the user there what is to be asked and told.
class SpriteKeeper : public QObject
{
    Q_OBJECT
public:
    SpriteKeeper(Desk& desk, SpriteModel& model, QWidget* window);

    /// Empty for a sprite that has not been saved yet.
    QString graphicName() const;
    /// The sprite that the window opens with.
    void load(const QString& graphicName);
    void startNew();
    /// Another sprite, which the user chooses.
    void open();
    bool save();
    bool saveAs();

    /// Asks what to do with unsaved work; false where the user wants to stay.
    bool mayLeave();
    /// There is something new to lose: what the user has said counts no more.
    void noteChange() { m_discardAllowed = false; }

Q_SIGNALS:
    /// The window has another sprite.
    void loaded(bool isWhole);
    void saved(const QString& graphicName);

private:
    /// Asks for a name until it is one that a sprite can have; empty where that was cancelled.
    QString askName();
    /// Whether a name can be taken; the user has been told why not, or has agreed to replace another sprite.
    bool mayBeCalled(const QString& name, SpriteNameFault fault);
    bool saveUnder(const QString& name);
    /// Asks where somebody else has written to the sprite or works on the game.
    bool mayReplace(const QString& name);

    Desk& m_desk;
    SpriteModel& m_model;
    QWidget* m_window;
    SpriteFiles m_files;           ///< of the game that the window was opened for
    bool m_discardAllowed = false; ///< the user has said that unsaved work may go
};
