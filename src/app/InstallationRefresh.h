// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// Makes an installation folder that can be written to from a read-only one, or brings it up to date.
///
/// Nothing of the user's is ever lost. The program is replaced. A file of zbo, or a whole game, is replaced
/// only while it is still the one that was put there; a game that the user deleted does not come back. All of
/// that is remembered in the folder itself:
///
///     .shipped         sums of what was ever put there, as cksum writes them: "1234 56 zbo/code.txt"; of a
///                      game the sum over the names and sums of its files: "1234 56 games/00000001"
///     .bundled-games   the games that were offered, each with the number that it got: "00000003 00000007"
///     .refreshed       what the read-only folder looked like at the last time
///
/// The read-only folder may hold sums of earlier versions too (earlier-sums, in the form of .shipped).
class InstallationRefresh
{
public:
    InstallationRefresh(std::filesystem::path from, std::filesystem::path to);

    /// Throws std::filesystem::filesystem_error where that does not work.
    void run();

private:
    bool isUpToDate(std::string_view state) const;
    void readMemory();
    void writeMemory() const;
    void putFile(const std::filesystem::path& file);
    void refreshTemplates();
    void refreshGame(const std::string& id);
    void bringGame(const std::string& id);
    void renewGame(const std::string& id, const std::filesystem::path& place);
    std::filesystem::path copyOfGame(const std::string& id) const;
    std::string freeNumber() const;
    bool wasHere(const std::string& file) const;

    std::filesystem::path m_from;
    std::filesystem::path m_to;
    std::filesystem::path m_incoming; // what is copied is complete before it gets its name
    std::set<std::string> m_shipped;
    std::map<std::string, std::string> m_places; // of the games that were offered
};
