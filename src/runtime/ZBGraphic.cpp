#include "runtime/ZBGraphic.h"

#include "platform/NumberText.h"
#include "platform/Rounding.h"
#include "platform/TextFile.h"
#include "runtime/Blit.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace
{

constexpr std::array<std::string_view, 3> kindNames = {"Simple", "Animated", "Rotating"};

std::optional<GraphicKind> kindOf(std::string_view word)
{
    if (word.size() >= 2 && word.front() == '"' && word.back() == '"')
        word = word.substr(1, word.size() - 2);
    const auto name = std::ranges::find(kindNames, word);
    if (name == kindNames.end())
        return std::nullopt;
    return static_cast<GraphicKind>(name - kindNames.begin() + 1);
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

ZBGraphic::ZBGraphic(std::string_view name, GraphicDescription description, const Surface& picture)
    : m_name(name)
    , m_description(std::move(description))
{
    const int width = m_description.frameWidth;
    if (width <= 0 || m_description.frameHeight <= 0)
        return;
    m_width = std::min(width, picture.width());
    m_rows = picture.height();
    const auto count = static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_rows);
    m_images.reserve(count);
    m_masks.reserve(count);
    for (int y = 0; y < m_rows; ++y) {
        const auto row = picture.row(y);
        for (int x = 0; x < m_width; ++x) {
            const std::int64_t maskColumn = std::int64_t{x} + width;
            m_images.push_back(row[static_cast<std::size_t>(x)]);
            m_masks.push_back(maskColumn < picture.width() ? row[static_cast<std::size_t>(maskColumn)]
                                                           : white);
        }
    }
}

int ZBGraphic::frameIndex(std::int32_t frameNumber, double direction) const
{
    const std::int32_t count = std::max(m_description.frameCount, 1);
    switch (m_description.kind) {
    case GraphicKind::Simple:
        break;
    case GraphicKind::Animated:
        return animationSteps(frameNumber) % count;
    case GraphicKind::Rotating: {
        const double turn = std::fmod(roundHalfEven(direction / (360.0 / count)), count);
        if (!std::isfinite(turn))
            return 0;
        return static_cast<int>(turn < 0 ? turn + count : turn);
    }
    }
    return 0;
}

void ZBGraphic::Draw(Surface& target, int centreX, int centreY, int frame) const
{
    const std::int64_t left =
        static_cast<std::int64_t>(roundHalfEven(centreX - m_description.frameWidth / 2.0));
    const std::int64_t top =
        static_cast<std::int64_t>(roundHalfEven(centreY - m_description.frameHeight / 2.0));
    const std::int64_t firstRow = std::int64_t{frame} * m_description.frameHeight;

    const std::int64_t fromX = std::max<std::int64_t>(0, -left);
    const std::int64_t toX = std::min<std::int64_t>(m_width, target.width() - left);
    const std::int64_t fromY = std::max<std::int64_t>(0, -top);
    const std::int64_t toY = std::min({std::int64_t{m_description.frameHeight}, m_rows - firstRow,
                                       static_cast<std::int64_t>(target.height()) - top});
    if (fromX >= toX || fromY >= toY)
        return;
    const auto source = static_cast<std::size_t>((firstRow + fromY) * m_width + fromX);
    blit({.target = &target.row(static_cast<int>(top + fromY))[static_cast<std::size_t>(left + fromX)],
          .targetStride = static_cast<std::size_t>(target.width()),
          .mask = &m_masks[source],
          .image = &m_images[source],
          .sourceStride = static_cast<std::size_t>(m_width),
          .width = static_cast<std::size_t>(toX - fromX),
          .height = static_cast<std::size_t>(toY - fromY)});
}
