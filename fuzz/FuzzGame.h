// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "headless/HeadlessPlayer.h"
#include "platform/Installation.h"
#include "platform/pictures/PictureFiles.h"

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

/// A scratch game that lives as long as the fuzzer. Its folder holds the graphic "dot" and the map "map";
/// inputs are written beside them.
class FuzzGame
{
public:
    /// The one of this process.
    static FuzzGame& instance();

    void write(std::string_view name, std::string_view bytes) const;
    /// Writes both files of a sprite graphic: everything up to the first 0 byte is the description, the rest
    /// its picture. Without a 0 byte the picture of the last input stays, which is as good as any. Returns
    /// the description.
    std::string_view writeGraphic(const std::string& name, std::string_view input) const;
    const std::filesystem::path& folder() const { return m_folder; }
    /// Plays a program for some frames, drawn and with every box ticked.
    void play(std::string_view program, int frames,
              const std::vector<KeyChange>& keys = {{1, true, 37}, {2, false, 37}});
    HeadlessPlayer& player() { return m_player; }

private:
    FuzzGame();

    std::filesystem::path m_folder;
    ZB m_module;
    PictureFiles m_pictures;
    Installation m_installation;
    HeadlessPlayer m_player;
};

inline std::string_view textOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}
