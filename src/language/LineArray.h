// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

/// The lines of a program text, numbered from 1 and normalised: comments (from ";" on) cut off, spaces
/// trimmed, lower case. Tabs stay. Only CR LF ends a line. Two line ends are appended to the text first, so
/// that its last line is complete and the array ends with at least one empty line.
class LineArray
{
public:
    LineArray() = default;
    explicit LineArray(std::string_view text);
    LineArray(const LineArray&) = delete; // the lines point into the text
    LineArray& operator=(const LineArray&) = delete;

    /// Number of the last line; 0 for an array that was never filled.
    int upperBound() const { return static_cast<int>(m_lines.size()); }
    /// Line `number`, an empty text outside 1 to upperBound().
    std::string_view operator[](int number) const
    {
        return number >= 1 && number <= upperBound() ? m_lines[static_cast<std::size_t>(number) - 1]
                                                     : std::string_view();
    }
    bool opensBlock(int number) const { return (*this)[number].ends_with('{'); }
    bool closesBlock(int number) const { return (*this)[number].starts_with('}'); }
    /// The line that closes the block opened on line `number`, or -1.
    int closingLine(int number) const { return m_closingLines[static_cast<std::size_t>(number) - 1]; }
    /// Where byte `position` of line `number` stands in the line as it was written: a column in bytes, from
    /// 1. The line must not be empty.
    std::size_t columnOf(int number, std::size_t position) const;

private:
    void cutIntoLines();
    std::string_view lowerAside(std::string_view line);
    void matchBlocks();

    /// A line whose lower-case form need not take as many bytes as what was written.
    struct NonAsciiLine {
        std::string lower;
        std::string_view written; ///< within the text, as long as `lower` in characters
    };
    std::string_view written(std::string_view line) const;

    std::string m_text; ///< only its ASCII letters are lower-cased
    std::deque<NonAsciiLine> m_nonAscii;
    std::vector<std::string_view> m_lines;
    std::vector<std::int32_t> m_closingLines;
};
