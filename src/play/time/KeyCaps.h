// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include <map>
#include <vector>

class LineArray;
class QHBoxLayout;
class QToolButton;

/// The name of a key on its cap.
QString keyCapText(int code);
/// The keys that a program asks for by name, in rising order of their codes.
std::vector<int> keysOfProgram(const LineArray& lines);

/// A row of keycaps, those that are down pressed. A click presses or releases one.
class KeyCaps : public QWidget
{
    Q_OBJECT
public:
    explicit KeyCaps(QWidget* parent = nullptr);

    /// Caps for `known` keys and those that are down, which are shown pressed.
    void show(const std::vector<int>& known, const std::vector<int>& down);

Q_SIGNALS:
    void toggled(int code);

private:
    QToolButton* cap(int code);

    QHBoxLayout* m_row;
    std::map<int, QToolButton*> m_caps; ///< by code
};
