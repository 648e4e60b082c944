// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "recording/PlayFile.h"

#include "platform/Sum.h"
#include "recording/PlaySums.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace
{

constexpr std::string_view firstWords = "zorbino play ";
constexpr int format = 1;
constexpr std::string_view missing = "missing";
constexpr std::size_t mostFiles = 10'000;
constexpr std::size_t mostVariables = 100'000;

/// A text in one line.
std::string escaped(std::string_view text)
{
    std::string line;
    for (const char c : text) {
        if (c == '\\')
            line += "\\\\";
        else if (c == '\n')
            line += "\\n";
        else if (c == '\r')
            line += "\\r";
        else
            line += c;
    }
    return line;
}

std::optional<std::string> unescaped(std::string_view line)
{
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] != '\\') {
            text += line[i];
            continue;
        }
        if (++i == line.size())
            return std::nullopt;
        switch (line[i]) {
        case '\\':
            text += '\\';
            break;
        case 'n':
            text += '\n';
            break;
        case 'r':
            text += '\r';
            break;
        default:
            return std::nullopt;
        }
    }
    return text;
}

std::string digitsOf(std::uint64_t value)
{
    std::string digits;
    appendSum(digits, value);
    return digits;
}

/// A number that is written as it would be written here: no sign, blank or zero too many.
template<typename Number> bool takeNumber(std::string_view& line, Number& number)
{
    const auto result = std::from_chars(line.data(), line.data() + line.size(), number);
    if (result.ec != std::errc())
        return false;
    const auto length = static_cast<std::size_t>(result.ptr - line.data());
    const bool isPlain = line.substr(0, length) == std::to_string(number);
    line.remove_prefix(length);
    return isPlain;
}

template<typename Number> bool wholeLine(std::string_view line, Number& number)
{
    return takeNumber(line, number) && line.empty();
}

bool takeMark(std::string_view& line, char mark)
{
    if (!line.starts_with(mark))
        return false;
    line.remove_prefix(1);
    return true;
}

bool readSum(std::string_view digits, std::uint64_t& sum)
{
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), sum, 16);
    return result.ec == std::errc() && digits == digitsOf(sum);
}

/// "214+37": so many frames behind the last sum, 37 goes down; "214.3:17-37": while the statement on line 17
/// waited in the third block of that frame, it went up.
void appendKey(std::string& text, const KeyInput& key, std::int64_t from)
{
    text += std::to_string(key.time.tick - from);
    if (key.time.block != 0) {
        text += '.' + std::to_string(key.time.block);
        text += ':' + std::to_string(key.time.line);
    }
    text += key.down ? '+' : '-';
    text += std::to_string(key.code) + '\n';
}

bool readKey(std::string_view line, std::int64_t from, KeyInput& key)
{
    if (!takeNumber(line, key.time.tick) || key.time.tick < 1 || key.time.tick > PlayFile::stretch)
        return false;
    key.time.tick += from;
    if (takeMark(line, '.')) {
        const bool isRead =
            takeNumber(line, key.time.block) && takeMark(line, ':') && takeNumber(line, key.time.line);
        if (!isRead || key.time.block < 1 || key.time.line < 1)
            return false;
    }
    key.down = line.starts_with('+');
    return (takeMark(line, '+') || takeMark(line, '-')) && wholeLine(line, key.code);
}

/// Reads the lines of a play in the order in which they stand there.
class PlayReader
{
public:
    PlayReader(std::string_view text, std::string& fault)
        : m_text(text)
        , m_fault(fault)
    {
    }

    std::optional<PlayFile> read()
    {
        const bool isRead = readFormat() && endsWithLine() && readLabel() && readGame() && readFrames() &&
                            (!hasMore() || isOff("nothing more should stand here"));
        return isRead ? std::optional(std::move(m_play)) : std::nullopt;
    }

private:
    bool hasMore() const { return m_at < m_text.size(); }
    std::string_view ahead() const
    {
        const std::string_view rest = m_text.substr(m_at);
        const std::string_view line = rest.substr(0, rest.find('\n'));
        return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
    }
    std::string_view next()
    {
        const std::string_view line = ahead();
        m_at = std::min(m_text.find('\n', m_at), m_text.size() - 1) + 1;
        ++m_line;
        return line;
    }
    /// A line that begins with `word` comes next: what stands behind it.
    std::optional<std::string_view> take(std::string_view word)
    {
        const std::string_view line = hasMore() ? ahead() : std::string_view();
        if (!line.starts_with(word) || !line.substr(word.size()).starts_with(' '))
            return std::nullopt;
        return next().substr(word.size() + 1);
    }

    bool isOff(std::string_view what)
    {
        m_fault = "This play is damaged: line " + std::to_string(m_line) + ", ";
        m_fault += what;
        m_fault += '.';
        return false;
    }
    bool misses(std::string_view word)
    {
        ++m_line;
        return isOff("\"" + std::string(word) + "\" should stand here");
    }

    bool readFormat()
    {
        int number = 0;
        if (!m_text.starts_with(firstWords) ||
            !wholeLine(ahead().substr(std::min(firstWords.size(), ahead().size())), number)) {
            m_fault = "This is no play that Zorbino has kept.";
            return false;
        }
        next();
        if (number != format)
            m_fault = number > format ? "This play was kept by a newer Zorbino."
                                      : "This is no play that Zorbino has kept.";
        return number == format;
    }

    /// What has been cut off does not.
    bool endsWithLine()
    {
        if (m_text.ends_with('\n'))
            return true;
        m_fault = "This play is damaged: its end is missing.";
        return false;
    }

    bool readText(std::string_view word, std::string& text)
    {
        const auto line = take(word);
        if (!line)
            return misses(word);
        auto whole = unescaped(*line);
        if (!whole)
            return isOff("the text makes no sense");
        text = std::move(*whole);
        return true;
    }
    template<typename Number> bool readNumber(std::string_view word, Number& number)
    {
        const auto line = take(word);
        if (!line)
            return misses(word);
        return wholeLine(*line, number) || isOff("the number makes no sense");
    }
    bool readSumOf(std::string_view word, std::uint64_t& sum)
    {
        const auto line = take(word);
        if (!line)
            return misses(word);
        return readSum(*line, sum) || isOff("the sum makes no sense");
    }

    bool readLabel()
    {
        PlayLabel& label = m_play.label;
        if (!readText("version", label.version) || !readText("title", label.title) ||
            !readText("kept", label.kept) || !readText("name", label.name))
            return false;
        const auto pinned = take("pinned");
        if (!pinned)
            return misses("pinned");
        label.isPinned = *pinned == "yes";
        return label.isPinned || *pinned == "no" || isOff("it should say yes or no");
    }

    bool readGame()
    {
        if (!readNumber("seed", m_play.seed) || !readSumOf("program", m_play.programSum))
            return false;
        const auto lines = take("lines");
        if (!lines)
            return misses("lines");
        if (lines->size() % 2 != 0 || !std::ranges::all_of(*lines, isWayLetter))
            return isOff("the sums of the program's lines make no sense");
        m_play.lineSums = *lines;
        while (const auto line = take("file"))
            if (!readFile(*line))
                return false;
        while (hasMore() && ahead().starts_with("variable ")) {
            if (!readText("variable", m_play.variables.emplace_back()))
                return false;
            if (m_play.variables.size() > mostVariables)
                return isOff("there are too many variables");
        }
        return true;
    }
    bool readFile(std::string_view line)
    {
        const std::size_t end = std::min(line.find(' '), line.size());
        const std::string_view sum = line.substr(0, end);
        auto name = unescaped(line.substr(std::min(end + 1, line.size())));
        if (!name || name->empty())
            return isOff("the name of the file makes no sense");
        PlayedFile& file = m_play.files.emplace_back();
        file.name = std::move(*name);
        if (sum != missing && !readSum(sum, file.sum.emplace()))
            return isOff("the sum makes no sense");
        return m_play.files.size() <= mostFiles || isOff("there are too many files");
    }

    bool readFrames()
    {
        if (!readNumber("frames", m_play.frames))
            return false;
        if (m_play.frames < 0 || m_play.frames > PlayFile::mostFrames)
            return isOff("there are too many frames");
        const std::size_t count = PlayFile::sumsOf(m_play.frames);
        for (std::size_t i = 0; i < count; ++i)
            if ((i > 0 && (!readKeys(m_play.frameOf(i - 1), m_play.frameOf(i)) || !readWay(i))) ||
                !readState(m_play.frameOf(i)))
                return false;
        return readEnd();
    }
    bool readKeys(std::int64_t from, std::int64_t to)
    {
        while (hasMore() && ahead().substr(0, 1) >= "1" && ahead().substr(0, 1) <= "9") {
            KeyInput key;
            const std::string_view line = next();
            const bool isInOrder = readKey(line, from, key) && key.time.tick <= to &&
                                   (m_play.keys.empty() || m_play.keys.back().time <= key.time);
            if (!isInOrder)
                return isOff("the key makes no sense");
            if (m_play.keys.size() == PlayFile::mostKeys)
                return isOff("there are too many keys");
            m_play.keys.push_back(key);
        }
        return true;
    }
    bool readWay(std::size_t sum)
    {
        const auto way = take("way");
        if (!way)
            return misses("way");
        const std::int64_t length = m_play.frameOf(sum) - m_play.frameOf(sum - 1);
        if (static_cast<std::int64_t>(way->size()) != length || !std::ranges::all_of(*way, isWayLetter))
            return isOff("the way makes no sense");
        m_play.way += *way;
        return true;
    }
    bool readState(std::int64_t frame)
    {
        return readSumOf("state " + std::to_string(frame), m_play.sums.emplace_back());
    }
    bool readEnd()
    {
        if (hasMore() && ahead() == "whole") {
            next();
            return true;
        }
        if (!readKeys(m_play.frames, m_play.frames + 1))
            return false;
        const auto line = take("mistake");
        if (!line)
            return misses("whole");
        std::string_view words = *line;
        RuntimeFault& mistake = m_play.mistake.emplace();
        const bool isRead = takeNumber(words, mistake.line) && mistake.line >= 0 && takeMark(words, ' ');
        auto text = isRead ? unescaped(words) : std::nullopt;
        if (!text)
            return isOff("the mistake makes no sense");
        mistake.message = std::move(*text);
        return true;
    }

    std::string_view m_text;
    std::string& m_fault;
    std::size_t m_at = 0;
    std::int64_t m_line = 0; ///< of the line that was read last
    PlayFile m_play;
};

/// The keys from `next` on that came up to a frame.
void appendKeys(std::string& text, const PlayFile& play, std::size_t& next, std::int64_t from,
                std::int64_t to)
{
    for (; next < play.keys.size() && play.keys[next].time.tick <= to; ++next)
        appendKey(text, play.keys[next], from);
}

void appendLine(std::string& text, std::string_view word, std::string_view rest)
{
    text += word;
    text += ' ';
    text += rest;
    text += '\n';
}

} // namespace

std::size_t PlayFile::sumsOf(std::int64_t frames)
{
    return static_cast<std::size_t>((frames + stretch - 1) / stretch + 1);
}

std::int64_t PlayFile::frameOf(std::size_t sum) const
{
    return std::min(static_cast<std::int64_t>(sum) * stretch, frames);
}

std::string playText(const PlayFile& play)
{
    std::string text(firstWords);
    text += std::to_string(format) + '\n';
    appendLine(text, "version", escaped(play.label.version));
    appendLine(text, "title", escaped(play.label.title));
    appendLine(text, "kept", escaped(play.label.kept));
    appendLine(text, "name", escaped(play.label.name));
    appendLine(text, "pinned", play.label.isPinned ? "yes" : "no");
    appendLine(text, "seed", std::to_string(play.seed));
    appendLine(text, "program", digitsOf(play.programSum));
    appendLine(text, "lines", play.lineSums);
    for (const PlayedFile& file : play.files)
        appendLine(text, "file",
                   (file.sum ? digitsOf(*file.sum) : std::string(missing)) + ' ' + escaped(file.name));
    for (const std::string& variable : play.variables)
        appendLine(text, "variable", escaped(variable));
    appendLine(text, "frames", std::to_string(play.frames));
    std::size_t nextKey = 0;
    for (std::size_t i = 0; i < play.sums.size(); ++i) {
        const std::int64_t to = play.frameOf(i);
        if (i > 0) {
            const std::int64_t from = play.frameOf(i - 1);
            appendKeys(text, play, nextKey, from, to);
            appendLine(text, "way",
                       std::string_view(play.way).substr(static_cast<std::size_t>(from),
                                                         static_cast<std::size_t>(to - from)));
        }
        appendLine(text, "state", std::to_string(to) + ' ' + digitsOf(play.sums[i]));
    }
    if (!play.mistake) {
        text += "whole\n";
        return text;
    }
    appendKeys(text, play, nextKey, play.frames, play.frames + 1);
    appendLine(text, "mistake", std::to_string(play.mistake->line) + ' ' + escaped(play.mistake->message));
    return text;
}

std::optional<PlayFile> readPlay(std::string_view text, std::string& fault)
{
    if (text.size() > PlayFile::mostBytes) {
        fault = "This play is too large.";
        return std::nullopt;
    }
    return PlayReader(text, fault).read();
}
