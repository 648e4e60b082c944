// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/VariableTable.h"

#include "language/Vocabulary.h"

std::int32_t VariableTable::Slots::slot(std::string_view name, TextPool& pool)
{
    const auto known = slotOf.find(name);
    if (known != slotOf.end())
        return known->second;
    names.push_back(pool.intern(name));
    const auto slot = static_cast<std::int32_t>(names.size()) - 1;
    slotOf.emplace(*names.back(), slot);
    return slot;
}

std::optional<ZBLVarExp> VariableTable::Parse(std::string_view word, TextPool& pool)
{
    const OperandShape shape(word);
    if (shape.kind != OperandKind::Variable || !shape.isComplete)
        return std::nullopt;
    return variable(shape, pool);
}

ZBLVarExp VariableTable::variable(const OperandShape& shape, TextPool& pool)
{
    const ValueKind kind = findWord<VariablePrefix>(shape.first)->kind;
    Slots& slots = kind == ValueKind::Counter ? m_counters : m_texts;
    const std::int32_t slot = slots.slot(shape.second, pool);
    return {kind, slot, slots.names[static_cast<std::size_t>(slot)]};
}
