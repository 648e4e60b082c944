// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <unordered_map>
#include <vector>

class QKeyEvent;

namespace forms
{

/// The virtual-key code of a key: letters 65 to 90, the digit row 48 to 57, the arrows 37 to 40, and so on; 0
/// for a key that has none.
int virtualKeyCode(const QKeyEvent& event);

/// The shift state that goes with a key: 1 Shift, 2 Ctrl, 4 Alt, added up.
int shiftState(const QKeyEvent& event);

/// Which keys are down. A key is released under the code with which it was pressed, whatever Shift does in
/// between, and the repetitions of a held key are left out.
class HeldKeys
{
public:
    /// The code of a key that has just gone down; 0 where nothing has changed.
    int press(const QKeyEvent& event);
    /// The code of a key that has just gone up; 0 where nothing has changed.
    int release(const QKeyEvent& event);
    /// All keys that are down: the window will not see them go up.
    std::vector<int> releaseAll();

private:
    std::unordered_map<quint64, int> m_codes; ///< by physical key
};

/// Tells the repetitions of a held key from its first press. X11 sends a release ahead of every repetition,
/// at the very same time, and the toolkit does not always see that the two belong together.
class KeyRepeats
{
public:
    void release(const QKeyEvent& event);
    bool isRepeat(const QKeyEvent& press) const;

private:
    int m_key = 0;
    quint64 m_time = 0;
};

} // namespace forms
