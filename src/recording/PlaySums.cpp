// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "recording/PlaySums.h"

#include <algorithm>
#include <limits>
#include <set>
#include <unordered_map>

namespace
{

constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::string_view counterPrefix = "counter$";
constexpr std::string_view textPrefix = "text$";

/// Every bit of a sum has a say in each of the highest six.
char letterOf(std::uint64_t value)
{
    value ^= value >> 33U;
    value *= 0xff51afd7ed558ccdU;
    value ^= value >> 33U;
    value *= 0xc4ceb9fe1a85ec53U;
    return letters[value >> 58U];
}

std::string sumOfLine(std::string_view line)
{
    Sum sum;
    sum.add(line);
    const char first = letterOf(sum.value());
    sum.addByte(0);
    return {first, letterOf(sum.value())};
}

void add(Sum& sum, Text text)
{
    sum.addByte(text ? 1 : 0);
    if (text)
        sum.add(std::string_view(*text));
}

void add(Sum& sum, const ZBSprite& sprite)
{
    add(sum, sprite.className);
    for (const double number : {sprite.x, sprite.y, sprite.z, sprite.direction, sprite.tag.realVal})
        sum.add(number);
    add(sum, sprite.tag.stringVal);
    sum.add(sprite.graphic ? std::string_view(sprite.graphic->getName()) : std::string_view());
    sum.addByte(sprite.hidden ? 1 : 0);
}

void addNames(std::vector<std::string>& names, std::string_view prefix, const std::vector<Text>& variables)
{
    for (const Text name : variables)
        names.push_back(std::string(prefix) + *name);
}

} // namespace

void appendSum(std::string& text, std::uint64_t value)
{
    for (unsigned shift = 64; shift > 0; shift -= 4)
        text += "0123456789abcdef"[(value >> (shift - 4)) & 15U];
}

std::uint64_t programSum(const LineArray& lines)
{
    Sum sum;
    for (int line = 1; line <= lines.upperBound(); ++line)
        sum.add(lines[line]);
    return sum.value();
}

std::string lineSums(const LineArray& lines)
{
    std::string sums;
    for (int line = 1; line <= lines.upperBound(); ++line)
        sums += sumOfLine(lines[line]);
    return sums;
}

std::vector<int> changedLines(const LineArray& lines, std::string_view older)
{
    const std::string sums = lineSums(lines);
    std::string_view newer = sums;
    // What stands before the first and behind the last difference has stayed as it was.
    int line = 1;
    for (; !newer.empty() && newer.substr(0, 2) == older.substr(0, 2); ++line) {
        newer.remove_prefix(2);
        older.remove_prefix(2);
    }
    while (!newer.empty() && !older.empty() &&
           newer.substr(newer.size() - 2) == older.substr(older.size() - 2)) {
        newer.remove_suffix(2);
        older.remove_suffix(2);
    }
    std::set<std::string_view> kept;
    for (std::size_t at = 0; at < older.size(); at += 2)
        kept.insert(older.substr(at, 2));
    std::vector<int> changed;
    const int first = line;
    for (std::size_t at = 0; at < newer.size(); at += 2, ++line)
        if (!kept.contains(newer.substr(at, 2)))
            changed.push_back(line);
    const bool isOnlyShorter = changed.empty() && older.size() > newer.size();
    if (isOnlyShorter && lines.upperBound() > 0)
        changed.push_back(std::min(first, lines.upperBound()));
    return changed;
}

std::vector<std::string> variableNames(const Program& program)
{
    const VariableTable& table = program.tree.variables();
    std::vector<std::string> names;
    addNames(names, counterPrefix, table.counters());
    addNames(names, textPrefix, table.texts());
    std::ranges::sort(names);
    return names;
}

bool isWayLetter(char c)
{
    return letters.find(c) != std::string_view::npos;
}

PlayWay::PlayWay(const Program& program, const std::vector<std::string>& variables)
{
    const VariableTable& table = program.tree.variables();
    std::unordered_map<std::string, Variable> there;
    for (std::size_t slot = 0; slot < table.counters().size(); ++slot)
        there[std::string(counterPrefix) + *table.counters()[slot]] = {.slot = slot, .isThere = true};
    for (std::size_t slot = 0; slot < table.texts().size(); ++slot)
        there[std::string(textPrefix) + *table.texts()[slot]] = {.slot = slot, .isThere = true};
    for (const std::string& name : variables) {
        m_variables.push_back(there[name]);
        m_variables.back().isCounter = name.starts_with(counterPrefix);
    }
}

char PlayWay::next(const RunState& run)
{
    m_sum.add(run.state);
    m_sum.addByte(run.inLoop ? 1 : 0);
    for (const Text name : {run.game.backgroundName, run.game.mapName})
        add(m_sum, name);
    m_sum.add(static_cast<std::uint64_t>(run.spriteCount));
    for (std::size_t i = 0; i < static_cast<std::size_t>(run.spriteCount); ++i)
        add(m_sum, run.sprites[i]);
    addVariables(run);
    return letterOf(m_sum.value());
}

/// One that this program does not have is like one that has not been set.
void PlayWay::addVariables(const RunState& run)
{
    for (const Variable& variable : m_variables) {
        if (!variable.isCounter)
            add(m_sum, variable.isThere ? run.variables.texts[variable.slot] : nullptr);
        else
            m_sum.add(variable.isThere ? run.variables.counters[variable.slot]
                                       : std::numeric_limits<double>::quiet_NaN());
    }
}
