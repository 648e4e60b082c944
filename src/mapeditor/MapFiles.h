// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "mapeditor/MapName.h"
#include "platform/FileStamp.h"
#include "platform/Installation.h"
#include "platform/PictureReader.h"

#include <optional>
#include <string>
#include <string_view>

class MapPainting;
class ZBMap;

enum class MapLoad {
    Done,
    Missing, ///< the file is not there or cannot be read
    Damaged, ///< read as far as it makes sense
};

/// The file of the map that is being painted, and the picture behind it. Names begin at the folder of the
/// games.
class MapFiles
{
public:
    MapFiles(const Installation& installation, PictureReader& pictures);

    /// Empty for a map that has not been saved yet, or could not be read whole.
    const std::string& name() const { return m_name; }
    /// A new map, which has no file.
    void startNew();

    MapLoad load(std::string_view name, MapPainting& painting);
    /// Writes the file or, where that fails, leaves the old one.
    [[nodiscard]] bool save(std::string_view name, MapPainting& painting);

    /// What speaks against saving a map under a name.
    MapNameFault faultOf(std::string_view name) const;
    /// The file of that name, where it is the map's and somebody else has changed it since it was read or
    /// written here.
    std::optional<std::string> changedFile(std::string_view name) const;

    std::optional<Surface> picture(std::string_view name) const;
    /// The picture that a map names; a game that has moved to another folder has it beside its map.
    std::optional<Surface> pictureOf(const ZBMap& map, std::string_view mapName) const;

private:
    std::optional<Surface> readPicture(std::string_view productPath) const;

    const Installation& m_installation;
    PictureReader& m_pictures;
    std::string m_name;
    FileStamp m_stamp; ///< of the file of that name
};
