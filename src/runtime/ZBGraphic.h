#pragma once

#include "platform/Surface.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// How often an animated graphic has changed its frame up to a frame of the game.
constexpr std::int32_t animationSteps(std::int32_t frameNumber)
{
    return frameNumber / 3;
}

/// The three kinds of sprite graphics, numbered as in the core.
enum class GraphicKind { Simple = 1, Animated = 2, Rotating = 3 };

/// The text description of a sprite graphic (".spr"): a line of free text, then kind, frame width, frame
/// height and frame count, separated by commas or line ends.
struct GraphicDescription {
    std::string header;
    GraphicKind kind = GraphicKind::Simple;
    std::int32_t frameWidth = 0;
    std::int32_t frameHeight = 0;
    std::int32_t frameCount = 0;

    /// Nothing where a value is missing, no number or an unknown kind.
    static std::optional<GraphicDescription> fromText(std::string_view text);
    std::string toText() const;
};

/// A loaded sprite graphic: frames stacked from the top, each with its image in columns 0 to w - 1 and its
/// mask in columns w to 2w - 1 (white where transparent, black where opaque). Never changed once loaded, so
/// that all sprites and all copies of a run's state may share it.
class ZBGraphic
{
public:
    /// What the picture lacks of what the description promises draws nothing.
    ZBGraphic(std::string_view name, GraphicDescription description, const Surface& picture);

    const std::string& getName() const { return m_name; }
    const GraphicDescription& description() const { return m_description; }

    /// The frame that a sprite shows: by time for animated graphics, by heading for rotating ones.
    int frameIndex(std::int32_t frameNumber, double direction) const;
    /// Draws a frame onto `target` centred at (centreX, centreY), clipped; the mask is ANDed, the image ORed.
    void Draw(Surface& target, int centreX, int centreY, int frame) const;

private:
    std::string m_name;
    GraphicDescription m_description;
    int m_width = 0;             ///< columns of a frame that the picture has
    int m_rows = 0;              ///< rows of all frames that the picture has
    std::vector<Pixel> m_images; ///< m_rows rows of m_width pixels
    std::vector<Pixel> m_masks;
};
