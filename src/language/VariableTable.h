// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/OperandShape.h"
#include "language/TextPool.h"
#include "language/ZBLValueExp.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The variables that a program names, each with its slot among those of its kind.
class VariableTable
{
public:
    /// Reads "counter$name" or "text$name"; nothing for any other word.
    std::optional<ZBLVarExp> Parse(std::string_view word, TextPool& pool);
    /// The variable of a complete word of that shape.
    ZBLVarExp variable(const OperandShape& shape, TextPool& pool);

    const std::vector<Text>& counters() const { return m_counters.names; }
    const std::vector<Text>& texts() const { return m_texts.names; }

private:
    struct Slots {
        std::vector<Text> names;
        std::unordered_map<std::string_view, std::int32_t> slotOf;
        std::int32_t slot(std::string_view name, TextPool& pool);
    };
    Slots m_counters;
    Slots m_texts;
};
