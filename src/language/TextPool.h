// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>

/// A text of a program. Every text is kept once, so that two are equal exactly when their addresses are.
using Text = const std::string*;

/// Lets a table of strings be searched for a text without making a string of it.
struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
};

/// Keeps every text of one program and of the runs of it. Addresses stay valid as long as the pool lives.
class TextPool
{
public:
    Text intern(std::string_view text)
    {
        const auto found = m_texts.find(text);
        return found != m_texts.end() ? &*found : &*m_texts.emplace(text).first;
    }

    /// What programs read of something that holds or does not: "true" or "False".
    Text truth(bool holds) const { return holds ? m_true : m_false; }

private:
    std::unordered_set<std::string, TextHash, std::equal_to<>> m_texts;
    Text m_true = intern("true");
    Text m_false = intern("False");
};
