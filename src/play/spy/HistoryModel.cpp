// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/spy/HistoryModel.h"

#include "forms/Texts.h"

#include <algorithm>

namespace
{

constexpr std::size_t longestLine = 100'000; // 500 lines of a megabyte would fill the memory

} // namespace

void HistoryModel::append(std::string_view line)
{
    m_ring[static_cast<std::size_t>(m_next)].assign(line.substr(0, longestLine));
    m_next = (m_next + 1) % limit;
    m_waiting = std::min(m_waiting + 1, limit);
}

void HistoryModel::clear()
{
    m_waiting = 0;
    m_cleared = true;
}

void HistoryModel::showInstead(std::optional<std::deque<QString>> lines, std::deque<QString> explanations)
{
    beginResetModel();
    m_instead = std::move(lines);
    m_explanations = std::move(explanations);
    endResetModel();
}

int HistoryModel::rowsToDrop() const
{
    const int rows = static_cast<int>(m_rows.size());
    return m_cleared ? rows : std::clamp(rows + m_waiting - limit, 0, rows);
}

void HistoryModel::publish()
{
    if (const int drop = rowsToDrop(); drop > 0) {
        beginRemoveRows({}, 0, drop - 1);
        m_rows.erase(m_rows.begin(), m_rows.begin() + drop);
        endRemoveRows();
    }
    m_cleared = false;
    if (m_waiting == 0)
        return;
    const int rows = static_cast<int>(m_rows.size());
    beginInsertRows({}, rows, rows + m_waiting - 1);
    for (int i = limit + m_next - m_waiting; m_waiting > 0; ++i, --m_waiting)
        m_rows.push_back(forms::fromUtf8(m_ring[static_cast<std::size_t>(i % limit)]));
    endInsertRows();
}

int HistoryModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows().size());
}

QVariant HistoryModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto row = static_cast<std::size_t>(index.row());
    if ((role == explanationRole || role == Qt::ToolTipRole) && m_instead && row < m_explanations.size())
        return m_explanations[row];
    if (role != Qt::DisplayRole)
        return {};
    return rows()[row];
}
