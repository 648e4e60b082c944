#pragma once

#include "language/ZBLObjectExp.h"
#include "language/ZBLReader.h"
#include "language/ZBLValueExp.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

/// The properties that objects have. A name that its object does not have is Unknown and reported when it is
/// read.
enum class Property : std::uint8_t {
    Unknown,
    // of sprites; the colours stand in the order of the map's colours
    X,
    Y,
    Z,
    Speed,
    Class,
    Red,
    Orange,
    Yellow,
    Green,
    Cyan,
    Blue,
    Purple,
    // of the keyboard
    AnyKey,
    Key,
    // of the game
    Background,
    Music,
    Map,
};

/// An operand of a statement: one word, read once, evaluated each time that its statement runs.
class ZBLSimpleExp
{
public:
    enum class Kind : std::uint8_t {
        None = 0,
        Variable = 1,
        Literal = 2,
        Property = 3,
        Random = 4,
        ClassName = 5
    };

    /// Reads the word. Reports nothing (an unclosed text beeps): the statement words the message.
    bool Parse(std::string_view word, const ZBLReader& reader);
    /// The operand as written: a number, a text between quotes, a class name in upper case, "me.x",
    /// "random(1,6)".
    std::string toString() const;

    Kind kind() const { return m_kind; }
    const ZBLVarExp& variable() const { return m_variable; }
    const ZBLValueExp& value() const { return m_value; }
    const ZBLObjectExp& object() const { return m_object; }
    Property property() const { return m_property; }
    Text propertyName() const { return m_variable.name; }
    /// Property Key: the key's code, and a second one that counts as well; -1 for none.
    std::array<int, 2> keyCodes() const { return {m_keys[0], m_keys[1]}; }
    const ZBLSimpleExp& low() const { return (*m_range)[0]; }
    const ZBLSimpleExp& high() const { return (*m_range)[1]; }

private:
    bool parseProperty(std::string_view word, std::size_t dot, const ZBLReader& reader);
    bool parseRandom(std::string_view word, const ZBLReader& reader);

    Kind m_kind = Kind::None;
    Property m_property = Property::Unknown;
    ZBLObjectExp m_object;
    std::array<std::int16_t, 2> m_keys = {-1, -1};
    ZBLVarExp m_variable; ///< Property: only its name is used
    ZBLValueExp m_value;
    std::shared_ptr<const std::array<ZBLSimpleExp, 2>> m_range;
};
