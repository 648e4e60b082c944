#pragma once

#include "platform/Surface.h"
#include "runtime/ZBGraphic.h"

#include <deque>
#include <memory>
#include <string>
#include <vector>

/// The colour of pixels that let the background through; no opaque colour equals it.
inline constexpr Pixel transparent = 0;

struct FrameSize {
    int width = 0;
    int height = 0;

    bool operator==(const FrameSize&) const = default;
};

/// A sprite graphic while it is being drawn: its frames, the frame that is shown, and the steps to undo.
/// Frames hold opaque colours and `transparent`. Every change is one step to undo, except that all changes
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
    /// Takes the frames of a graphic's picture: see-through where the mask is rather white than black or
    /// where the picture ends too early. False where the graphic is too large to be drawn on; nothing has
    /// then changed.
    [[nodiscard]] bool load(const GraphicDescription& description, const Surface& picture);
    static bool canHold(const GraphicDescription& description);

    GraphicDescription description() const;
    /// All frames, one below the other, each with its mask to the right.
    Surface picture() const;

    GraphicKind kind() const { return m_now.kind; }
    void setKind(GraphicKind kind);
    FrameSize frameSize() const { return m_now.size; }
    /// Adds or cuts off pixels evenly around the middle of every frame.
    void setFrameSize(FrameSize size);

    int frameCount() const { return static_cast<int>(m_now.frames.size()); }
    const Surface& frame(int index) const { return *m_now.frames[static_cast<std::size_t>(index)]; }
    int currentIndex() const { return m_now.current; }
    const Surface& currentFrame() const { return frame(m_now.current); }
    void setCurrent(int index);
    bool canAddFrame() const;
    void addFrame();        ///< a blank one behind the current one
    void duplicateFrame();  ///< a copy behind the current one
    void removeFrame();     ///< the last one is cleared instead
    void moveFrame(int by); ///< the current one, `by` places to the right

    // Drawing on the current frame; what lies outside is left out.
    bool contains(int x, int y) const;
    Pixel pixel(int x, int y) const { return currentFrame().at(x, y); }
    void setPixel(int x, int y, Pixel colour);
    void drawLine(int x1, int y1, int x2, int y2, Pixel colour);
    /// Fills outwards from a point until pixels of `colour` are met, whatever colours lie between.
    void floodFill(int x, int y, Pixel colour);

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
    Surface& writable();
    void insertFrame(const Surface& frame);

    State m_now;
    State m_saved;
    std::deque<State> m_past;
    std::deque<State> m_future;
    std::string m_header;
    bool m_inStroke = false;
    bool m_strokeRemembered = false;
};
