// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringListModel>

#include <string>
#include <vector>

/// The lines of the list of variables. Those that were not in an earlier list are set off in bold.
class VariableModel : public QStringListModel
{
    Q_OBJECT
public:
    using QStringListModel::QStringListModel;

    bool wouldChange(const std::vector<std::string>& lines, const std::vector<std::string>& before) const
    {
        return lines != m_lines || changesOf(lines, before) != m_changed;
    }
    void show(const std::vector<std::string>& lines, const std::vector<std::string>& before);

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    static std::vector<bool> changesOf(const std::vector<std::string>& lines,
                                       const std::vector<std::string>& before);

    std::vector<std::string> m_lines;
    std::vector<bool> m_changed; ///< by line
};
