// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/world/SpriteSheet.h"

#include "platform/BitmapFile.h"
#include "platform/NumberText.h"
#include "platform/TextFile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>
#include <vector>

namespace
{

constexpr std::string_view descriptionEnding = ".spr";
constexpr std::string_view pictureEnding = ".spb";
constexpr std::array<std::string_view, 3> kindNames = {"Simple", "Animated", "Rotating"};
constexpr std::int64_t mostPixels = 32LL << 20U; // of a frame that is looked at

std::optional<GraphicKind> kindOf(std::string_view word)
{
    if (word.size() >= 2 && word.front() == '"' && word.back() == '"')
        word = word.substr(1, word.size() - 2);
    const auto name = std::ranges::find(kindNames, word);
    if (name == kindNames.end())
        return std::nullopt;
    return static_cast<GraphicKind>(name - kindNames.begin() + 1);
}

/// Which description a picture belongs to, and which one that replaces. It stands behind the pixels of the
/// picture's file, where no reader of pictures looks.
///
/// A save renames two files, the picture first, and may be stopped in between: then the description is still
/// the one that was to be replaced, and the mark has the right one. A description that says anything else
/// was written by somebody else afterwards, and counts.
struct PairMark {
    std::string description;
    std::string replaced;

    /// Both texts, then a foot of fixed length with their lengths.
    std::string toBytes() const
    {
        return description + replaced + std::string(foot) + number(description.size()) +
               number(replaced.size());
    }

    static std::optional<PairMark> atEndOf(std::string_view bytes)
    {
        const auto cut = [&bytes](std::size_t length) {
            const std::string_view end = bytes.substr(bytes.size() - length);
            bytes.remove_suffix(length);
            return end;
        };
        if (bytes.size() < foot.size() + 2 * digits)
            return std::nullopt;
        const auto replacedSize = size(cut(digits));
        const auto descriptionSize = size(cut(digits));
        if (cut(foot.size()) != foot || !replacedSize || !descriptionSize ||
            bytes.size() < *replacedSize + *descriptionSize)
            return std::nullopt;
        const std::string_view replaced = cut(*replacedSize);
        return PairMark{std::string(cut(*descriptionSize)), std::string(replaced)};
    }

private:
    static constexpr std::string_view foot = "\r\nzbpair";
    static constexpr std::size_t digits = 8;

    static std::string number(std::size_t value)
    {
        const std::string text = std::to_string(value);
        return std::string(digits - std::min(digits, text.size()), '0') + text;
    }
    static std::optional<std::size_t> size(std::string_view text)
    {
        std::size_t value = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        return error == std::errc() && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
    }
};

/// The description that belongs to the picture of these bytes.
std::string mended(std::string text, std::string_view pictureBytes)
{
    auto mark = PairMark::atEndOf(pictureBytes);
    return mark && mark->replaced == text ? std::move(mark->description) : std::move(text);
}

} // namespace

std::optional<GraphicDescription> GraphicDescription::fromText(std::string_view text)
{
    const auto lines = splitLines(text);
    if (lines.empty())
        return std::nullopt;
    GraphicDescription description;
    description.header = lines.front();
    std::vector<std::string_view> items;
    for (std::size_t line = 1; line < lines.size() && items.size() < 4; ++line) {
        std::string_view rest = lines[line];
        for (std::size_t comma = rest.find(','); items.size() < 4; comma = rest.find(',')) {
            items.push_back(trimBlanks(rest.substr(0, comma)));
            if (comma == std::string_view::npos)
                break;
            rest.remove_prefix(comma + 1);
        }
    }
    if (items.size() < 4)
        return std::nullopt;
    const auto kind = kindOf(items[0]);
    const auto width = wholeNumber(items[1]);
    const auto height = wholeNumber(items[2]);
    const auto count = wholeNumber(items[3]);
    if (!kind || !width || !height || !count)
        return std::nullopt;
    description.kind = *kind;
    description.frameWidth = *width;
    description.frameHeight = *height;
    description.frameCount = *count;
    return description;
}

std::string GraphicDescription::toText() const
{
    return header + "\r\n" + std::string(kindNames[static_cast<std::size_t>(kind) - 1]) + "," +
           std::to_string(frameWidth) + "," + std::to_string(frameHeight) + "," + std::to_string(frameCount) +
           "\r\n";
}

Pixel MaskedPixel::look() const
{
    const Pixel kept = mask & ~image; // the bits of the background that come through
    const auto part = [](Pixel pixel, unsigned shift) { return pixel >> shift & 0xffU; };
    const Pixel alpha = 0xffU - (part(kept, 16) + part(kept, 8) + part(kept, 0)) / 3;
    Pixel look = alpha << 24U;
    for (const unsigned shift : {16U, 8U, 0U})
        look |= std::min(part(image, shift), alpha) << shift;
    return look;
}

SpriteSheet::SpriteSheet(GraphicDescription description, Surface picture)
    : m_description(std::move(description))
    , m_picture(std::move(picture))
{
    const std::int64_t width = std::max(m_description.frameWidth, 0);
    m_columns = static_cast<int>(std::min<std::int64_t>(width, m_picture.width()));
    m_isWhole = m_picture.width() >= 2 * width &&
                m_picture.height() >= std::int64_t{m_description.frameHeight} * m_description.frameCount;
    if (m_picture.width() < 2 * width)
        widen();
    if (std::ranges::find(m_picture.pixels(), 0U) != m_picture.pixels().end())
        clearMissingPixels();
}

/// Completes a picture that is too narrow for its masks: what is missing keeps what is below.
void SpriteSheet::widen()
{
    Surface whole(2 * m_columns, m_picture.height(), white);
    for (int y = 0; y < whole.height(); ++y) {
        const auto from = m_picture.row(y);
        const auto to = whole.row(y);
        const auto middle = from.begin() + m_columns;
        std::copy(from.begin(), middle, to.begin());
        std::copy(middle, from.end(), to.begin() + m_columns);
    }
    m_picture = std::move(whole);
}

void SpriteSheet::clearMissingPixels()
{
    m_isWhole = false;
    for (int y = 0; y < m_picture.height(); ++y)
        for (int x = 0; x < m_columns; ++x)
            if (m_picture.at(x, y) == 0 || m_picture.at(m_columns + x, y) == 0) {
                m_picture.set(x, y, black);
                m_picture.set(m_columns + x, y, white);
            }
}

std::optional<SpriteSheet> SpriteSheet::read(const FileSource& files, PictureReader& pictures,
                                             std::string_view productPath, Fault* fault)
{
    Fault ignored = Fault::None;
    Fault& found = fault != nullptr ? *fault : ignored;
    const std::string path(productPath);
    const auto text = files.readText(path + std::string(descriptionEnding));
    const auto bytes = files.readBytes(path + std::string(pictureEnding), PictureReader::maximumFileSize);
    found = Fault::Missing;
    if (!text || !bytes)
        return std::nullopt;
    found = Fault::Damaged;
    auto description = GraphicDescription::fromText(mended(*text, *bytes));
    auto picture = description ? pictures.decode(*bytes) : std::nullopt;
    if (!picture || picture->isNull())
        return std::nullopt;
    found = Fault::None;
    return SpriteSheet(std::move(*description), std::move(*picture));
}

bool SpriteSheet::write(const Installation& installation, std::string_view productPath) const
{
    const std::string path(productPath);
    const std::string descriptionFile = path + std::string(descriptionEnding);
    const PairMark mark = {m_description.toText(), installation.readText(descriptionFile).value_or("")};
    return installation.writePair(path + std::string(pictureEnding), bitmapFile(m_picture, mark.toBytes()),
                                  descriptionFile, mark.description);
}

MaskedPixel SpriteSheet::at(int frame, int x, int y) const
{
    const std::int64_t row = std::int64_t{frame} * m_description.frameHeight + y;
    if (x < 0 || x >= m_columns || y < 0 || y >= m_description.frameHeight || row < 0 ||
        row >= m_picture.height())
        return {};
    return {m_picture.at(x, static_cast<int>(row)), m_picture.at(m_columns + x, static_cast<int>(row))};
}

Surface SpriteSheet::look(int frame) const
{
    const int width = m_description.frameWidth;
    const int height = m_description.frameHeight;
    if (width <= 0 || height <= 0 || std::int64_t{width} * height > mostPixels)
        return {};
    Surface look(width, height, 0);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < m_columns; ++x)
            look.set(x, y, at(frame, x, y).look());
    return look;
}
