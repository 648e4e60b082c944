// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBParse.h"

#include <cstdint>
#include <string_view>

/// What a word can be where a value is wanted. The numbers are part of the language's model.
enum class OperandKind : std::uint8_t {
    None = 0,
    Variable = 1,
    Literal = 2,
    Property = 3,
    Random = 4,
    ClassName = 5
};

/// An operand word cut into its parts. The reader and the scanner of the editor look at words through this.
struct OperandShape {
    OperandKind kind = OperandKind::None;
    /// False where something is missing: the name of a variable, a bound or bracket of random, the quote that
    /// closes a text. Bounds are words of their own and not looked into.
    bool isComplete = false;
    bool hasComma = false;   ///< of random: there are two bounds
    std::string_view first;  ///< variable: the prefix; property: the object; random: the low bound; else all
    std::string_view second; ///< variable: the name; property: its name; random: the high bound

    explicit OperandShape(std::string_view word);

    bool isText() const { return kind == OperandKind::Literal && startsWith(first, "\""); }

private:
    bool cutNamed(std::string_view word);
};
