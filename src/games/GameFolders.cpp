// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "games/GameFolders.h"

#include "platform/DiskFile.h"
#include "platform/NumberText.h"
#include "platform/TextFile.h"

#include <array>
#include <unordered_set>

namespace
{

constexpr std::string_view templateFolder = "zbo\\";
constexpr std::array<std::string_view, 3> templates = {"code.txt", "icon.bmp", "prop.zbo"};

std::string joined(std::string_view folder, std::string_view name)
{
    std::string path(folder);
    path += name;
    return path;
}

/// The eight-digit name with the lowest number that nothing in games\ has yet.
std::string firstFreeName(const Installation& installation)
{
    const auto entries = installation.list("games");
    const std::unordered_set<std::string> taken(entries.begin(), entries.end());
    for (std::int32_t number = 1;; ++number) {
        std::string name;
        appendPadded(name, number, 8);
        if (!taken.contains(name))
            return name;
    }
}

/// Undoes a folder of which only a part could be made, as far as that can be done.
void removeHalfMade(const Installation& installation, const GameRecord& game)
{
    for (const auto name : templates)
        static_cast<void>(installation.remove(game.pathOf(name)));
    static_cast<void>(installation.remove(game.path()));
}

std::string withoutLineBreaks(std::string_view text)
{
    std::string line(text);
    std::erase_if(line, [](char c) { return c == '\r' || c == '\n'; });
    return line;
}

} // namespace

NewGameFolder CreateGameFolder(const Installation& installation)
{
    using enum NewGameFolder::Outcome;
    std::array<std::string, templates.size()> contents;
    for (std::size_t i = 0; i < templates.size(); ++i) {
        const std::string path = joined(templateFolder, templates[i]);
        auto bytes = installation.readBytes(path);
        if (!bytes)
            return {TemplateMissing, path};
        contents[i] = std::move(*bytes);
    }
    if (!installation.isFolder("games") && !installation.makeFolder("games"))
        return {NotWritten, "games"};

    const std::string name = firstFreeName(installation);
    const GameRecord game{"", "", name + '\\'};
    if (!installation.makeFolder(game.path()))
        return {NotWritten, game.path()};
    for (std::size_t i = 0; i < templates.size(); ++i) {
        const std::string path = game.pathOf(templates[i]);
        if (!installation.write(path, contents[i])) {
            removeHalfMade(installation, game);
            return {NotWritten, path};
        }
    }
    return {Created, name};
}

std::vector<GameRecord> ListGames(const Installation& installation)
{
    std::vector<GameRecord> games;
    for (const auto& name : installation.list("games")) {
        if (name.find('\\') != std::string::npos)
            continue; // no path of ours can name it
        const GameRecord game{"", "", name + '\\'};
        if (const auto bytes = installation.readBytes(game.pathOf(propertiesFile)))
            games.push_back(gameRecordOf(game.folder, *bytes));
    }
    return games;
}

void ClearLeavings(const Installation& installation)
{
    for (const auto& name : installation.list("games")) {
        if (const auto folder = installation.find(joined("games\\", name)))
            clearLeftFiles(*folder);
    }
}

std::string propertiesText(const GameRecord& game)
{
    std::string text = withoutLineBreaks(game.author);
    text += NewLine;
    text += withoutLineBreaks(game.title);
    text += NewLine;
    return text;
}

GameRecord gameRecordOf(std::string_view folder, std::string_view propertiesBytes)
{
    GameRecord game;
    game.folder = folder;
    const std::string text = decodeText(std::string(propertiesBytes));
    const auto lines = splitLines(text);
    if (!lines.empty())
        game.author = lines[0];
    // Written at the front of the file again, it would be taken for the mark of the file.
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    while (game.author.starts_with(byteOrderMark))
        game.author.erase(0, byteOrderMark.size());
    if (lines.size() > 1)
        game.title = lines[1];
    return game;
}

GameRecord readGameRecord(const FileSource& files, std::string_view folder, std::string_view games)
{
    const std::string path = joined(joined(games, folder), propertiesFile);
    return gameRecordOf(folder, files.readBytes(path).value_or(std::string()));
}

std::vector<std::string> spriteNames(const Installation& installation, std::string_view folder)
{
    constexpr std::string_view ending = ".spr";
    if (folder.ends_with('\\'))
        folder.remove_suffix(1);
    std::vector<std::string> names = installation.listFiles(folder, "*.spr");
    for (std::string& name : names)
        name.resize(name.size() - ending.size());
    return names;
}

bool SaveGameProperties(const Installation& installation, const GameRecord& game)
{
    return installation.write(game.pathOf(propertiesFile), propertiesText(game));
}
