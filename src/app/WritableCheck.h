// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class Installation;

/// Looks, before somebody paints for an hour, whether the games of an installation can be saved at all.
class WritableCheck
{
public:
    explicit WritableCheck(const Installation& installation);

    bool isWritable() const { return m_isWritable; }
    /// What a child is told where nothing can be saved.
    QString message() const;

private:
    QString m_folder;
    bool m_isWritable;
};
