// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QFrame>

class QComboBox;

/// The panel that asks how large a new map is to be.
class NewMapPanel : public QFrame
{
    Q_OBJECT
public:
    explicit NewMapPanel(QWidget* parent);

    /// Comes up with the usual size.
    void ask();
    /// The squares along each side.
    int squares() const;
    void moveToMiddle();

Q_SIGNALS:
    void answered();

private:
    QComboBox* m_sizes;
};
