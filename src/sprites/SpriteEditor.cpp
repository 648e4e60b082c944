// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/SpriteEditor.h"

#include "forms/WindowPlacement.h"
#include "sprites/ColorsPanel.h"
#include "sprites/EditorSizes.h"
#include "sprites/FramePainting.h"
#include "sprites/FrameView.h"
#include "sprites/FramesPanel.h"
#include "sprites/SettingsPanel.h"
#include "sprites/SpriteCommands.h"
#include "sprites/SpriteKeeper.h"

#include <QAction>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr Pixel firstColor = rgb(0x5a, 0x93, 0xff);
constexpr int savedShown = 6000; // milliseconds

/// Does what a command does to the sprite itself.
void changeSprite(SpriteModel& model, SpriteCommand command)
{
    switch (command) {
    case SpriteCommand::Undo:
        return model.undo();
    case SpriteCommand::Redo:
        return model.redo();
    case SpriteCommand::AddFrame:
        return model.addFrame();
    case SpriteCommand::DuplicateFrame:
        return model.duplicateFrame();
    case SpriteCommand::DeleteFrame:
        return model.removeFrame();
    case SpriteCommand::FrameLeft:
        return model.moveFrame(-1);
    case SpriteCommand::FrameRight:
        return model.moveFrame(1);
    default:
        return;
    }
}

} // namespace

SpriteEditor::SpriteEditor(Desk& desk, const QString& graphicName)
    : m_keeper(new SpriteKeeper(desk, m_model, this))
    , m_commands(new SpriteCommands(this))
{
    setObjectName(u"SpriteEditor"_s);
    setWindowTitle(u"Zorbino Sprite Editor"_s);
    setContextMenuPolicy(Qt::NoContextMenu);
    const EditorSizes& sizes = sizesFor(screen()->availableGeometry().height());
    makeBars(sizes);
    setCentralWidget(makePage(sizes));
    connectParts();
    setTool(SpriteTool::Pencil);
    m_colors->setColor(firstColor);
    makeFit();
    m_currentFrame->setFocus();
    Form_Load(graphicName);
}

SpriteEditor::~SpriteEditor()
{
    m_currentFrame->disconnect(this); // it loses the focus when there is no editor any more
}

// The parts of the window.

void SpriteEditor::makeBars(const EditorSizes& sizes)
{
    m_commands->fill(*menuBar());
    auto* const tools = new QToolBar(u"Tools"_s, this);
    tools->setObjectName(u"Toolbar1"_s);
    tools->setMovable(false);
    tools->setToolButtonStyle(sizes.toolText);
    tools->setIconSize(QSize(sizes.toolIcon, sizes.toolIcon));
    m_commands->fill(*tools);
    addToolBar(sizes.tools, tools);

    m_nameLabel = new QLabel(this);
    m_nameLabel->setObjectName(u"SpriteName"_s);
    m_position = new QLabel(this);
    m_position->setObjectName(u"Position"_s);
    statusBar()->setContentsMargins(8, 0, 8, 0);
    statusBar()->addWidget(m_nameLabel, 1);
    statusBar()->addPermanentWidget(m_position);
}

/// Everything between the toolbar and the status bar; it scrolls where even the smallest sizes have no room.
QScrollArea* SpriteEditor::makePage(const EditorSizes& sizes)
{
    auto* const page = new QWidget(this);
    m_colors = new ColorsPanel(sizes, page);
    m_stage = makeStage(sizes.stage);
    m_settings = new SettingsPanel(m_model, sizes, page);
    m_frames = new FramesPanel(m_model, *m_commands, sizes, page);

    auto* const middle = new QHBoxLayout;
    middle->setSpacing(sizes.gap);
    middle->addWidget(m_colors);
    middle->addWidget(m_stage, 1);
    middle->addWidget(m_settings);
    auto* const layout = new QVBoxLayout(page);
    const int aboveAndBelow = std::min(sizes.gap, 8);
    layout->setContentsMargins(sizes.gap, aboveAndBelow, sizes.gap, aboveAndBelow);
    layout->setSpacing(sizes.gap);
    layout->addLayout(middle, 1);
    layout->addWidget(m_frames);

    auto* const area = new QScrollArea(this);
    area->setObjectName(u"PageArea"_s);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(page);
    return area;
}

QWidget* SpriteEditor::makeStage(int smallestSide)
{
    auto* const stage = new QWidget(this);
    stage->setObjectName(u"Stage"_s);
    stage->setMinimumSize(smallestSide, smallestSide);
    stage->installEventFilter(this);
    m_currentFrame = new FrameView(stage);
    return stage;
}

void SpriteEditor::connectParts()
{
    connect(m_currentFrame, &FrameView::mouseDown, this, &SpriteEditor::CurrentFrame_MouseDown);
    connect(m_currentFrame, &FrameView::mouseMove, this, &SpriteEditor::CurrentFrame_MouseMove);
    connect(m_currentFrame, &FrameView::mouseUp, this, &SpriteEditor::CurrentFrame_MouseUp);
    connect(m_currentFrame, &FrameView::lostFocus, this, &SpriteEditor::CurrentFrame_LostFocus);
    connect(m_colors, &ColorsPanel::picked, this, &SpriteEditor::palettep_MouseMove);
    connect(m_settings, &SettingsPanel::changed, this, &SpriteEditor::refresh);
    connect(m_frames, &FramesPanel::changed, this, &SpriteEditor::refresh);
    connect(m_commands, &SpriteCommands::asked, this, &SpriteEditor::run);
    connect(m_keeper, &SpriteKeeper::loaded, this, &SpriteEditor::showLoaded);
    connect(m_keeper, &SpriteKeeper::saved, this, &SpriteEditor::showSaved);
}

void SpriteEditor::makeFit()
{
    const QSize room = screen()->availableGeometry().size() - QSize(0, forms::titleBarHeight);
    // Below the run buttons, which nothing may cover, a low screen has no more room than that.
    const QSize low(room.width(), room.height() * 5 / 6);
    const int scrollBar =
        wholeSize().height() > low.height() ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
    setMinimumSize((wholeSize() + QSize(scrollBar, 0)).boundedTo(low));
    resize(QSize(960, 736).boundedTo(room));
}

/// What the window needs to show everything without scrolling.
QSize SpriteEditor::wholeSize() const
{
    const auto* const area = findChild<QScrollArea*>(u"PageArea"_s);
    return minimumSizeHint() - area->minimumSizeHint() + area->widget()->minimumSizeHint();
}

void SpriteEditor::Form_Load(const QString& graphicName)
{
    refresh();
    if (!graphicName.isEmpty())
        m_keeper->load(graphicName);
}

// What the user does.

void SpriteEditor::run(SpriteCommand command)
{
    finishInput();
    switch (command) {
    case SpriteCommand::NewSprite:
        return m_keeper->startNew();
    case SpriteCommand::OpenSprite:
        return m_keeper->open();
    case SpriteCommand::SaveSprite:
        m_keeper->save();
        return;
    case SpriteCommand::SaveSpriteAs:
        m_keeper->saveAs();
        return;
    case SpriteCommand::CloseEditor:
        close();
        return;
    case SpriteCommand::PointerTool:
        return setTool(SpriteTool::Pointer);
    case SpriteCommand::PencilTool:
        return setTool(SpriteTool::Pencil);
    case SpriteCommand::FillTool:
        return setTool(SpriteTool::Fill);
    default:
        changeSprite(m_model, command);
        refresh();
    }
}

void SpriteEditor::CurrentFrame_MouseDown(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, int x, int y)
{
    CurrentFrame_MouseMove(buttons, shift, x, y);
}

void SpriteEditor::CurrentFrame_MouseMove(Qt::MouseButtons buttons, Qt::KeyboardModifiers /*shift*/, int x,
                                          int y)
{
    if (buttons.testFlag(Qt::RightButton) && m_model.contains(x, y))
        m_colors->setColor(m_model.pixel(x, y));
    if (buttons.testFlag(Qt::LeftButton)) {
        m_strokes.hold(x, y, m_colors->color());
        if (m_strokes.tool() != SpriteTool::Pointer)
            refreshPixels();
    }
    showPosition(x, y);
}

void SpriteEditor::CurrentFrame_MouseUp(Qt::MouseButtons /*buttons*/, Qt::KeyboardModifiers /*shift*/, int x,
                                        int y)
{
    m_strokes.end();
    showPosition(x, y);
}

void SpriteEditor::CurrentFrame_LostFocus()
{
    m_strokes.end();
}

void SpriteEditor::palettep_MouseMove(Pixel color)
{
    m_colors->setColor(color);
}

void SpriteEditor::setTool(SpriteTool tool)
{
    m_strokes.setTool(tool);
    m_commands->showTool(tool);
    m_currentFrame->setCursor(tool == SpriteTool::Pointer ? Qt::ArrowCursor : Qt::CrossCursor);
}

void SpriteEditor::finishInput()
{
    m_strokes.end();
    m_settings->finishInput();
}

QString SpriteEditor::graphicName() const
{
    return m_keeper->graphicName();
}

bool SpriteEditor::mayClose()
{
    finishInput();
    return m_keeper->mayLeave();
}

void SpriteEditor::closeEvent(QCloseEvent* event)
{
    event->setAccepted(mayClose());
}

bool SpriteEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_stage && event->type() == QEvent::Resize)
        placeCurrentFrame();
    return QMainWindow::eventFilter(watched, event);
}

// What the window shows.

void SpriteEditor::showLoaded(bool isWhole)
{
    refresh();
    if (!isWhole)
        statusBar()->showMessage(u"A part of this sprite is missing in its file. It is see-through there."_s);
}

void SpriteEditor::showSaved(const QString& name)
{
    refreshState();
    statusBar()->showMessage(u"Saved. Your program can use it as \"%1\"."_s.arg(name), savedShown);
}

void SpriteEditor::refresh()
{
    placeCurrentFrame();
    m_frames->refresh();
    m_settings->refresh();
    refreshPixels();
}

void SpriteEditor::refreshPixels()
{
    m_keeper->noteChange();
    statusBar()->clearMessage();
    m_currentFrame->showFrame(m_model.currentFrame());
    m_frames->refreshPixels();
    m_settings->refreshPixels();
    refreshState();
}

void SpriteEditor::refreshState()
{
    const QString name = graphicName().isEmpty() ? u"New sprite"_s : u"Sprite \"%1\""_s.arg(graphicName());
    m_nameLabel->setText(m_model.isModified() ? name + u", not saved yet"_s : name);
    m_commands->showState(m_model);
}

void SpriteEditor::placeCurrentFrame()
{
    const FrameSize size = m_model.frameSize();
    m_currentFrame->setGeometry(fitFrame(m_stage->rect(), size.width, size.height));
}

void SpriteEditor::showPosition(int x, int y)
{
    if (!m_model.contains(x, y)) {
        m_position->clear();
        return;
    }
    QString text = u"Pixel %1, %2"_s.arg(x).arg(y);
    if (const auto distance = m_strokes.distanceTo(x, y))
        text += u" (%1 across, %2 down from where you started)"_s.arg(distance->across).arg(distance->down);
    m_position->setText(text);
}
