// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractListModel>

#include <array>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

/// The last 500 lines of a run's history, each kept up to a length that no program comes near. Lines arrive
/// far faster than anybody can read: they wait in a ring of reused texts, and only publish() turns what is
/// still left of them into rows.
class HistoryModel : public QAbstractListModel
{
    Q_OBJECT
public:
    using QAbstractListModel::QAbstractListModel;

    static constexpr int limit = 500;
    /// What is to be said beside a line; the line itself stays as it was written.
    static constexpr int explanationRole = Qt::UserRole;

    void append(std::string_view line);
    void clear();
    /// Shows these lines, and what is to be said beside each, in the place of the history, which goes on
    /// behind them; nothing: the history again.
    void showInstead(std::optional<std::deque<QString>> lines, std::deque<QString> explanations);
    bool hasNews() const { return !m_instead && (m_cleared || m_waiting > 0); }
    /// How many of the rows publish() will take away at the top.
    int rowsToDrop() const;
    /// Makes rows of what has arrived since the last call.
    void publish();

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    const std::deque<QString>& rows() const { return m_instead ? *m_instead : m_rows; }

    std::deque<QString> m_rows;
    std::optional<std::deque<QString>> m_instead;
    std::deque<QString> m_explanations; ///< of the lines in its place
    std::array<std::string, limit> m_ring;
    int m_next = 0;    ///< where the next line goes in the ring
    int m_waiting = 0; ///< lines in the ring
    bool m_cleared = false;
};
