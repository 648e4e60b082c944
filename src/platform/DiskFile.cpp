// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/DiskFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace
{

constexpr std::string_view temporaryEnding = ".zbsave";
constexpr std::size_t temporaryLetters = 6; // by chance, before the ending

/// A file descriptor that closes itself.
class Descriptor
{
public:
    explicit Descriptor(int handle)
        : m_handle(handle)
    {
    }
    ~Descriptor()
    {
        if (m_handle >= 0)
            ::close(m_handle);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool isOpen() const { return m_handle >= 0; }
    int get() const { return m_handle; }

private:
    int m_handle;
};

bool writeAll(int handle, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(handle, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// Makes a temporary file and locks it, which says that somebody still needs it; negative where that failed.
int makeTemporary(std::string& path)
{
    const std::string wanted = path;
    for (;;) {
        path = wanted;
        const int handle = ::mkostemps(path.data(), static_cast<int>(temporaryEnding.size()), O_CLOEXEC);
        if (handle < 0)
            return handle;
        ::flock(handle, LOCK_EX); // waits for nobody but who is clearing just this file away
        if (::access(path.c_str(), F_OK) == 0)
            return handle;
        ::close(handle);
    }
}

} // namespace

std::optional<std::string> readFileBytes(const std::filesystem::path& file, std::uintmax_t limit)
{
    // Not blocking, so that a pipe that somebody left in a game folder cannot hold the program up.
    const Descriptor descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {
    };
    if (!descriptor.isOpen() || ::fstat(descriptor.get(), &status) != 0 || !S_ISREG(status.st_mode) ||
        static_cast<std::uintmax_t>(status.st_size) > limit)
        return std::nullopt;
    std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const ssize_t count = ::read(descriptor.get(), bytes.data() + filled, bytes.size() - filled);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            break; // it has become shorter meanwhile
        filled += static_cast<std::size_t>(count);
    }
    bytes.resize(filled);
    return bytes;
}

FileReplacement::FileReplacement(const std::filesystem::path& file, std::string_view bytes)
    : m_file(file)
{
    // A file that may not be written is not replaced behind its owner's back.
    if (::access(file.c_str(), F_OK) == 0 && ::access(file.c_str(), W_OK) != 0)
        return;
    clearLeftFiles(file.parent_path());
    std::string temporary = (file.parent_path() / ("." + file.filename().string() + ".")).string();
    temporary.append(temporaryLetters, 'X').append(temporaryEnding);
    m_handle = makeTemporary(temporary);
    if (m_handle < 0)
        return;
    m_temporary = std::move(temporary);
    struct stat old {
    };
    const bool replaces = ::stat(file.c_str(), &old) == 0;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    const mode_t mode = replaces ? old.st_mode & 07777U : 0666U & ~mask;
    m_isReady = writeAll(m_handle, bytes) && ::fchmod(m_handle, mode) == 0 && ::fsync(m_handle) == 0;
}

FileReplacement::~FileReplacement()
{
    if (!m_temporary.empty())
        ::unlink(m_temporary.c_str());
    if (m_handle >= 0)
        ::close(m_handle);
}

bool FileReplacement::takePlace()
{
    if (!m_isReady || ::rename(m_temporary.c_str(), m_file.c_str()) != 0)
        return false;
    m_isReady = false;
    m_temporary.clear();
    // The new name must reach the disk too; where a folder cannot be synced, the file itself is safe all the
    // same.
    const Descriptor folder(::open(m_file.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen())
        ::fsync(folder.get());
    return true;
}

bool writeFileWhole(const std::filesystem::path& file, std::string_view bytes)
{
    return FileReplacement(file, bytes).takePlace();
}

bool isTemporaryName(std::string_view name)
{
    if (!name.starts_with('.') || !name.ends_with(temporaryEnding))
        return false;
    name.remove_suffix(temporaryEnding.size());
    const std::size_t dot = name.rfind('.');
    return dot > 1 && name.size() - dot - 1 == temporaryLetters;
}

void clearLeftFiles(const std::filesystem::path& folder)
{
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        std::error_code ignored;
        if (!isTemporaryName(name) || !std::filesystem::is_regular_file(entry->symlink_status(ignored)))
            continue;
        const Descriptor left(::open(entry->path().c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
        if (left.isOpen() && ::flock(left.get(), LOCK_EX | LOCK_NB) == 0)
            std::filesystem::remove(entry->path(), ignored);
    }
}
