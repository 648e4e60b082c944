#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

/// An installation folder that goes away with the test. Its paths are written with slashes.
class TemporaryInstallation
{
public:
    TemporaryInstallation()
    {
        std::string name = (std::filesystem::temp_directory_path() / "zorbino.XXXXXX").string();
        m_root = ::mkdtemp(name.data());
    }
    ~TemporaryInstallation() { std::filesystem::remove_all(m_root); }
    TemporaryInstallation(const TemporaryInstallation&) = delete;
    TemporaryInstallation& operator=(const TemporaryInstallation&) = delete;

    const std::filesystem::path& root() const { return m_root; }
    void makeFolder(const std::string& path) const { std::filesystem::create_directories(m_root / path); }
    void write(const std::string& path, const std::string& bytes) const
    {
        std::filesystem::create_directories((m_root / path).parent_path());
        std::ofstream(m_root / path, std::ios::binary) << bytes;
    }
    std::string read(const std::string& path) const
    {
        std::ifstream file(m_root / path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool has(const std::string& path) const { return std::filesystem::exists(m_root / path); }
    void remove(const std::string& path) const { std::filesystem::remove_all(m_root / path); }
    std::size_t entries(const std::string& path) const
    {
        const auto all = std::filesystem::directory_iterator(m_root / path);
        return static_cast<std::size_t>(std::distance(begin(all), end(all)));
    }

private:
    std::filesystem::path m_root;
};
