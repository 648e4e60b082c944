// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

/// A folder, often that of an installation, that goes away with the test. Its paths are written with slashes.
class ScratchFolder
{
public:
    ScratchFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "zorbino.XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("no folder for scratch files");
        m_path = name;
    }
    ~ScratchFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    void makeFolder(const std::string& path) const { std::filesystem::create_directories(m_path / path); }
    void write(const std::string& path, std::string_view bytes) const
    {
        std::filesystem::create_directories((m_path / path).parent_path());
        std::ofstream(m_path / path, std::ios::binary) << bytes;
    }
    std::string read(const std::string& path) const
    {
        std::ifstream file(m_path / path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// The bytes of a file anywhere; none where it cannot be read.
    static std::string contents(const std::filesystem::path& path)
    {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool has(const std::string& path) const { return std::filesystem::exists(m_path / path); }
    void remove(const std::string& path) const { std::filesystem::remove_all(m_path / path); }
    std::size_t entries(const std::string& path) const
    {
        const auto all = std::filesystem::directory_iterator(m_path / path);
        return static_cast<std::size_t>(std::distance(begin(all), end(all)));
    }

private:
    std::filesystem::path m_path;
};
