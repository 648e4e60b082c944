// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/Vocabulary.h"

/// An object of the language, named by one of six words.
class ZBLObjectExp
{
public:
    using Name = ObjectName;

    ZBLObjectExp() = default;
    explicit ZBLObjectExp(const ObjectWord& word)
        : m_word(word)
    {
    }
    static std::optional<ZBLObjectExp> Parse(std::string_view word);

    Name name() const { return m_word.name; }
    std::string_view getName() const { return wordFor(m_word.name); }
    std::string_view toString() const { return getName(); }
    /// ME and IT are sprites.
    bool isSprite() const { return m_word.properties == PropertyOwner::Sprite; }
    PropertyOwner properties() const { return m_word.properties; }

private:
    ObjectWord m_word;
};
