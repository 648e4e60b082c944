// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/TextPool.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The kinds of values. The numbers are part of the language's model.
enum class ValueKind : std::uint8_t { None = 0, Text = 1, Counter = 2, ClassName = 3 };

/// A value of the language: a text, a counter (a 64-bit float) or the name of a class. Small, and copied
/// freely.
class ZBLValueExp
{
public:
    ValueKind type = ValueKind::None;
    double realVal = 0;       ///< when `type` is Counter
    Text stringVal = nullptr; ///< when `type` is Text or ClassName; never null then

    static ZBLValueExp counter(double number) { return {ValueKind::Counter, number, nullptr}; }
    static ZBLValueExp text(Text text) { return {ValueKind::Text, 0, text}; }
    static ZBLValueExp className(Text name) { return {ValueKind::ClassName, 0, name}; }

    /// Reads a literal word: a number (first character a sign, a point or a digit), a text between double
    /// quotes, or a class name. Nothing for an empty word and for a text that is not closed.
    static std::optional<ZBLValueExp> Parse(std::string_view word, TextPool& pool);

    /// Whether a literal word is read as a number, if only as 0.
    static bool startsNumber(std::string_view word);

    bool isCounter() const { return type == ValueKind::Counter; }
    bool isText() const { return type == ValueKind::Text; }
    bool isClassName() const { return type == ValueKind::ClassName; }

    /// As it is written in a program: a number, a text between double quotes, a class name in upper case.
    /// Nothing for a value that was never filled.
    std::optional<std::string> toString() const;
    /// Appends what toString gives; nothing for a value that was never filled.
    void appendTo(std::string& out) const;
    /// The bare text: without quotes, a class name in upper case. Nothing for a counter or an empty value.
    std::optional<std::string> toBasicString() const;

    bool operator==(const ZBLValueExp&) const = default;
};

/// A reference to a variable: its kind (Text or Counter, fixed by the prefix), its name without the prefix
/// and the place that it has among the program's variables of its kind.
struct ZBLVarExp {
    ValueKind type = ValueKind::None;
    std::int32_t slot = -1;
    Text name = nullptr;

    /// "counter$" or "text$" and the name.
    std::string toString() const;
};

/// One variable of a running program with its value.
struct ZBVariable {
    ZBLVarExp name;
    ZBLValueExp value;

    /// The name padded to 19 characters, "=" and the value.
    std::string toString() const;
};
