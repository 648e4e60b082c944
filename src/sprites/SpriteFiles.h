// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/FileStamp.h"
#include "platform/Installation.h"
#include "platform/PictureReader.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

class SpriteModel;

enum class SpriteLoad {
    Done,
    Incomplete, ///< done, but the picture lacks some of the frames, which are see-through there
    Missing,    ///< a file is not there or cannot be read
    Damaged,    ///< the description or the picture makes no sense
    TooLarge,   ///< a graphic that can be played, but not drawn on
};

constexpr bool isLoaded(SpriteLoad result)
{
    return result == SpriteLoad::Done || result == SpriteLoad::Incomplete;
}

/// Why a new sprite cannot have a name without more ado.
enum class SpriteNameFault {
    None,
    Empty,
    Icon, ///< the name of the game's icon
    Taken ///< by another sprite of the game
};

/// Fills `model` with a sprite graphic of a game's folder ("games\00000001\"); where it cannot be loaded
/// it stays as it is.
SpriteLoad loadSprite(const Installation& installation, PictureReader& pictures, std::string_view folder,
                      std::string_view name, SpriteModel& model);

/// The files of the sprite that is being drawn, in the folder of its game.
class SpriteFiles
{
public:
    SpriteFiles(const Installation& installation, PictureReader& pictures, std::string folder);

    const std::string& folder() const { return m_folder; }
    /// Empty for a sprite that has not been saved yet.
    const std::string& name() const { return m_name; }
    /// A new sprite, which has no files.
    void startNew();

    /// Fills `model` with another sprite of the game; where that cannot be loaded everything stays as it is.
    SpriteLoad load(std::string_view name, SpriteModel& model);
    /// Writes both files or, where that fails, leaves the old ones.
    [[nodiscard]] bool save(std::string_view name, const SpriteModel& model);

    SpriteNameFault faultOf(std::string_view name) const;
    /// The file of that sprite that somebody else has changed since it was read or written here ("ball.spr").
    std::optional<std::string> changedFile(std::string_view name) const;

private:
    using Stamps = std::array<FileStamp, 2>;
    Stamps stampsOf(std::string_view name) const;

    const Installation& m_installation;
    PictureReader& m_pictures;
    std::string m_folder;
    std::string m_name;
    Stamps m_stamps; ///< of the files of that name
};
