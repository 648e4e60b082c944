#include "runtime/ZBMap.h"

#include "platform/Installation.h"
#include "platform/NumberText.h"
#include "platform/Rounding.h"
#include "runtime/ZB.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <span>

namespace
{

/// Two bytes each in the largest file that is read.
constexpr std::uint64_t mostSquares = Installation::maximumFileSize / 2;
constexpr int stripePeriod = static_cast<int>(ColorTable.size());
constexpr Pixel nothingHere = 0; // no colour has this value: all of them are opaque

bool isBreak(char c)
{
    return c == '\r' || c == '\n';
}

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

bool isNumber(std::string_view text)
{
    double ignored = 0;
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), ignored);
    const bool hasDigit =
        text.find_first_of("0123456789") != std::string_view::npos; // "inf" and "nan" have none
    return hasDigit && end == text.data() + text.size() && error != std::errc::invalid_argument;
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

int edge(int extent, std::uint64_t index, int count)
{
    return static_cast<int>(roundHalfEven(extent * static_cast<double>(index) / count));
}

/// Draws a map row by row. A row is composed as one line of pixels, which is then laid over all picture lines
/// that the row covers. Rows and columns that are too fine to tell apart are composed together, so that the
/// time depends on the picture and only in one quick pass on the number of squares.
class MapPainter
{
public:
    MapPainter(Surface& picture, std::span<const MapSquare> squares, int columns, int rows, int layer)
        : m_picture(picture)
        , m_squares(squares)
        , m_columns(columns)
        , m_rows(rows)
        , m_layer(layer)
    {
    }

    void paint()
    {
        const std::uint64_t storedColumns =
            std::min<std::uint64_t>(m_squares.size(), static_cast<unsigned>(m_columns));
        m_edges.resize(storedColumns + 1);
        for (std::uint64_t column = 0; column <= storedColumns; ++column)
            m_edges[column] = edge(m_picture.width(), column, m_columns);
        const std::uint64_t storedRows = std::min<std::uint64_t>(
            (m_squares.size() + static_cast<unsigned>(m_columns) - 1) / static_cast<unsigned>(m_columns),
            static_cast<unsigned>(m_rows));
        for (std::uint64_t row = 0; row < storedRows;)
            row = paintBand(row, storedRows);
    }

private:
    int rowEdge(std::uint64_t row) const { return edge(m_picture.height(), row, m_rows); }

    /// Paints `first` and the rows after it that cover the same picture lines; returns the row after them.
    std::uint64_t paintBand(std::uint64_t first, std::uint64_t storedRows)
    {
        const int top = rowEdge(first);
        const int bottom = rowEdge(first + 1);
        std::uint64_t end = first + 1;
        while (end < storedRows && rowEdge(end) == top && rowEdge(end + 1) == bottom)
            ++end;

        m_line.assign(static_cast<std::size_t>(m_picture.width()), nothingHere);
        m_drawn.assign(m_edges.size(), 0);
        for (std::uint64_t row = end; row-- > first;) // backwards: what is drawn last is what is seen
            composeRow(row);
        for (int y = top; y <= std::min(bottom, m_picture.height() - 1); ++y) {
            const std::span<Pixel> to = m_picture.row(y);
            for (std::size_t x = 0; x < to.size(); ++x)
                to[x] = m_line[x] == nothingHere ? to[x] : m_line[x];
        }
        return end;
    }

    void composeRow(std::uint64_t row)
    {
        const std::uint64_t start = row * static_cast<unsigned>(m_columns);
        std::uint64_t column = std::min<std::uint64_t>(m_squares.size() - start, m_edges.size() - 1);
        while (column > 0) {
            --column;
            const int left = m_edges[column];
            const int right = m_edges[column + 1];
            unsigned flags = static_cast<unsigned>(m_squares[start + column].ToLong());
            while (column > 0 && m_edges[column - 1] == left && m_edges[column] == right)
                flags |= static_cast<unsigned>(m_squares[start + --column].ToLong());
            flags &= ~static_cast<unsigned>(m_drawn[column]);
            m_drawn[column] = static_cast<std::uint8_t>(m_drawn[column] | flags);
            if (m_layer >= 0)
                composeStripe(left, right, m_layer, 1, flags >> static_cast<unsigned>(m_layer));
            else
                for (int colour = 0; flags != 0; ++colour, flags >>= 1U)
                    composeStripe(left + colour, right, colour, stripePeriod, flags);
        }
    }

    void composeStripe(int left, int right, int colour, int step, unsigned flag)
    {
        if ((flag & 1U) == 0)
            return;
        const int last = std::min(right, m_picture.width() - 1);
        for (int x = left; x <= last; x += step) {
            Pixel& pixel = m_line[static_cast<std::size_t>(x)];
            if (pixel == nothingHere)
                pixel = ColorTable[static_cast<std::size_t>(colour)];
        }
    }

    Surface& m_picture;
    std::span<const MapSquare> m_squares;
    int m_columns;
    int m_rows;
    int m_layer;
    // Kept from one drawing to the next: a frame of a game must not allocate.
    static thread_local std::vector<int> m_edges;          ///< left edges of the columns
    static thread_local std::vector<Pixel> m_line;         ///< the composed line
    static thread_local std::vector<std::uint8_t> m_drawn; ///< flags that a later row of the band has drawn
};

thread_local std::vector<int> MapPainter::m_edges;
thread_local std::vector<Pixel> MapPainter::m_line;
thread_local std::vector<std::uint8_t> MapPainter::m_drawn;

/// A text that stays on one line of the file.
void appendLine(std::string& out, std::string_view text)
{
    std::transform(text.begin(), text.end(), std::back_inserter(out),
                   [](char c) { return isBreak(c) ? ' ' : c; });
    out += NewLine;
}

void appendDimension(std::string& out, int value)
{
    if (value >= 0)
        out += ' ';
    appendLine(out, std::to_string(value));
}

} // namespace

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

void ZBMap::set_offset(int index, int colour, bool value)
{
    if (MapSquare* const square = entry(index))
        square->setField(colour, value);
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
    const auto readInto = [&reader](std::string& to) {
        const auto line = reader.line();
        to = line.value_or(to);
        return line.has_value();
    };
    const auto readNumberInto = [&reader](int& to) {
        const auto line = reader.line();
        const auto number = line ? dimension(*line) : std::nullopt;
        to = number.value_or(to);
        return number.has_value();
    };
    if (!readInto(name) || !readInto(m_background) || !readNumberInto(columns) || !readNumberInto(rows))
        return false;
    for (std::string& legend : m_legend)
        if (!readInto(legend))
            return false;
    if (columns <= 0 || rows <= 0)
        return false;
    Create(columns, rows);
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

void ZBMap::Draw(Surface& picture, int layer) const
{
    if (columns <= 0 || rows <= 0 || picture.isNull() || m_squares.empty())
        return;
    MapPainter(picture, m_squares, columns, rows, layer).paint();
}
