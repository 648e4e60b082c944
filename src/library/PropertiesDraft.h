// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "games/GameRecord.h"
#include "platform/FileStamp.h"
#include "platform/Installation.h"

/// Title and author of a game as they are typed, and what of it has reached the properties file. No window in
/// here.
class PropertiesDraft
{
public:
    /// `game` is what was read when the game was opened; changes go straight into it.
    PropertiesDraft(const Installation& installation, GameRecord& game);

    const GameRecord& game() const { return m_game; }
    /// Whether the last attempt to save has worked; true before the first.
    bool isSaved() const { return m_saved; }
    void setText(std::string title, std::string author);

    /// Whether somebody else has written the file since.
    bool hasChangedElsewhere() const;
    /// What the file holds now becomes the text.
    void takeStored();
    /// Writes the file. False where that failed.
    bool save();

private:
    std::string path() const;

    const Installation& m_installation;
    GameRecord& m_game;
    FileStamp m_stamp;
    bool m_saved = true;
};
