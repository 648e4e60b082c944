// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "headless/HeadlessPlayer.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// The words of a call, one after the other.
class ZblWords
{
public:
    explicit ZblWords(std::span<char*> words)
        : m_words(words)
    {
    }

    bool next(std::string& word)
    {
        if (m_at == m_words.size())
            return false;
        word = m_words[m_at++];
        return true;
    }
    template<typename Number> bool number(Number& value)
    {
        std::string word;
        return next(word) && parse(word, value);
    }
    /// A frame or a number of frames.
    template<typename Number> bool frames(Number& value) { return number(value) && value >= 0; }

    template<typename Number> static bool parse(std::string_view word, Number& number)
    {
        const auto result = std::from_chars(word.data(), word.data() + word.size(), number);
        return result.ec == std::errc() && result.ptr == word.data() + word.size();
    }

private:
    std::span<char*> m_words;
    std::size_t m_at = 0;
};

/// The boxes that "--trace=LIST" ticks. False where the list is none.
bool parseBoxes(std::string_view list, TraceBoxes& boxes);
inline constexpr std::string_view traceList = "--trace=";
inline constexpr const char* badTraceList = "--trace= takes frames, events and code, separated by commas";

// The commands: what stands behind them in a call. They return the exit status.
int zblRun(std::span<char*> words);
int zblReplay(std::span<char*> words);
int zblPins(const std::string& game);
