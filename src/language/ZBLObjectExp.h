#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// An object of the language, named by one of six words.
class ZBLObjectExp
{
public:
    enum class Name : std::uint8_t { Me, It, Game, Keyboard, Mouse, Joystick };

    ZBLObjectExp() = default;
    explicit ZBLObjectExp(Name name)
        : m_name(name)
    {
    }
    static std::optional<ZBLObjectExp> Parse(std::string_view word);

    Name name() const { return m_name; }
    std::string_view getName() const;
    std::string_view toString() const { return getName(); }
    /// ME and IT are sprites.
    bool isSprite() const { return m_name == Name::Me || m_name == Name::It; }

private:
    Name m_name = Name::Me;
};
