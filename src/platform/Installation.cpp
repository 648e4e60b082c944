#include "platform/Installation.h"

#include "platform/TextFile.h"

#include <algorithm>
#include <system_error>

namespace fs = std::filesystem;

namespace
{

/// The parts of a product path; nothing where it is empty or has an empty or "." part.
std::optional<std::vector<std::string_view>> partsOf(std::string_view productPath)
{
    if (productPath.find('\0') != std::string_view::npos)
        return std::nullopt;
    std::vector<std::string_view> parts;
    for (std::size_t start = 0;;) {
        const std::size_t end = std::min(productPath.find_first_of("\\/", start), productPath.size());
        const std::string_view part = productPath.substr(start, end - start);
        if (part.empty() || part == ".")
            return std::nullopt;
        parts.push_back(part);
        if (end == productPath.size())
            return parts;
        start = end + 1;
    }
}

/// The entry of `folder` named `name` in any case; the exact spelling comes first.
std::optional<fs::path> entryOf(const fs::path& folder, std::string_view name)
{
    std::error_code error;
    fs::path exact = folder / fs::path(std::string(name));
    if (fs::exists(fs::symlink_status(exact, error)))
        return exact;
    const std::string wanted = lowerCase(name);
    std::optional<fs::path> best;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        // Several spellings side by side: always the same one, whatever order the folder is read in.
        if (lowerCase(entry->path().filename().string()) == wanted && (!best || entry->path() < *best))
            best = entry->path();
    }
    return best;
}

bool isBelow(const fs::path& path, const fs::path& root)
{
    auto at = path.begin();
    for (const fs::path& part : root) {
        if (at == path.end() || *at != part)
            return false;
        ++at;
    }
    return true;
}

} // namespace

Installation::Installation(const fs::path& root)
{
    std::error_code error;
    m_root = fs::canonical(root, error);
    if (error)
        m_root = fs::absolute(root, error).lexically_normal();
}

std::optional<fs::path> Installation::walk(std::string_view productPath, bool lastMayBeNew) const
{
    const auto parts = partsOf(productPath);
    if (!parts)
        return std::nullopt;
    fs::path at = m_root;
    std::size_t depth = 0;
    std::error_code error;
    for (std::size_t i = 0; i < parts->size(); ++i) {
        const std::string_view part = (*parts)[i];
        if (part == "..") {
            if (depth == 0)
                return std::nullopt;
            --depth;
            at = at.parent_path();
            continue;
        }
        ++depth;
        if (auto entry = entryOf(at, part))
            at = *entry;
        else if (lastMayBeNew && i + 1 == parts->size() && fs::is_directory(at, error))
            return at / fs::path(std::string(part));
        else
            return std::nullopt;
        // A link that leads out of the installation names nothing.
        if (fs::is_symlink(at, error)) {
            const fs::path real = fs::canonical(at, error);
            if (error || !isBelow(real, m_root))
                return std::nullopt;
        }
    }
    return at;
}

std::optional<fs::path> Installation::find(std::string_view productPath) const
{
    return walk(productPath, false);
}

std::optional<fs::path> Installation::place(std::string_view productPath) const
{
    return walk(productPath, true);
}

bool Installation::isFile(std::string_view productPath) const
{
    std::error_code error;
    const auto path = find(productPath);
    return path && fs::is_regular_file(*path, error);
}

bool Installation::isFolder(std::string_view productPath) const
{
    std::error_code error;
    const auto path = find(productPath);
    return path && fs::is_directory(*path, error);
}

std::vector<std::string> Installation::list(std::string_view folder) const
{
    std::vector<std::string> names;
    const auto path = folder.empty() ? m_root : find(folder);
    if (!path)
        return names;
    std::error_code error;
    for (fs::directory_iterator entry(*path, error), end; !error && entry != end; entry.increment(error))
        names.push_back(entry->path().filename().string());
    return names;
}

std::vector<std::string> Installation::listFiles(std::string_view folder, std::string_view pattern) const
{
    std::vector<std::string> names;
    const auto path = folder.empty() ? m_root : find(folder);
    if (!path)
        return names;
    std::error_code error;
    for (fs::directory_iterator entry(*path, error), end; !error && entry != end; entry.increment(error)) {
        std::string name = entry->path().filename().string();
        std::error_code ignored;
        if (matchesPattern(name, pattern) && entry->is_regular_file(ignored))
            names.push_back(std::move(name));
    }
    return names;
}

std::optional<std::string> Installation::readBytes(std::string_view productPath, std::uintmax_t limit) const
{
    const auto path = find(productPath);
    return path ? readFileBytes(*path, limit) : std::nullopt;
}

std::optional<std::string> Installation::readText(std::string_view productPath, std::uintmax_t limit) const
{
    const auto bytes = readBytes(productPath, limit);
    return bytes ? std::optional(decodeText(*bytes)) : std::nullopt;
}

bool Installation::write(std::string_view productPath, std::string_view bytes) const
{
    const auto path = place(productPath);
    std::error_code error;
    return path && !fs::is_directory(*path, error) && writeFileWhole(*path, bytes);
}

bool Installation::makeFolder(std::string_view productPath) const
{
    const auto path = place(productPath);
    std::error_code error;
    return path && fs::create_directory(*path, error);
}

bool Installation::remove(std::string_view productPath) const
{
    const auto path = find(productPath);
    std::error_code error;
    return path && fs::remove(*path, error);
}

bool matchesPattern(std::string_view name, std::string_view pattern)
{
    if (pattern == "*.*")
        return true;
    const std::string text = lowerCase(name);
    const std::string wanted = lowerCase(pattern);
    std::size_t at = 0;
    std::size_t want = 0;
    std::size_t starAt = 0;
    std::size_t starWant = std::string::npos;
    while (at < text.size()) {
        if (want < wanted.size() && wanted[want] == '*') {
            starWant = ++want;
            starAt = at;
        } else if (want < wanted.size() && (wanted[want] == '?' || wanted[want] == text[at])) {
            ++at;
            ++want;
        } else if (starWant != std::string::npos) {
            want = starWant;
            at = ++starAt;
        } else {
            return false;
        }
    }
    while (want < wanted.size() && wanted[want] == '*')
        ++want;
    return want == wanted.size();
}
