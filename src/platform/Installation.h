#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The installation folder and everything below it, named by the product's own paths: a backslash (or a
/// slash) separates folders, letters match without regard to case, and a path that leads out of the folder
/// names nothing. An empty path and one with an empty or "." part name nothing either.
class Installation
{
public:
    explicit Installation(const std::filesystem::path& root);

    const std::filesystem::path& root() const { return m_root; }

    /// The existing file or folder of that name, or nothing.
    std::optional<std::filesystem::path> find(std::string_view productPath) const;
    /// Where a file or folder of that name is or would be written: an existing entry (in any case) or a new
    /// name in an existing folder. Nothing where the folder is missing or the path leads out.
    std::optional<std::filesystem::path> place(std::string_view productPath) const;
    bool isFile(std::string_view productPath) const;
    bool isFolder(std::string_view productPath) const;

    /// Names of the entries of a folder, in the order in which the file system returns them; "." and ".."
    /// left out; empty where the folder cannot be read. An empty path lists the installation folder itself.
    std::vector<std::string> list(std::string_view folder) const;
    /// As list, but only plain files whose name matches `pattern` ("icon.*", "*.bmp", "*.*" for all),
    /// without regard to case.
    std::vector<std::string> listFiles(std::string_view folder, std::string_view pattern) const;

    /// Contents of a file; nothing where it is missing, no plain file, unreadable or larger than `limit`
    /// bytes.
    std::optional<std::string> readBytes(std::string_view productPath,
                                         std::uintmax_t limit = maximumFileSize) const;
    /// As readBytes, decoded to UTF-8 (see TextFile.h).
    std::optional<std::string> readText(std::string_view productPath,
                                        std::uintmax_t limit = maximumFileSize) const;
    /// Writes a file whole or not at all. False where that failed; an older file is then untouched.
    [[nodiscard]] bool write(std::string_view productPath, std::string_view bytes) const;
    [[nodiscard]] bool makeFolder(std::string_view productPath) const;
    [[nodiscard]] bool remove(std::string_view productPath) const;

    static constexpr std::uintmax_t maximumFileSize = 64U << 20U;

private:
    std::optional<std::filesystem::path> walk(std::string_view productPath, bool lastMayBeNew) const;

    std::filesystem::path m_root;
};

/// True when `name` matches a DOS pattern with * and ?, without regard to case; "*.*" matches every name.
bool matchesPattern(std::string_view name, std::string_view pattern);
