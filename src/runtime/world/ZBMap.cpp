// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/world/ZBMap.h"

#include "platform/FileSource.h"
#include "platform/NumberText.h"
#include "platform/Rounding.h"
#include "platform/TextFile.h"
#include "runtime/world/MapPainter.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace
{

/// Two bytes each in the largest file that is read.
constexpr std::uint64_t mostSquares = FileSource::maximumFileSize / 2;

bool isBreak(char c)
{
    return c == '\r' || c == '\n';
}

std::optional<std::int32_t> fitting(double value)
{
    const double rounded = roundHalfEven(value);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max()))
        return std::nullopt;
    return static_cast<std::int32_t>(rounded);
}

/// The number that a line of the head begins with, 0 where there is none.
std::optional<std::int32_t> dimension(std::string_view line)
{
    return fitting(leadingNumber(trimBlanks(line)));
}

/// Whether the whole of `text` is a number; "inf" and "nan" have no digits and are none.
bool isNumber(std::string_view text)
{
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    double number{};
    const char* const end = text.data() + text.size();
    return text.find_first_of("0123456789") != std::string_view::npos &&
           std::from_chars(text.data(), end, number).ptr == end;
}

std::optional<std::int32_t> packedSquare(std::string_view item)
{
    if (const auto whole = wholeNumber(item)) // as good as always
        return whole;
    item = trimBlanks(item);
    if (!isNumber(item))
        return std::nullopt;
    return fitting(leadingNumber(item));
}

/// A text that stays on one line of the file.
void appendLine(std::string& out, std::string_view text)
{
    std::ranges::transform(text, std::back_inserter(out), [](char c) { return isBreak(c) ? ' ' : c; });
    out += NewLine;
}

void appendDimension(std::string& out, int value)
{
    if (value >= 0)
        out += ' ';
    appendLine(out, std::to_string(value));
}

} // namespace

/// Walks through the text of a map file, line by line and then number by number.
class MapReader
{
public:
    explicit MapReader(std::string_view text)
        : m_rest(text)
    {
    }

    std::optional<std::string_view> line() { return next(isBreak); }
    std::optional<std::string_view> item()
    {
        return next([](char c) { return c == ',' || isBreak(c); });
    }

private:
    template<typename IsEnd> std::optional<std::string_view> next(IsEnd isEnd)
    {
        if (m_rest.empty())
            return std::nullopt;
        const auto end = std::find_if(m_rest.begin(), m_rest.end(), isEnd);
        const std::size_t length = static_cast<std::size_t>(end - m_rest.begin());
        const std::string_view found = m_rest.substr(0, length);
        const bool isPair = m_rest.substr(length, 2) == NewLine;
        m_rest.remove_prefix(std::min(m_rest.size(), length + (isPair ? 2U : 1U)));
        return found;
    }

    std::string_view m_rest;
};

void MapSquare::setField(int index, bool value)
{
    const unsigned bit = 1U << static_cast<unsigned>(index);
    m_flags = static_cast<std::uint8_t>(value ? m_flags | bit : m_flags & ~bit);
}

void ZBMap::Create(int columnCount, int rowCount)
{
    columns = columnCount;
    rows = rowCount;
    name.clear();
    m_squares.clear();
}

bool ZBMap::hasGrid() const
{
    return columns > 0 && rows > 0 &&
           static_cast<std::uint64_t>(columns) * static_cast<unsigned>(rows) <= mostSquares;
}

MapSquare* ZBMap::entry(int index)
{
    if (!hasGrid() || index < 0 || index >= columns * rows)
        return nullptr;
    const std::size_t place = static_cast<std::size_t>(index);
    if (place >= m_squares.size())
        m_squares.resize(place + 1);
    return &m_squares[place];
}

void ZBMap::set_offset(int index, int color, bool value)
{
    if (MapSquare* const square = entry(index))
        square->setField(color, value);
}

void ZBMap::set_offset_all(int index, bool /*value*/)
{
    if (MapSquare* const square = entry(index))
        *square = MapSquare();
}

void ZBMap::set_legend(int index, std::string_view text)
{
    m_legend[static_cast<std::size_t>(index)] = text;
}

std::string_view ZBMap::get_legend(int index) const
{
    return m_legend[static_cast<std::size_t>(index)];
}

std::string ZBMap::toText() const
{
    std::string out;
    appendLine(out, name);
    appendLine(out, m_background);
    appendDimension(out, columns);
    appendDimension(out, rows);
    for (const std::string& text : m_legend)
        appendLine(out, text);
    if (hasGrid())
        for (int index = 0; index < columns * rows; ++index)
            appendLine(out, std::to_string(square(index).ToLong()));
    return out;
}

bool ZBMap::fromText(std::string_view text)
{
    MapReader reader(text);
    if (!readHead(reader) || columns <= 0 || rows <= 0)
        return false;
    Create(columns, rows);
    return readSquares(reader);
}

bool ZBMap::readHead(MapReader& reader)
{
    const auto readText = [&reader](std::string& to) {
        const auto line = reader.line();
        to = line.value_or(to);
        return line.has_value();
    };
    const auto readNumber = [&reader](int& to) {
        const auto line = reader.line();
        const auto number = line ? dimension(*line) : std::nullopt;
        to = number.value_or(to);
        return number.has_value();
    };
    return readText(name) && readText(m_background) && readNumber(columns) && readNumber(rows) &&
           std::ranges::all_of(m_legend, readText);
}

bool ZBMap::readSquares(MapReader& reader)
{
    const std::uint64_t count = static_cast<std::uint64_t>(columns) * static_cast<std::uint64_t>(rows);
    for (std::uint64_t index = 0; index < count; ++index) {
        const auto item = reader.item();
        const auto packed = item ? packedSquare(*item) : std::nullopt;
        if (!packed)
            return false;
        m_squares.emplace_back().setFromLong(*packed);
    }
    return true;
}

bool ZBMap::operator==(const ZBMap& other) const
{
    const auto [shorter, longer] = std::minmax({m_squares.size(), other.m_squares.size()});
    const auto& all = m_squares.size() == longer ? m_squares : other.m_squares;
    const auto end = all.begin() + static_cast<std::ptrdiff_t>(shorter);
    return columns == other.columns && rows == other.rows && name == other.name &&
           m_background == other.m_background && m_legend == other.m_legend &&
           std::equal(m_squares.begin(), m_squares.begin() + static_cast<std::ptrdiff_t>(shorter),
                      other.m_squares.begin()) &&
           std::all_of(end, all.end(), [](const MapSquare& square) { return square == MapSquare(); });
}

void ZBMap::Draw(Surface& picture, int layer) const
{
    if (columns > 0 && rows > 0)
        MapPainter(picture, m_squares, columns, rows, layer).paint();
}
