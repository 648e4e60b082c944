// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "library/PropertiesDraft.h"

#include "games/GameFolders.h"

#include <utility>

PropertiesDraft::PropertiesDraft(const Installation& installation, GameRecord& game)
    : m_installation(installation)
    , m_game(game)
    , m_stamp(propertiesText(game))
{
    // Lines may be ended or encoded in another way than ours and say the same.
    const auto bytes = installation.readBytes(path());
    if (bytes && gameRecordOf(game.folder, *bytes) == game)
        m_stamp = FileStamp(*bytes);
}

std::string PropertiesDraft::path() const
{
    return m_game.pathOf(propertiesFile);
}

void PropertiesDraft::setText(std::string title, std::string author)
{
    m_game.title = std::move(title);
    m_game.author = std::move(author);
}

bool PropertiesDraft::hasChangedElsewhere() const
{
    return m_stamp.hasChanged(m_installation, path());
}

void PropertiesDraft::takeStored()
{
    const std::string bytes = m_installation.readBytes(path()).value_or(std::string());
    m_game = gameRecordOf(m_game.folder, bytes);
    m_stamp = FileStamp(bytes);
    m_saved = true;
}

bool PropertiesDraft::save()
{
    m_saved = SaveGameProperties(m_installation, m_game);
    if (m_saved)
        m_stamp = FileStamp(propertiesText(m_game));
    return m_saved;
}
