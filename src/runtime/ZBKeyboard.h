#pragma once

#include <algorithm>
#include <array>

/// Which keys are held down, by virtual-key code. Codes outside 0 to 127 are not tracked.
class ZBKeyboard
{
public:
    void KeyDown(int keyCode, int /*shift*/) { set(keyCode, true); }
    void KeyUp(int keyCode, int /*shift*/) { set(keyCode, false); }
    bool isDown(int keyCode) const
    {
        return keyCode >= 0 && keyCode < keyCount && m_keys[static_cast<std::size_t>(keyCode)];
    }
    bool anyKey() const { return std::ranges::find(m_keys, true) != m_keys.end(); }

private:
    static constexpr int keyCount = 128;
    void set(int keyCode, bool down)
    {
        if (keyCode >= 0 && keyCode < keyCount)
            m_keys[static_cast<std::size_t>(keyCode)] = down;
    }

    std::array<bool, keyCount> m_keys{};
};
