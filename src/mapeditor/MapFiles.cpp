// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "mapeditor/MapFiles.h"

#include "mapeditor/MapPainting.h"
#include "platform/TextFile.h"

MapFiles::MapFiles(const Installation& installation, PictureReader& pictures)
    : m_installation(installation)
    , m_pictures(pictures)
{
}

void MapFiles::startNew()
{
    m_name.clear();
}

MapLoad MapFiles::load(std::string_view name, MapPainting& painting)
{
    const auto bytes = m_installation.readBytes(belowGames(name));
    if (!bytes)
        return MapLoad::Missing;
    const bool isWhole = painting.load(decodeText(*bytes));
    m_name = isWhole ? name : std::string_view();
    m_stamp = FileStamp(*bytes);
    return isWhole ? MapLoad::Done : MapLoad::Damaged;
}

bool MapFiles::save(std::string_view name, MapPainting& painting)
{
    const std::string bytes = painting.map().toText();
    if (!m_installation.write(belowGames(name), bytes))
        return false;
    m_name = name;
    m_stamp = FileStamp(bytes);
    painting.noteSaved();
    return true;
}

MapNameFault MapFiles::faultOf(std::string_view name) const
{
    const MapNameFault fault = ::faultOf(name);
    const bool leadsOut = fault == MapNameFault::LeadsOut;
    return !leadsOut && holdsNoMap(m_installation, belowGames(name)) ? MapNameFault::GameFile : fault;
}

std::optional<std::string> MapFiles::changedFile(std::string_view name) const
{
    const std::string path = belowGames(name);
    const auto place = m_installation.find(path);
    const bool isOurs = place && place == m_installation.find(belowGames(m_name));
    if (!isOurs || !m_stamp.hasChanged(m_installation, path))
        return std::nullopt;
    return std::string(fileOf(name));
}

std::optional<Surface> MapFiles::picture(std::string_view name) const
{
    return readPicture(belowGames(name));
}

std::optional<Surface> MapFiles::pictureOf(const ZBMap& map, std::string_view mapName) const
{
    if (map.get_background().empty())
        return std::nullopt;
    auto found = picture(map.get_background());
    return found ? std::move(found) : readPicture(besideMap(mapName, map.get_background()));
}

std::optional<Surface> MapFiles::readPicture(std::string_view productPath) const
{
    const auto file = m_installation.find(productPath);
    return file ? m_pictures.read(*file) : std::nullopt;
}
