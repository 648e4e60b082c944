// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "app/InstallationRefresh.h"

#include "platform/DiskFile.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <limits>
#include <optional>
#include <sstream>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace fs = std::filesystem;

namespace
{

/// Two starts at the same moment take turns.
class Turn
{
public:
    explicit Turn(const fs::path& file)
        : m_file(::open(file.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0644))
    {
        if (m_file >= 0)
            static_cast<void>(::flock(m_file, LOCK_EX)); // where there are no locks, without
    }
    ~Turn()
    {
        if (m_file >= 0)
            ::close(m_file);
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

private:
    int m_file;
};

std::vector<std::string> linesOf(const fs::path& file)
{
    std::vector<std::string> lines;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::optional<std::string> bytesOf(const fs::path& file)
{
    return readFileBytes(file, std::numeric_limits<std::uintmax_t>::max());
}

/// The names of all files below a folder, sorted.
std::vector<std::string> filesBelow(const fs::path& folder)
{
    std::vector<std::string> files;
    for (const auto& entry :
         fs::recursive_directory_iterator(folder, fs::directory_options::skip_permission_denied))
        if (!entry.is_directory())
            files.push_back(entry.path().lexically_relative(folder).generic_string());
    std::ranges::sort(files);
    return files;
}

constexpr auto sumTable = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
        std::uint32_t sum = byte << 24U;
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum << 1U) ^ ((sum >> 31U) * 0x04C11DB7U);
        table[byte] = sum;
    }
    return table;
}();

/// The sum and the size as the POSIX command cksum tells them.
std::string sumOf(std::string_view bytes)
{
    std::uint32_t sum = 0;
    const auto add = [&sum](std::uint32_t byte) { sum = (sum << 8U) ^ sumTable[(sum >> 24U) ^ byte]; };
    for (const char byte : bytes)
        add(static_cast<unsigned char>(byte));
    for (std::size_t size = bytes.size(); size != 0; size >>= 8U)
        add(size & 0xFFU);
    return std::to_string(~sum) + ' ' + std::to_string(bytes.size());
}

/// A line of .shipped.
std::string lineOf(std::string_view sum, std::string_view file)
{
    std::string line(sum);
    line += ' ';
    line += file;
    return line;
}

/// What cannot be read is like nothing that was ever shipped.
std::string sumOfFile(const fs::path& file)
{
    const auto bytes = bytesOf(file);
    return bytes ? sumOf(*bytes) : "unreadable";
}

std::string sumOfFolder(const fs::path& folder)
{
    std::string sums;
    if (!fs::is_directory(folder))
        return "no folder";
    for (const std::string& file : filesBelow(folder))
        sums += lineOf(sumOfFile(folder / file), file) + '\n';
    return sumOf(sums);
}

/// Names, sizes and times: enough to see that another version was installed, without reading it.
std::string stateOf(const fs::path& folder)
{
    std::ostringstream state;
    for (const std::string& file : filesBelow(folder))
        state << fs::file_size(folder / file) << ' '
              << fs::last_write_time(folder / file).time_since_epoch().count() << ' ' << file << '\n';
    return sumOf(state.str()) + '\n';
}

bool isIcon(std::string_view file)
{
    return file.starts_with("zbo/icons/");
}

std::vector<std::string> templatesIn(const fs::path& folder)
{
    std::vector<std::string> files = filesBelow(folder / "zbo");
    for (std::string& file : files)
        file.insert(0, "zbo/");
    return files;
}

void write(const fs::path& file, std::string_view text)
{
    if (!writeFileWhole(file, text))
        throw fs::filesystem_error("cannot write", file, std::make_error_code(std::errc::io_error));
}

/// One in the place of the other at once, so that a game is never missing; in two steps where the file system
/// cannot do that.
void exchange(const fs::path& one, const fs::path& other)
{
    if (::renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE) == 0)
        return;
    const fs::path aside = one.string() + ".old";
    fs::rename(other, aside);
    fs::rename(one, other);
}

} // namespace

InstallationRefresh::InstallationRefresh(fs::path from, fs::path to)
    : m_from(std::move(from))
    , m_to(std::move(to))
    , m_incoming(m_to / ".incoming")
{
}

void InstallationRefresh::run()
{
    if (!fs::exists(m_from / "zorbino.exe"))
        throw fs::filesystem_error("no Zorbino", m_from,
                                   std::make_error_code(std::errc::no_such_file_or_directory));
    const std::string state = stateOf(m_from);
    if (isUpToDate(state))
        return;

    fs::create_directories(m_to / "zbo");
    fs::create_directories(m_to / "games");
    const Turn turn(m_to / ".lock");
    fs::remove_all(m_incoming);
    fs::create_directory(m_incoming);
    readMemory();
    if (sumOfFile(m_from / "zorbino.exe") != sumOfFile(m_to / "zorbino.exe"))
        putFile("zorbino.exe");
    refreshTemplates();
    std::set<std::string> games;
    for (const auto& entry : fs::directory_iterator(m_from / "games"))
        if (fs::exists(entry.path() / "code.txt"))
            games.insert(entry.path().filename().string());
    std::ranges::for_each(games, [this](const std::string& id) { refreshGame(id); });
    writeMemory();
    fs::remove_all(m_incoming);
    write(m_to / ".refreshed", state);
}

bool InstallationRefresh::isUpToDate(std::string_view state) const
{
    // Without the templates no game could be made, so they come back at every start.
    return bytesOf(m_to / ".refreshed") == state && fs::exists(m_to / "zorbino.exe") &&
           fs::exists(m_to / "games") && std::ranges::all_of(templatesIn(m_from), [this](const auto& file) {
               return isIcon(file) || fs::exists(m_to / file);
           });
}

void InstallationRefresh::readMemory()
{
    for (const fs::path& file : {m_to / ".shipped", m_from / "earlier-sums"})
        for (const std::string& line : linesOf(file))
            m_shipped.insert(line);
    for (const std::string& line : linesOf(m_to / ".bundled-games")) {
        // The first version did not write where it put them; nearly always it was under their own number.
        const std::string id = line.substr(0, line.find(' '));
        m_places[id] = line.substr(line.find(' ') + 1);
    }
}

void InstallationRefresh::writeMemory() const
{
    std::string shipped;
    for (const std::string& line : m_shipped)
        shipped += line + '\n';
    write(m_to / ".shipped", shipped);
    std::string games;
    for (const auto& [id, place] : m_places)
        games.append(id).append(" ").append(place).append("\n");
    write(m_to / ".bundled-games", games);
}

void InstallationRefresh::putFile(const fs::path& file)
{
    const fs::path copy = m_incoming / "file";
    fs::copy_file(m_from / file, copy);
    fs::permissions(copy, fs::perms::owner_write, fs::perm_options::add);
    fs::create_directories((m_to / file).parent_path());
    fs::rename(copy, m_to / file);
}

bool InstallationRefresh::wasHere(const std::string& file) const
{
    return std::ranges::any_of(m_shipped,
                               [&file](const std::string& line) { return line.ends_with(' ' + file); });
}

void InstallationRefresh::refreshTemplates()
{
    for (const std::string& file : templatesIn(m_from)) {
        const std::string ours = sumOfFile(m_from / file);
        if (!fs::exists(m_to / file)) {
            if (isIcon(file) && wasHere(file))
                continue; // the user removed it
            putFile(file);
        } else if (const std::string theirs = sumOfFile(m_to / file); theirs != ours) {
            if (!m_shipped.contains(lineOf(theirs, file)))
                continue; // the user changed it
            putFile(file);
        }
        m_shipped.insert(lineOf(ours, file));
    }
}

void InstallationRefresh::refreshGame(const std::string& id)
{
    const auto offered = m_places.find(id);
    if (offered == m_places.end())
        bringGame(id);
    else if (const fs::path place = m_to / "games" / offered->second; fs::exists(place))
        renewGame(id, place);
}

/// A game that is new to the user. Somebody's game may stand under its number.
void InstallationRefresh::bringGame(const std::string& id)
{
    const std::string ours = sumOfFolder(m_from / "games" / id);
    const fs::path wanted = m_to / "games" / id;
    const bool isThere = fs::exists(wanted) && sumOfFolder(wanted) == ours;
    const std::string place = isThere || !fs::exists(wanted) ? id : freeNumber();
    if (!isThere)
        fs::rename(copyOfGame(id), m_to / "games" / place);
    m_places[id] = place;
    m_shipped.insert(lineOf(ours, "games/" + id));
}

void InstallationRefresh::renewGame(const std::string& id, const fs::path& place)
{
    const std::string ours = sumOfFolder(m_from / "games" / id);
    const std::string theirs = sumOfFolder(place);
    if (theirs != ours) {
        if (!m_shipped.contains(lineOf(theirs, "games/" + id)))
            return; // the user changed it
        exchange(copyOfGame(id), place);
    }
    m_shipped.insert(lineOf(ours, "games/" + id));
}

fs::path InstallationRefresh::copyOfGame(const std::string& id) const
{
    fs::path copy = m_incoming / id;
    for (const std::string& file : filesBelow(m_from / "games" / id)) {
        fs::create_directories((copy / file).parent_path());
        fs::copy_file(m_from / "games" / id / file, copy / file);
        fs::permissions(copy / file, fs::perms::owner_write, fs::perm_options::add);
    }
    return copy;
}

/// The first free number, as the library itself finds it.
std::string InstallationRefresh::freeNumber() const
{
    for (int number = 1;; ++number) {
        std::array<char, 16> name{};
        std::snprintf(name.data(), name.size(), "%08d", number);
        if (!fs::exists(m_to / "games" / name.data()))
            return name.data();
    }
}
