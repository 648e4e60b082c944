// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "forms/PlaceWindow.h"

#include "forms/WindowPlacement.h"

#include <QApplication>
#include <QEvent>
#include <QLayout>
#include <QPlainTextEdit>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace
{

using namespace Qt::StringLiterals;

using forms::Obstacle;
using forms::ObstacleArea;
using forms::WindowRole;

struct WindowKind {
    QLatin1StringView name;
    WindowRole role;
    Obstacle obstacle;
};

constexpr std::array kinds = {
    WindowKind{"GameEditor"_L1, WindowRole::GameEditor, Obstacle::GameEditor},
    WindowKind{"CodeEditor"_L1, WindowRole::CodeEditor, Obstacle::CodeEditor},
    WindowKind{"GameWindow"_L1, WindowRole::GameWindow, Obstacle::GameWindow},
    WindowKind{"SpyWindow"_L1, WindowRole::SpyWindow, Obstacle::SpyWindow},
    WindowKind{"TimeWindow"_L1, WindowRole::TimeWindow, Obstacle::Other},
    WindowKind{"ParseError"_L1, WindowRole::ParseError, Obstacle::Other},
    WindowKind{"Properties"_L1, WindowRole::GamePanel, Obstacle::Other},
    WindowKind{"Resources"_L1, WindowRole::GamePanel, Obstacle::Other},
    WindowKind{"SpriteEditor"_L1, WindowRole::Workshop, Obstacle::Other},
    WindowKind{"MapEditor"_L1, WindowRole::Workshop, Obstacle::Other},
};

const WindowKind* kindOf(const QWidget& window)
{
    const auto* kind = std::ranges::find(kinds, window.objectName(), &WindowKind::name);
    return kind == kinds.end() ? nullptr : kind;
}

/// Remembers where a window was put, so that a place that the user has chosen is known by the difference.
class PlaceMemory : public QObject
{
public:
    explicit PlaceMemory(QWidget& window)
        : QObject(&window)
        , m_window(window)
    {
        window.installEventFilter(this);
        if (QLayout* layout = window.layout())
            layout->activate();
        m_wanted = hasOneSize() ? window.sizeHint() : window.size();
    }

    static PlaceMemory* of(const QWidget& window)
    {
        return dynamic_cast<PlaceMemory*>(window.findChild<QObject*>(name, Qt::FindDirectChildrenOnly));
    }
    static PlaceMemory& of(QWidget& window)
    {
        PlaceMemory* memory = of(std::as_const(window));
        if (memory == nullptr) {
            memory = new PlaceMemory(window);
            memory->setObjectName(name);
        }
        return *memory;
    }

    bool isUsersChoice() const { return m_settled && m_settled != m_window.geometry(); }
    bool wasNeverShown() const { return !m_wasShown; }
    forms::WindowSize size(const QMargins& frame) const
    {
        const QSize smallest =
            hasOneSize() ? m_wanted : m_window.minimumSizeHint().expandedTo(m_window.minimumSize());
        return {m_wanted.grownBy(frame), smallest.boundedTo(m_wanted).grownBy(frame)};
    }
    void moveTo(const QRect& outer, const QMargins& frame)
    {
        m_settled.reset();
        if (!hasOneSize())
            m_window.resize(outer.size().shrunkBy(frame));
        QWindow* shown = m_window.isVisible() ? m_window.windowHandle() : nullptr;
        if (shown != nullptr && shown->frameMargins().isNull())
            shown->setFramePosition(outer.topLeft()); // the desktop has still to put something around it
        else
            m_window.move(outer.topLeft());
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // The desktop may have had its own idea by the time when there is something to paint.
        if (event->type() == QEvent::Paint && !m_settled) {
            m_settled = m_window.geometry();
            m_wasShown = true;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    bool hasOneSize() const
    {
        return m_window.layout() != nullptr && m_window.layout()->sizeConstraint() == QLayout::SetFixedSize;
    }

    static constexpr QLatin1StringView name = "PlaceMemory"_L1;
    QWidget& m_window;
    QSize m_wanted;
    std::optional<QRect> m_settled;
    bool m_wasShown = false;
};

QMargins givenFrame(const QWidget& window)
{
    return window.windowHandle() != nullptr ? window.windowHandle()->frameMargins() : QMargins();
}

/// What the desktop puts around a window. Until it has done so, what it has put around another.
QMargins frameOf(const QWidget& window)
{
    if (const QMargins frame = givenFrame(window); !frame.isNull())
        return frame;
    for (const QWidget* other : QApplication::topLevelWidgets()) {
        if (const QMargins frame = givenFrame(*other); kindOf(*other) != nullptr && !frame.isNull())
            return frame;
    }
    return {1, forms::titleBarHeight, 1, 1};
}

QRect outerArea(const QWidget& window)
{
    return {window.pos(), window.size().grownBy(frameOf(window))};
}

/// The title bar and the row of buttons that a run is controlled with.
QRect runButtons(const QWidget& gameEditor)
{
    int bottom = 0;
    for (const auto name : {"PlayButton"_L1, "StopButton"_L1}) {
        if (const auto* button = gameEditor.findChild<QWidget*>(name))
            bottom = std::max(bottom, button->mapTo(&gameEditor, button->rect().bottomLeft()).y() + 1);
    }
    const QMargins frame = frameOf(gameEditor);
    return {gameEditor.pos(), QSize(gameEditor.width() + frame.left() + frame.right(), frame.top() + bottom)};
}

/// The line of the cursor, from edge to edge of the text, with the lines above and below it.
QRect cursorLine(const QWidget& codeEditor)
{
    const auto* text = codeEditor.findChild<QPlainTextEdit*>("CodeView"_L1);
    if (text == nullptr)
        return {};
    const QRect cursor = text->cursorRect();
    const QPoint corner = text->viewport()->mapToGlobal(QPoint(0, cursor.top() - cursor.height()));
    return {corner, QSize(text->viewport()->width(), 3 * cursor.height())};
}

/// What the window would cover that must not be covered, or better not.
std::vector<ObstacleArea> obstaclesFor(const QWidget& window)
{
    std::vector<ObstacleArea> found;
    const bool isAboutCode = window.objectName() == "ParseError"_L1; // which comes up along with it
    for (const QWidget* other : QApplication::topLevelWidgets()) {
        const WindowKind* kind = other == &window ? nullptr : kindOf(*other);
        const PlaceMemory* memory = kind != nullptr ? PlaceMemory::of(*other) : nullptr;
        if (memory == nullptr)
            continue;
        const bool comesUp = memory->wasNeverShown() || (isAboutCode && kind->role == WindowRole::CodeEditor);
        if (!other->isVisible() && !comesUp)
            continue;
        found.push_back({kind->obstacle, outerArea(*other)});
        if (kind->role == WindowRole::GameEditor)
            found.push_back({Obstacle::RunButtons, runButtons(*other)});
        if (kind->role == WindowRole::CodeEditor)
            found.push_back({Obstacle::CursorLine, cursorLine(*other)});
    }
    return found;
}

bool coversItsLine(const QRect& area, const std::vector<ObstacleArea>& obstacles)
{
    return std::ranges::any_of(obstacles, [&](const ObstacleArea& there) {
        return there.obstacle == Obstacle::CursorLine && there.area.intersects(area);
    });
}

} // namespace

namespace forms
{

void placeWindow(QWidget& window)
{
    const WindowKind* kind = kindOf(window);
    if (kind == nullptr)
        return;
    PlaceMemory& memory = PlaceMemory::of(window);
    const auto obstacles = obstaclesFor(window);
    const bool isInTheWay =
        kind->role == WindowRole::ParseError && coversItsLine(outerArea(window), obstacles);
    if (memory.isUsersChoice() && !isInTheWay)
        return;
    const QMargins frame = frameOf(window);
    const QRect screen = window.screen()->availableGeometry();
    memory.moveTo(placeOfWindow(kind->role, memory.size(frame), screen, obstacles), frame);
}

} // namespace forms
