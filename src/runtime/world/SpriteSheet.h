// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Installation.h"
#include "platform/PictureReader.h"
#include "platform/Surface.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

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

/// What one pixel of a frame does to what lies below it: the mask is ANDed, then the image is ORed.
struct MaskedPixel {
    Pixel image = black;
    Pixel mask = white;

    bool isTransparent() const { return image == black && mask == white; }
    bool isOpaque() const { return mask == black; }
    /// As a color with transparency, premultiplied: exact where the pixel is transparent or opaque, else the
    /// nearest there is.
    Pixel look() const;

    bool operator==(const MaskedPixel&) const = default;
};

/// The graphic of a sprite as its two files hold it: frames stacked from the top, each with its image in
/// columns 0 to w - 1 and its mask in columns w to 2w - 1. What the picture lacks of what the description
/// promises changes nothing below it.
class SpriteSheet
{
public:
    enum class Fault {
        None,
        Missing, ///< a file is not there or cannot be read
        Damaged, ///< the description or the picture makes no sense
    };

    /// Pixels of the picture that are 0 are missing from its file.
    SpriteSheet(GraphicDescription description, Surface picture);

    /// The graphic of that product path ("games\00000001\ball", without an ending). Two files that a save cut
    /// short has left in different states are put right.
    static std::optional<SpriteSheet> read(const FileSource& files, PictureReader& pictures,
                                           std::string_view productPath, Fault* fault = nullptr);
    /// Writes both files; where that fails the old ones stay.
    [[nodiscard]] bool write(const Installation& installation, std::string_view productPath) const;

    const GraphicDescription& description() const { return m_description; }
    /// The picture: images in columns 0 to columns() - 1, masks behind them.
    const Surface& picture() const { return m_picture; }
    /// Columns of a frame that the picture has.
    int columns() const { return m_columns; }
    /// Whether the picture has every frame whole, with its mask.
    bool isWhole() const { return m_isWhole; }

    MaskedPixel at(int frame, int x, int y) const;
    /// A frame as it looks, in colors with premultiplied transparency; empty where it is too large.
    Surface look(int frame) const;

private:
    void widen();
    void clearMissingPixels();

    GraphicDescription m_description;
    Surface m_picture;
    int m_columns = 0;
    bool m_isWhole = false;
};
