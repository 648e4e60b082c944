// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"
#include "runtime/world/SpriteSheet.h"

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

/// The color of pixels that let the background through; no opaque color equals it.
inline constexpr Pixel transparent = 0;

struct FrameSize {
    int width = 0;
    int height = 0;

    bool operator==(const FrameSize&) const = default;
};

/// Pixels that are neither a color nor a hole, as pictures of other programs hold them (a grey mask, a color
/// below a white one). They stand in a frame under a number, and are kept until they are drawn over.
class BlendTable
{
public:
    bool isEmpty() const { return m_blends.empty(); }
    void clear();
    /// What stands in a frame for that pixel: a color, `transparent` or the number of a blend.
    Pixel codeOf(const MaskedPixel& pixel);
    MaskedPixel pixelOf(Pixel code) const;

private:
    std::vector<MaskedPixel> m_blends;
    std::map<std::uint64_t, Pixel> m_codes; ///< by image and mask
};

/// A sprite graphic while it is being drawn: its frames, the frame that is shown, and the steps to undo.
/// Frames hold opaque colors and `transparent`. Every change is one step to undo, except that all changes
/// between beginStroke and endStroke make one step together.
class SpriteModel
{
public:
    static constexpr int smallestSide = 1;
    static constexpr int largestSide = 1024;
    static constexpr int mostFrames = 1024;
    static constexpr std::int64_t mostPixels = 4LL << 20U; ///< in all frames together
    static constexpr std::int64_t mostUndoSteps = 200;     ///< fewer where the frames are large

    /// One blank frame of 32 x 32 pixels.
    SpriteModel();

    /// Starts again with one blank frame.
    void clear(FrameSize size);
    /// Takes the frames of a graphic; what its picture lacks is see-through. False where the graphic is too
    /// large to be drawn on; nothing has then changed.
    [[nodiscard]] bool load(const SpriteSheet& sheet);
    static bool canHold(const GraphicDescription& description);

    GraphicDescription description() const;
    SpriteSheet sheet() const;

    GraphicKind kind() const { return m_now.kind; }
    void setKind(GraphicKind kind);
    FrameSize frameSize() const { return m_now.size; }
    /// Adds or cuts off pixels evenly around the middle of every frame.
    void setFrameSize(FrameSize size);

    int frameCount() const { return static_cast<int>(m_now.frames.size()); }
    /// A frame as it looks, in colors with premultiplied transparency.
    std::shared_ptr<const Surface> frame(int index) const;
    int currentIndex() const { return m_now.current; }
    std::shared_ptr<const Surface> currentFrame() const { return frame(m_now.current); }
    void setCurrent(int index);
    bool canAddFrame() const;
    void addFrame();        ///< a blank one behind the current one
    void duplicateFrame();  ///< a copy behind the current one
    void removeFrame();     ///< the last one is cleared instead
    void moveFrame(int by); ///< the current one, `by` places to the right

    // Drawing on the current frame; what lies outside is left out.
    bool contains(int x, int y) const;
    /// An opaque color or `transparent`.
    Pixel pixel(int x, int y) const;
    void setPixel(int x, int y, Pixel color);
    void drawLine(int x1, int y1, int x2, int y2, Pixel color);
    /// Fills outwards from a point until pixels of `color` are met, whatever colors lie between.
    void floodFill(int x, int y, Pixel color);

    void beginStroke();
    void endStroke();

    bool canUndo() const { return !m_past.empty(); }
    bool canRedo() const { return !m_future.empty(); }
    void undo();
    void redo();

    bool isModified() const { return m_now != m_saved; }
    void setSaved() { m_saved = m_now; }

    /// What frame a running game shows at its frame `frameNumber`; a rotating graphic is shown turning.
    int previewIndex(int frameNumber) const;

private:
    /// Frames are shared between steps until one of them is drawn on.
    struct State {
        GraphicKind kind = GraphicKind::Simple;
        FrameSize size;
        std::vector<std::shared_ptr<Surface>> frames;
        int current = 0;

        bool operator==(const State& other) const;
    };

    void remember();
    std::size_t undoDepth() const;
    const Surface& stored(int index) const { return *m_now.frames[static_cast<std::size_t>(index)]; }
    Surface& writable();
    void insertFrame(const Surface& frame);

    State m_now;
    State m_saved;
    std::deque<State> m_past;
    std::deque<State> m_future;
    BlendTable m_blends; ///< of the pictures that were loaded
    std::string m_header;
    bool m_inStroke = false;
    bool m_strokeRemembered = false;
};
