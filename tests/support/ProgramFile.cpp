// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "support/ProgramFile.h"
#include "platform/DiskFile.h"

#include "platform/NumberText.h"
#include "platform/TextFile.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace
{

/// Cuts `text` at every `separator`.
std::vector<std::string_view> cut(std::string_view text, std::string_view separator)
{
    std::vector<std::string_view> parts;
    for (std::size_t end = 0; end != std::string_view::npos;) {
        end = text.find(separator);
        parts.push_back(text.substr(0, end));
        text.remove_prefix(
            std::min(text.size(), end == std::string_view::npos ? end : end + separator.size()));
    }
    return parts;
}

class Reader
{
public:
    Reader() { m_program.options.frames = 3; }

    void readLine(std::string_view line, int number)
    {
        const std::size_t comment = line.find(';');
        if (comment == std::string_view::npos)
            return;
        const std::string_view words = trimBlanks(line.substr(comment + 1));
        if (words.starts_with("= ")) {
            m_program.expectations.push_back({'=', number, 0, std::string(words.substr(2))});
        } else if (trimBlanks(line.substr(0, comment)).empty() && readOption(words)) {
            return;
        } else if (!words.empty() && std::string_view("!?>-").find(words.front()) != std::string_view::npos) {
            for (const std::string_view part : cut(words, " ; "))
                readExpectation(part, number);
        }
    }

    ProgramFile take() { return std::move(m_program); }
    bool isEach() const { return m_each; }

private:
    bool readOption(std::string_view words)
    {
        const std::size_t space = std::min(words.find(' '), words.size());
        const std::string_view option = words.substr(0, space);
        const std::string_view value = trimBlanks(words.substr(space));
        HeadlessOptions& options = m_program.options;
        if (option == "frames") {
            options.frames = wholeNumber(value).value();
        } else if (option == "trace") {
            options.trace = true;
            options.boxes = {value.find("frames") != value.npos, value.find("events") != value.npos,
                             value.find("code") != value.npos};
        } else if (option == "dump") {
            options.dump = true;
        } else if (option == "seed") {
            options.seed = static_cast<std::uint64_t>(wholeNumber(value).value());
        } else if (option == "key") {
            int badLine = 0;
            if (!parseKeys(value, m_program.keys, badLine))
                throw std::runtime_error("no key line: " + std::string(words));
        } else if (option == "show-map") {
            options.showMap = true;
        } else if (option == "each") {
            m_each = true;
        } else {
            return false;
        }
        return true;
    }

    void readExpectation(std::string_view part, int number)
    {
        ProgramFile::Expectation expectation{part.front(), number, 0, ""};
        part.remove_prefix(1);
        if (part.starts_with("+")) {
            expectation.lastLine = number + static_cast<int>(leadingNumber(part));
            part.remove_prefix(std::min(part.find(' '), part.size()));
        }
        expectation.text = trimBlanks(part);
        m_program.expectations.push_back(expectation);
    }

    ProgramFile m_program;
    bool m_each = false;
};

bool isMessage(const ProgramFile::Expectation& expectation)
{
    return expectation.mark == '!' || expectation.mark == '?';
}

bool opensBlock(std::string_view line)
{
    return trimBlanks(line.substr(0, line.find(';'))).ends_with('{');
}

/// The program once for each of its messages: the lines of the other messages are left empty, an if with its
/// end.
std::vector<ProgramFile> oneForEach(const ProgramFile& all)
{
    std::vector<ProgramFile> programs;
    int lastLine = 0;
    for (const auto& kept : all.expectations) {
        if (kept.line == lastLine)
            continue;
        lastLine = kept.line;
        ProgramFile program = all;
        std::erase_if(program.expectations, [&](const auto& other) { return other.line != kept.line; });
        program.text.clear();
        int number = 0;
        bool endsOther = false;
        for (const std::string_view line : splitLines(all.text)) {
            ++number;
            const bool isOther =
                endsOther || std::ranges::any_of(all.expectations, [&](const auto& other) {
                    return isMessage(other) && other.line == number && other.line != kept.line;
                });
            endsOther = isOther && opensBlock(line);
            program.text.append(isOther ? "" : line).append("\n");
        }
        programs.push_back(std::move(program));
    }
    return programs;
}

} // namespace

std::vector<ProgramFile> ProgramFile::read(const std::filesystem::path& file)
{
    const auto bytes = readFileBytes(file, 1U << 20U);
    if (!bytes)
        throw std::runtime_error("cannot read " + file.string());
    std::vector<ProgramFile> programs;
    std::string title;
    Reader reader;
    std::string text;
    const auto finish = [&] {
        ProgramFile program = reader.take();
        program.title = title;
        program.text = text;
        if (reader.isEach())
            std::ranges::move(oneForEach(program), std::back_inserter(programs));
        else if (!title.empty() || !program.expectations.empty())
            programs.push_back(std::move(program));
    };
    int number = 0;
    for (const std::string_view line : splitLines(*bytes)) {
        ++number;
        if (line.starts_with(";;;;")) {
            finish();
            reader = Reader();
            title = trimBlanks(line.substr(4));
            text.assign(static_cast<std::size_t>(number), '\n');
            continue;
        }
        text.append(line).append("\n");
        reader.readLine(line, number);
    }
    finish();
    return programs;
}
