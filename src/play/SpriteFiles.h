#pragma once

#include "platform/Installation.h"
#include "platform/PictureReader.h"

#include <string>
#include <string_view>

class SpriteModel;

// The sprite graphics of a game's folder ("games\00000001\"), each a description and a picture.

enum class SpriteLoad {
    Done,
    Missing,  ///< a file is not there or cannot be read
    Damaged,  ///< the description or the picture makes no sense
    TooLarge, ///< a graphic that can be played, but not drawn on
};

bool spriteExists(const Installation& installation, std::string_view folder, std::string_view name);
/// Fills `model` with a graphic; unless the answer is Done it stays as it is.
SpriteLoad loadSprite(const Installation& installation, PictureReader& pictures, std::string_view folder,
                      std::string_view name, SpriteModel& model);
/// Writes both files or, where that fails, leaves the old ones.
[[nodiscard]] bool saveSprite(const Installation& installation, std::string_view folder,
                              std::string_view name, const SpriteModel& model);

/// The nearest name that programs can write and every file system can hold: lower case, "_" for blanks, no
/// other signs than "-". Empty where nothing is left.
std::string spriteName(std::string_view wish);
