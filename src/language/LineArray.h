// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The lines of a program text, numbered from 1 and normalised: comments (from ";" on) cut off, spaces
/// trimmed, lower case. Tabs stay. Only CR LF ends a line. Two line ends are appended to the text first, so
/// that its last line is complete and the array ends with at least one empty line. The text must be smaller
/// than 2 GiB.
class LineArray
{
public:
    LineArray() = default;
    explicit LineArray(std::string text);
    explicit LineArray(std::string_view text)
        : LineArray(std::string(text))
    {
    }
    explicit LineArray(const char* text)
        : LineArray(std::string(text))
    {
    }

    /// Number of the last line; 0 for an array that was never filled.
    int upperBound() const { return static_cast<int>(m_lines.size()); }
    /// Line `number`, an empty text outside 1 to upperBound().
    std::string_view operator[](int number) const
    {
        return number >= 1 && number <= upperBound() ? view(m_lines[static_cast<std::size_t>(number) - 1])
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
    /// A part of the text, or, from its end on, of the lines that are kept aside.
    struct Part {
        std::uint32_t start = 0;
        std::uint32_t size = 0;
    };
    /// A line whose lower-case form need not take as many bytes as what was written.
    struct NonAsciiLine {
        std::uint32_t lowerStart; ///< as in Part
        Part written;             ///< within the text, as long as the lower-case form in characters
    };

    void cutIntoLines();
    void addLine(std::size_t start, std::size_t end, bool isAscii);
    Part lowerAside(Part line);
    Part written(Part line) const;
    std::string_view view(Part part) const
    {
        return part.start < m_text.size()
                   ? std::string_view(m_text.data() + part.start, part.size)
                   : std::string_view(m_aside.data() + (part.start - m_text.size()), part.size);
    }
    void matchBlocks();

    std::string m_text; ///< only its ASCII letters are lower-cased
    std::string m_aside;
    std::vector<NonAsciiLine> m_nonAscii; ///< in the order of their lines
    std::vector<Part> m_lines;
    std::vector<std::int32_t> m_closingLines;
};
