// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "mapeditor/MapName.h"

#include "platform/Installation.h"
#include "platform/NumberText.h"
#include "platform/TextFile.h"
#include "runtime/world/ZBMap.h"

namespace
{

constexpr std::string_view separators = "\\/";

/// Where the last part of a name begins.
std::size_t fileStart(std::string_view name)
{
    const std::size_t separator = name.find_last_of(separators);
    return separator == std::string_view::npos ? 0 : separator + 1;
}

bool leadsOut(std::string_view name)
{
    for (;;) {
        const std::size_t end = name.find_first_of(separators);
        if (trimBlanks(name.substr(0, end)) == "..")
            return true;
        if (end == std::string_view::npos)
            return false;
        name.remove_prefix(end + 1);
    }
}

/// What a program writes of the name: all behind the game's folder. A line of it ends a word at a blank and a
/// brace, the text at a quote, and itself at a semicolon.
bool isWritable(std::string_view name)
{
    const std::size_t separator = name.find_first_of(separators);
    const std::string_view written = separator == std::string_view::npos ? name : name.substr(separator + 1);
    return written.find_first_of(" \t\"{};") == std::string_view::npos;
}

} // namespace

MapNameFault faultOf(std::string_view name)
{
    const std::string file = lowerCase(fileOf(name));
    if (trimBlanks(file).empty())
        return MapNameFault::Blank;
    if (leadsOut(name))
        return MapNameFault::LeadsOut;
    if (file == "icon" || file.starts_with("icon."))
        return MapNameFault::Icon;
    if (file == "code.txt" || file == "prop.zbo")
        return MapNameFault::GameFile;
    return isWritable(name) ? MapNameFault::None : MapNameFault::Unwritable;
}

std::string_view fileOf(std::string_view name)
{
    return name.substr(fileStart(name));
}

std::string belowGames(std::string_view name)
{
    return std::string("games\\").append(name);
}

std::string besideMap(std::string_view mapName, std::string_view file)
{
    return belowGames(mapName.substr(0, fileStart(mapName))).append(file);
}

bool holdsNoMap(const Installation& installation, std::string_view productPath)
{
    const auto text = installation.readText(productPath);
    return text ? !ZBMap().fromText(*text) : installation.isFile(productPath);
}
