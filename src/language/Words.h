// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBParse.h"

/// The words of one line, one after the other. Behind the last one stands an empty word, at the line's end.
class Words
{
public:
    explicit Words(std::string_view line, std::size_t position = 0)
        : m_line(line)
        , m_position(position)
    {
    }
    std::string_view next() { return nextWord(m_line, m_position); }

private:
    std::string_view m_line;
    std::size_t m_position = 0;
};

/// The empty place behind the last character, where a fault misses something.
inline std::string_view endOf(std::string_view text)
{
    return text.substr(text.size());
}
