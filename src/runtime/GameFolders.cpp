#include "runtime/GameFolders.h"

#include "platform/NaturalOrder.h"
#include "platform/NumberText.h"
#include "platform/TextFile.h"

#include <algorithm>
#include <array>
#include <unordered_set>

namespace fs = std::filesystem;

namespace
{

constexpr std::string_view gamesFolder = "games\\";
constexpr std::string_view templateFolder = "zbo\\";
constexpr std::array<std::string_view, 3> templates = {"code.txt", "icon.bmp", "prop.zbo"};

std::string joined(std::string_view folder, std::string_view name)
{
    std::string path(folder);
    path += name;
    return path;
}

std::string gameFile(std::string_view folder, std::string_view name)
{
    return joined(joined(gamesFolder, folder), name);
}

std::string_view withoutBackslash(std::string_view folder)
{
    if (folder.ends_with('\\'))
        folder.remove_suffix(1);
    return folder;
}

/// The product path of a game's folder itself, without the backslash at its end.
std::string gameFolder(std::string_view folder)
{
    return joined(gamesFolder, withoutBackslash(folder));
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

/// Undoes a folder of which only a part could be made.
void removeHalfMade(const Installation& installation, const std::string& folder)
{
    bool gone = true;
    for (const auto name : templates) {
        const std::string path = joined(folder + '\\', name);
        if (installation.isFile(path))
            gone = installation.remove(path) && gone;
    }
    if (gone)
        static_cast<void>(installation.remove(folder)); // nothing more can be done where this fails
}

std::string withoutLineBreaks(std::string_view text)
{
    std::string line(text);
    std::erase_if(line, [](char c) { return c == '\r' || c == '\n'; });
    return line;
}

/// The record in the text of a properties file; a missing line is empty.
GameRecord recordOf(std::string_view folder, std::string_view text)
{
    GameRecord game;
    game.folder = folder;
    const auto lines = splitLines(text);
    if (!lines.empty())
        game.author = lines[0];
    if (lines.size() > 1)
        game.title = lines[1];
    return game;
}

std::string_view extensionOf(std::string_view fileName)
{
    const auto dot = fileName.rfind('.');
    return dot == std::string_view::npos ? std::string_view() : fileName.substr(dot);
}

} // namespace

std::optional<std::string> CreateGameFolder(const Installation& installation, std::string& missing)
{
    std::array<std::string, templates.size()> contents;
    for (std::size_t i = 0; i < templates.size(); ++i) {
        missing = joined(templateFolder, templates[i]);
        auto bytes = installation.readBytes(missing);
        if (!bytes)
            return std::nullopt;
        contents[i] = std::move(*bytes);
    }
    missing = "games";
    if (!installation.isFolder(missing) && !installation.makeFolder(missing))
        return std::nullopt;

    const std::string name = firstFreeName(installation);
    const std::string folder = joined(gamesFolder, name);
    missing = folder;
    if (!installation.makeFolder(folder))
        return std::nullopt;
    for (std::size_t i = 0; i < templates.size(); ++i) {
        missing = joined(folder + '\\', templates[i]);
        if (!installation.write(missing, contents[i])) {
            removeHalfMade(installation, folder);
            return std::nullopt;
        }
    }
    missing.clear();
    return name;
}

std::vector<GameRecord> ListGames(const Installation& installation)
{
    std::vector<GameRecord> games;
    const auto folder = installation.find("games");
    if (!folder)
        return games;
    std::error_code error;
    for (fs::directory_iterator entry(*folder, error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (name.find('\\') != std::string::npos)
            continue; // no path of ours can name it
        // Asking the installation for each part of a path would take most of the time with thousands of
        // games. Only what is spelt or made in another way (capitals, links) is left to it.
        std::error_code ignored;
        const fs::path properties = entry->path() / "prop.zbo";
        std::optional<std::string> text;
        if (!entry->is_symlink(ignored) && fs::is_regular_file(fs::symlink_status(properties, ignored)))
            text = readFileBytes(properties, Installation::maximumFileSize);
        if (text)
            games.push_back(recordOf(name + '\\', decodeText(*text)));
        else if (installation.isFile(gameFile(name + '\\', "prop.zbo")))
            games.push_back(readGameRecord(installation, name + '\\'));
    }
    return games;
}

GameRecord readGameRecord(const Installation& installation, std::string_view folder, std::string_view games)
{
    const std::string path = joined(joined(games, folder), "prop.zbo");
    return recordOf(folder, installation.readText(path).value_or(std::string()));
}

std::vector<std::string> spriteNames(const Installation& installation, std::string_view folder)
{
    constexpr std::string_view ending = ".spr";
    std::vector<std::string> names = installation.listFiles(withoutBackslash(folder), "*.spr");
    for (std::string& name : names)
        name.resize(name.size() - ending.size());
    std::ranges::sort(names, naturallyBefore);
    return names;
}

bool SaveGameProperties(const Installation& installation, const GameRecord& game)
{
    std::string text = withoutLineBreaks(game.author);
    text += NewLine;
    text += withoutLineBreaks(game.title);
    text += NewLine;
    return installation.write(gameFile(game.folder, "prop.zbo"), text);
}

std::optional<std::string> findGameIcon(const Installation& installation, const GameRecord& game)
{
    const auto icons = installation.listFiles(gameFolder(game.folder), "icon.*");
    if (icons.empty())
        return std::nullopt;
    return gameFile(game.folder, icons.front());
}

bool ChooseGameIcon(const Installation& installation, const GameRecord& game, std::string_view iconName)
{
    const auto picture = installation.readBytes(joined("zbo\\icons\\", iconName));
    if (!picture || extensionOf(iconName).empty()) // "icon" alone would be nobody's icon
        return false;
    const std::string folder = joined(gamesFolder, game.folder);
    const std::string name = joined("icon", extensionOf(iconName));

    // The new icon is written before the others go, so that a full disk leaves the old one. Only an old one
    // whose name differs in nothing but its case must go first, since the new file would take over its name.
    const auto old = installation.listFiles(gameFolder(game.folder), "icon.*");
    const auto twin = std::ranges::find_if(
        old, [&](const std::string& file) { return file != name && lowerCase(file) == lowerCase(name); });
    std::optional<std::string> twinPicture;
    if (twin != old.end()) {
        twinPicture = installation.readBytes(joined(folder, *twin));
        if (!installation.remove(joined(folder, *twin)))
            return false;
    }
    if (!installation.write(joined(folder, name), *picture)) {
        if (twinPicture)
            static_cast<void>(installation.write(joined(folder, *twin), *twinPicture));
        return false;
    }
    bool alone = true;
    for (const auto& file : old) {
        if (lowerCase(file) != lowerCase(name))
            alone = installation.remove(joined(folder, file)) && alone;
    }
    return alone;
}
