#include "language/ZBLObjectExp.h"

#include <array>

namespace
{
constexpr std::array<std::string_view, 6> names = {"me", "it", "game", "keyboard", "mouse", "joystick"};
}

std::optional<ZBLObjectExp> ZBLObjectExp::Parse(std::string_view word)
{
    for (std::size_t i = 0; i < names.size(); ++i)
        if (names[i] == word)
            return ZBLObjectExp(static_cast<Name>(i));
    return std::nullopt;
}

std::string_view ZBLObjectExp::getName() const
{
    return names[static_cast<std::size_t>(m_name)];
}
