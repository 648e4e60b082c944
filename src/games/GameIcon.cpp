// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "games/GameIcon.h"

#include "platform/TextFile.h"

#include <algorithm>
#include <array>
#include <system_error>

namespace
{

constexpr std::array<std::string_view, 4> iconNames = {"icon.bmp", "icon.gif", "icon.jpg", "icon.jpeg"};

/// The names of a game's icons, in the order of the file system.
std::vector<std::string> iconsOf(const Installation& installation, const GameRecord& game)
{
    auto names = installation.listFiles(game.path(), "icon.*");
    std::erase_if(names, [](const std::string& name) { return !isGameIcon(name); });
    return names;
}

/// Gives the file at `productPath`, which may be spelt with other capitals, this very spelling. Where that
/// fails it keeps its own, by which it is found as well. Returns the name that the file had.
std::string spellAsGiven(const Installation& installation, const std::string& productPath,
                         const std::string& name)
{
    const auto file = installation.find(productPath);
    if (!file || file->filename() == name)
        return name;
    std::error_code error;
    std::filesystem::rename(*file, file->parent_path() / name, error);
    return file->filename().string();
}

} // namespace

bool isGameIcon(std::string_view fileName)
{
    return std::ranges::find(iconNames, lowerCase(fileName)) != iconNames.end();
}

std::optional<std::string> findGameIcon(const Installation& installation, const GameRecord& game)
{
    const auto icons = iconsOf(installation, game);
    if (icons.empty())
        return std::nullopt;
    return game.pathOf(icons.front());
}

bool writeGameIcon(const Installation& installation, const GameRecord& game, std::string_view ending,
                   std::string_view picture)
{
    const std::string name = "icon" + std::string(ending);
    const std::string path = game.pathOf(name);
    if (!isGameIcon(name))
        return false;
    // The new icon is written before the others go, so that a full disk leaves the old one.
    const auto old = iconsOf(installation, game);
    if (!installation.write(path, picture))
        return false;
    const std::string replaced = spellAsGiven(installation, path, name);
    bool alone = true;
    for (const auto& file : old) {
        if (file != name && file != replaced)
            alone = installation.remove(game.pathOf(file)) && alone;
    }
    return alone;
}
