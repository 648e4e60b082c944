#include "language/ZBLSimpleExp.h"

#include <algorithm>
#include <utility>

namespace
{

struct PropertyName {
    std::string_view name;
    Property property;
};

constexpr std::array spriteProperties = {
    PropertyName{"x", Property::X},           PropertyName{"y", Property::Y},
    PropertyName{"z", Property::Z},           PropertyName{"speed", Property::Speed},
    PropertyName{"class", Property::Class},   PropertyName{"red", Property::Red},
    PropertyName{"orange", Property::Orange}, PropertyName{"yellow", Property::Yellow},
    PropertyName{"green", Property::Green},   PropertyName{"cyan", Property::Cyan},
    PropertyName{"blue", Property::Blue},     PropertyName{"purple", Property::Purple},
};

constexpr std::array gameProperties = {
    PropertyName{"background", Property::Background},
    PropertyName{"music", Property::Music},
    PropertyName{"map", Property::Map},
};

struct KeyName {
    std::string_view name;
    std::int16_t code;
};

// Virtual-key codes, as key events carry them.
constexpr std::array keyNames = {
    KeyName{"left", 37}, KeyName{"up", 38}, KeyName{"right", 39}, KeyName{"down", 40}, KeyName{"space", 32},
};

template<typename Table> Property lookUp(const Table& table, std::string_view name)
{
    const auto row = std::ranges::find(table, name, &PropertyName::name);
    return row != table.end() ? row->property : Property::Unknown;
}

/// Number of bytes of the first character of a UTF-8 text.
std::size_t characterLength(std::string_view text)
{
    std::size_t length = 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xc0U) == 0x80U)
        ++length;
    return length;
}

} // namespace

bool ZBLSimpleExp::Parse(std::string_view word, const ZBLReader& reader)
{
    if (startsWith(word, "counter$") || startsWith(word, "text$")) {
        const auto variable = reader.variables.Parse(word, reader.pool);
        if (!variable)
            return false;
        m_kind = Kind::Variable;
        m_variable = *variable;
        return true;
    }
    const std::size_t dot = word.find('.');
    if (dot != std::string_view::npos && ZBLObjectExp::Parse(word.substr(0, dot)))
        return parseProperty(word, dot, reader);
    if (startsWith(word, "random("))
        return parseRandom(word, reader);
    const auto literal = ZBLValueExp::Parse(word, reader.pool);
    if (!literal) {
        if (!word.empty())
            reader.reporter.beep(); // a text that is not closed
        return false;
    }
    m_value = *literal;
    m_kind = m_value.isClassName() ? Kind::ClassName : Kind::Literal;
    return true;
}

bool ZBLSimpleExp::parseProperty(std::string_view word, std::size_t dot, const ZBLReader& reader)
{
    m_kind = Kind::Property;
    m_object = *ZBLObjectExp::Parse(word.substr(0, dot));
    const std::string_view name = word.substr(dot + 1);
    m_variable.name = reader.pool.intern(name);
    if (m_object.isSprite()) {
        m_property = lookUp(spriteProperties, name);
    } else if (m_object.name() == ZBLObjectExp::Name::Game) {
        m_property = lookUp(gameProperties, name);
    } else if (m_object.name() == ZBLObjectExp::Name::Keyboard && !name.empty()) {
        const auto key = std::ranges::find(keyNames, name, &KeyName::name);
        if (name == "anykey") {
            m_property = Property::AnyKey;
        } else if (key != keyNames.end()) {
            m_property = Property::Key;
            m_keys[0] = key->code;
        } else if (characterLength(name) == name.size()) {
            m_property = Property::Key;
            const auto c = static_cast<unsigned char>(name.front());
            if (name.size() == 1 && c < 128)
                m_keys[0] = c;
            if (name.size() == 1 && c >= 'a' && c <= 'z')
                m_keys[1] = static_cast<std::int16_t>(c - 'a' + 'A'); // the code that the letter's key sends
        }
    }
    return true;
}

bool ZBLSimpleExp::parseRandom(std::string_view word, const ZBLReader& reader)
{
    m_kind = Kind::Random;
    const std::size_t open = word.find('(');
    const std::size_t comma = word.find(',', open);
    if (comma == std::string_view::npos)
        return false;
    auto range = std::make_shared<std::array<ZBLSimpleExp, 2>>();
    if (!(*range)[0].Parse(word.substr(open + 1, comma - open - 1), reader))
        return false;
    const std::size_t close = word.find(')', comma);
    if (close == std::string_view::npos)
        return false;
    if (!(*range)[1].Parse(word.substr(comma + 1, close - comma - 1), reader))
        return false;
    m_range = std::move(range);
    return true;
}

std::string ZBLSimpleExp::toString() const
{
    switch (m_kind) {
    case Kind::Variable:
        return m_variable.toString();
    case Kind::Literal:
    case Kind::ClassName:
        return m_value.toString().value_or(std::string());
    case Kind::Property:
        return std::string(m_object.getName()) + "." + *m_variable.name;
    case Kind::Random:
        return "random(" + low().toString() + "," + high().toString() + ")";
    case Kind::None:
        break;
    }
    return {};
}
