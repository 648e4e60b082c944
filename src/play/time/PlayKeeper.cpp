// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/time/PlayKeeper.h"

#include "forms/NameOrder.h"
#include "forms/Texts.h"
#include "games/WritableName.h"
#include "platform/TextFile.h"

#include <system_error>
#include <utility>

namespace fs = std::filesystem;

PlayKeeper::PlayKeeper(const Installation& installation, std::string folder)
    : m_installation(installation)
    , m_folder(std::move(folder))
{
}

std::vector<PlayKeeper::Entry> PlayKeeper::list()
{
    std::map<std::string, Known> known;
    std::vector<Entry> entries;
    const std::string_view folder(m_folder.data(), m_folder.empty() ? 0 : m_folder.size() - 1);
    const auto files = m_installation.listFiles(folder, "*" + std::string(PlayFile::ending));
    for (const QString& name : forms::inNameOrder(files)) {
        const std::string file = forms::toUtf8(name);
        const auto path = m_installation.find(m_folder + file);
        std::error_code gone;
        Known now;
        if (path) {
            now.time = fs::last_write_time(*path, gone);
            now.size = fs::file_size(*path, gone);
        }
        const auto before = m_known.find(file);
        const bool isKnown =
            before != m_known.end() && before->second.time == now.time && before->second.size == now.size;
        now.entry = isKnown ? before->second.entry : entryOf(file);
        entries.push_back(now.entry);
        known.emplace(file, std::move(now));
    }
    m_known = std::move(known);
    return entries;
}

PlayKeeper::Entry PlayKeeper::entryOf(const std::string& file) const
{
    Entry entry;
    entry.file = file;
    entry.name = file.substr(0, file.size() - PlayFile::ending.size());
    std::string fault;
    if (const auto play = read(file, fault)) {
        entry.isReadable = true;
        entry.isPinned = play->label.isPinned;
        if (!play->label.name.empty())
            entry.name = play->label.name;
    }
    return entry;
}

std::optional<PlayFile> PlayKeeper::read(const std::string& file, std::string& fault) const
{
    const std::string path = m_folder + file;
    if (!m_installation.isFile(path)) {
        fault = "Its file is gone.";
        return std::nullopt;
    }
    const auto bytes = m_installation.readBytes(path, PlayFile::mostBytes);
    if (!bytes) {
        fault = "Its file cannot be read, or it is much too large for a play.";
        return std::nullopt;
    }
    return readPlay(*bytes, fault);
}

std::string PlayKeeper::fileOf(std::string_view name, std::string_view ending)
{
    const std::string plain = writableName(name);
    return plain.empty() ? plain : plain + std::string(ending);
}

std::string PlayKeeper::freeName(std::string_view word, std::string_view ending) const
{
    for (int number = 1;; ++number) {
        std::string name = std::string(word) + " " + std::to_string(number);
        if (!isTaken(fileOf(name, ending)))
            return name;
    }
}

bool PlayKeeper::save(const std::string& file, const PlayFile& play) const
{
    return m_installation.write(m_folder + file, playText(play));
}

bool PlayKeeper::rename(const std::string& file, const std::string& name) const
{
    std::string fault;
    auto play = read(file, fault);
    const std::string renamed = fileOf(name);
    if (!play || renamed.empty())
        return false;
    play->label.name = name;
    if (!save(renamed, *play))
        return false;
    if (lowerCase(file) == renamed || remove(file))
        return true;
    [[maybe_unused]] const bool isAsBefore = remove(renamed);
    return false;
}

bool PlayKeeper::remove(const std::string& file) const
{
    return m_installation.remove(m_folder + file);
}

bool PlayKeeper::setPinned(const std::string& file, bool on) const
{
    std::string fault;
    auto play = read(file, fault);
    if (!play)
        return false;
    play->label.isPinned = on;
    return save(file, *play);
}
