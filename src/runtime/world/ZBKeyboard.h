// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// Which keys are held down, by virtual-key code. Codes outside 0 to 127 are not tracked.
class ZBKeyboard
{
public:
    static constexpr int keyCount = 128;

    void KeyDown(int keyCode) { set(keyCode, true); }
    void KeyUp(int keyCode) { set(keyCode, false); }
    bool isDown(int keyCode) const { return isTracked(keyCode) && (word(keyCode) & bit(keyCode)) != 0; }
    bool anyKey() const { return (m_keys[0] | m_keys[1]) != 0; }

private:
    static bool isTracked(int keyCode) { return keyCode >= 0 && keyCode < keyCount; }
    static std::uint64_t bit(int keyCode) { return std::uint64_t{1} << (keyCode & 63); }
    const std::uint64_t& word(int keyCode) const { return m_keys[static_cast<std::size_t>(keyCode >> 6)]; }
    void set(int keyCode, bool down)
    {
        if (!isTracked(keyCode))
            return;
        std::uint64_t& keys = m_keys[static_cast<std::size_t>(keyCode >> 6)];
        keys = down ? keys | bit(keyCode) : keys & ~bit(keyCode);
    }

    std::array<std::uint64_t, 2> m_keys{}; ///< a bit a key
};
