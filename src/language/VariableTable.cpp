#include "language/VariableTable.h"

#include "language/ZBParse.h"

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
    constexpr std::string_view counterPrefix = "counter$";
    constexpr std::string_view textPrefix = "text$";
    const auto variable = [&](ValueKind kind, Slots& slots, std::string_view name) {
        const std::int32_t slot = slots.slot(name, pool);
        return ZBLVarExp{kind, slot, slots.names[static_cast<std::size_t>(slot)]};
    };
    if (word.size() > counterPrefix.size() && startsWith(word, counterPrefix))
        return variable(ValueKind::Counter, m_counters, word.substr(counterPrefix.size()));
    if (word.size() > textPrefix.size() && startsWith(word, textPrefix))
        return variable(ValueKind::Text, m_texts, word.substr(textPrefix.size()));
    return std::nullopt;
}
