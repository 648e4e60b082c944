// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/spy/VariableModel.h"

#include "forms/Texts.h"

#include <QFont>

#include <set>
#include <string_view>

std::vector<bool> VariableModel::changesOf(const std::vector<std::string>& lines,
                                           const std::vector<std::string>& before)
{
    const std::multiset<std::string_view> known(before.begin(), before.end());
    std::vector<bool> changed;
    changed.reserve(lines.size());
    for (const std::string& line : lines)
        changed.push_back(!known.contains(line));
    return changed;
}

void VariableModel::show(const std::vector<std::string>& lines, const std::vector<std::string>& before)
{
    m_lines = lines;
    m_changed = changesOf(lines, before);
    QStringList texts;
    texts.reserve(static_cast<qsizetype>(lines.size()));
    for (const std::string& line : lines)
        texts.append(forms::fromUtf8(line));
    setStringList(texts);
}

QVariant VariableModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::FontRole || !index.isValid() || !m_changed[static_cast<std::size_t>(index.row())])
        return QStringListModel::data(index, role);
    QFont bold;
    bold.setBold(true);
    return bold;
}
