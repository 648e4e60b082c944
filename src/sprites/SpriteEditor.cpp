// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/SpriteEditor.h"

#include "forms/Icons.h"
#include "forms/MessageBoxes.h"
#include "forms/Replacing.h"
#include "forms/Texts.h"
#include "forms/WindowPlacement.h"
#include "games/WritableName.h"
#include "runtime/world/ZBGraphic.h"
#include "sprites/ColorPlate.h"
#include "sprites/FramePainting.h"
#include "sprites/FrameView.h"
#include "sprites/PaletteView.h"
#include "sprites/SpriteChooser.h"
#include "sprites/StripView.h"

#include <QAction>
#include <QActionGroup>
#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <array>

namespace
{

using namespace Qt::StringLiterals;

/// What gives way on a low screen, so that the strip of frames stays on it.
struct Sizes {
    int screenHeight; ///< that the window with its title bar needs
    Qt::ToolBarArea tools;
    Qt::ToolButtonStyle toolText;
    int toolIcon;
    int gap; ///< between the parts
    int swatch;
    int color;
    int stage;
    int preview;
    int stripFrame;
    bool logo;
    bool hint; ///< what the kinds mean, beside their list; else only in its tool tip
};
constexpr std::array<Sizes, 3> allSizes = {{
    {740, Qt::TopToolBarArea, Qt::ToolButtonTextUnderIcon, 32, 12, 40, 28, 320, 128, 64, true, true},
    {660, Qt::LeftToolBarArea, Qt::ToolButtonTextBesideIcon, 24, 12, 40, 20, 280, 88, 64, false, true},
    {0, Qt::LeftToolBarArea, Qt::ToolButtonTextBesideIcon, 22, 6, 26, 17, 200, 72, 40, false, false},
}};

const Sizes& sizesOn(const QScreen& screen)
{
    const int height = screen.availableGeometry().height();
    return *std::ranges::find_if(allSizes,
                                 [height](const Sizes& sizes) { return height >= sizes.screenHeight; });
}

constexpr int largestSpinSide = 256;
constexpr int framesInASecond = 30; // of the game
constexpr int previewTick = 1000 * framesPerAnimationStep / framesInASecond;
constexpr Pixel firstColor = rgb(0x5a, 0x93, 0xff);

constexpr std::array<GraphicKind, 3> kinds = {GraphicKind::Simple, GraphicKind::Animated,
                                              GraphicKind::Rotating};

QString loadMessage(SpriteLoad result, const QString& name)
{
    switch (result) {
    case SpriteLoad::TooLarge:
        return u"The sprite %1 is too large for me to draw on."_s.arg(name);
    case SpriteLoad::Damaged:
        return u"I could not understand the files of the sprite %1. Maybe they are damaged."_s.arg(name);
    default:
        return u"I could not open the sprite %1. Maybe its files are gone."_s.arg(name);
    }
}

QLabel* decoration(QWidget* parent, const char* name, const char* iconName, QSize size)
{
    auto* const label = new QLabel(parent);
    label->setObjectName(QLatin1StringView(name));
    label->setPixmap(forms::icon(iconName).pixmap(size, label->devicePixelRatioF()));
    label->setAlignment(Qt::AlignCenter);
    return label;
}

constexpr std::array<const char16_t*, 3> hints = {
    u"A simple sprite shows its first frame.",
    u"An animated sprite shows its frames one after the other.",
    u"A rotating sprite turns with its direction: frame 1 looks right, the others go round by up and left.",
};

/// A label as high as the longest hint needs, so that nothing moves when the kind changes.
QLabel* hintLabel(QWidget* parent)
{
    auto* const label = new QLabel(parent);
    label->setObjectName(u"KindHint"_s);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignTop);
    const int width = std::max(184, label->fontMetrics().averageCharWidth() * 24);
    int height = 0;
    for (const char16_t* hint : hints)
        height =
            std::max(height, label->fontMetrics()
                                 .boundingRect(0, 0, width, 9999, Qt::TextWordWrap, QString::fromUtf16(hint))
                                 .height());
    label->setFixedSize(width, height + 4);
    return label;
}

} // namespace

/// One thing that the user can ask for: in a menu, on the toolbar or on a button.
struct SpriteEditor::CommandRow {
    const char* name;
    const char* icon;
    const char16_t* menuText;
    const char16_t* buttonText;
    const char16_t* tip;
    const char16_t* keys;
    void (*run)(SpriteEditor& editor);
};

SpriteEditor::SpriteEditor(Desk& desk, const QString& graphicName)
    : m_desk(desk)
    , m_files(desk.installation(), desk.pictures(), desk.module().gamePath())
{
    setObjectName(u"SpriteEditor"_s);
    setWindowTitle(u"Zorbino Sprite Editor"_s);
    setContextMenuPolicy(Qt::NoContextMenu);
    makeCommands();
    makeToolbar();
    setCentralWidget(makePage());

    m_nameLabel = new QLabel(this);
    m_nameLabel->setObjectName(u"SpriteName"_s);
    m_position = new QLabel(this);
    m_position->setObjectName(u"Position"_s);
    statusBar()->setContentsMargins(8, 0, 8, 0);
    statusBar()->addWidget(m_nameLabel, 1);
    statusBar()->addPermanentWidget(m_position);

    m_previewTimer = new QTimer(this);
    m_previewTimer->setObjectName(u"PreviewTimer"_s);
    m_previewTimer->setInterval(previewTick);
    connect(m_previewTimer, &QTimer::timeout, this, &SpriteEditor::preview_Timer);

    connectModel();
    setTool(SpriteTool::Pencil);
    setSwatch(firstColor);
    const QSize room = screen()->availableGeometry().size() - QSize(0, forms::titleBarHeight);
    // Below the run buttons, which nothing may cover, a low screen has no more room than that.
    const QSize low(room.width(), room.height() * 5 / 6);
    const int scrollBar =
        wholeSize().height() > low.height() ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
    setMinimumSize((wholeSize() + QSize(scrollBar, 0)).boundedTo(low));
    resize(QSize(960, 736).boundedTo(room));
    m_currentFrame->setFocus();
    Form_Load(graphicName);
}

SpriteEditor::~SpriteEditor()
{
    m_currentFrame->disconnect(this); // it loses the focus when there is no editor any more
}

/// What the window needs to show everything without scrolling.
QSize SpriteEditor::wholeSize() const
{
    const auto* const area = findChild<QScrollArea*>(u"PageArea"_s);
    return minimumSizeHint() - area->minimumSizeHint() + area->widget()->minimumSizeHint();
}

/// Everything between the toolbar and the status bar; it scrolls where even the smallest sizes have no room.
QWidget* SpriteEditor::makePage()
{
    auto* const page = new QWidget(this);
    auto* const middle = new QHBoxLayout;
    const int gap = sizesOn(*screen()).gap;
    middle->setSpacing(gap);
    middle->addWidget(makeColors());
    middle->addWidget(makeStage(), 1);
    middle->addWidget(makeSide());
    auto* const layout = new QVBoxLayout(page);
    layout->setContentsMargins(gap, std::min(gap, 8), gap, std::min(gap, 8));
    layout->setSpacing(gap);
    layout->addLayout(middle, 1);
    layout->addWidget(makeFrames());
    auto* const area = new QScrollArea(this);
    area->setObjectName(u"PageArea"_s);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(page);
    return area;
}

void SpriteEditor::makeCommands()
{
    // clang-format off
    static constexpr std::array<CommandRow, CommandCount> commands = {{
        {"NewSprite",      "new",         u"&New Sprite",          u"New",       u"Start a new sprite", u"Ctrl+N", [](SpriteEditor& e) { e.newSprite(); }},
        {"OpenSprite",     "folder",      u"&Open Sprite...",      u"Open",      u"Open a sprite of this game", u"Ctrl+O", [](SpriteEditor& e) { e.openSprite(); }},
        {"SaveSprite",     "save",        u"&Save Sprite",         u"Save",      u"Save this sprite", u"Ctrl+S", [](SpriteEditor& e) { e.saveSprite(); }},
        {"SaveSpriteAs",   "copy",        u"Save &As...",          u"Save As",   u"Save this sprite under another name", u"Ctrl+Shift+S", [](SpriteEditor& e) { e.saveSpriteAs(); }},
        {"CloseEditor",    "exit",        u"&Close",               u"Close",     u"Close this window", u"Ctrl+W", [](SpriteEditor& e) { e.close(); }},
        {"Undo",           "undo",        u"&Undo",                u"Undo",      u"Take the last change back", u"Ctrl+Z", [](SpriteEditor& e) { e.m_model.undo(); e.refresh(); }},
        {"Redo",           "redo",        u"&Redo",                u"Redo",      u"Do it again", u"Ctrl+Y", [](SpriteEditor& e) { e.m_model.redo(); e.refresh(); }},
        {"PointerTool",    "pointer",     u"P&ointer",             u"Pointer",   u"Point and measure, without drawing", u"Ctrl+1", [](SpriteEditor& e) { e.setTool(SpriteTool::Pointer); }},
        {"PencilTool",     "pencil",      u"&Pencil",              u"Pencil",    u"Draw with the pencil", u"Ctrl+2", [](SpriteEditor& e) { e.setTool(SpriteTool::Pencil); }},
        {"FillTool",       "fill",        u"&Fill",                u"Fill",      u"Fill a shape that has an outline in your color", u"Ctrl+3", [](SpriteEditor& e) { e.setTool(SpriteTool::Fill); }},
        {"AddFrame",       "add",         u"&Add Frame",           u"Add",       u"Add an empty frame", u"Ctrl+Insert", [](SpriteEditor& e) { e.m_model.addFrame(); e.refresh(); }},
        {"DuplicateFrame", "duplicate",   u"&Duplicate Frame",     u"Duplicate", u"Add a copy of this frame", u"Ctrl+D", [](SpriteEditor& e) { e.m_model.duplicateFrame(); e.refresh(); }},
        {"DeleteFrame",    "remove",      u"D&elete Frame",        u"Delete",    u"Delete this frame", u"Ctrl+Del", [](SpriteEditor& e) { e.m_model.removeFrame(); e.refresh(); }},
        {"FrameLeft",      "frame-left",  u"Move Frame &Left",     u"Left",      u"Move this frame one place to the left", u"Ctrl+Left", [](SpriteEditor& e) { e.m_model.moveFrame(-1); e.refresh(); }},
        {"FrameRight",     "frame-right", u"Move Frame &Right",    u"Right",     u"Move this frame one place to the right", u"Ctrl+Right", [](SpriteEditor& e) { e.m_model.moveFrame(1); e.refresh(); }},
    }};
    struct Menu {
        const char16_t* title;
        std::size_t first;
        std::size_t end;
    };
    static constexpr Menu menus[] = {{u"&File", NewSprite, Undo}, {u"&Edit", Undo, PointerTool}, {u"&Tools", PointerTool, AddFrame}, {u"F&rames", AddFrame, CommandCount}};
    // clang-format on
    for (const Menu& entry : menus) {
        QMenu* const menu = menuBar()->addMenu(QString::fromUtf16(entry.title));
        for (std::size_t index = entry.first; index < entry.end; ++index) {
            const CommandRow& from = commands[index];
            QAction* const action = m_actions[index] =
                new QAction(forms::icon(from.icon), QString::fromUtf16(from.menuText), this);
            action->setObjectName(QLatin1StringView(from.name));
            action->setIconText(QString::fromUtf16(from.buttonText));
            action->setShortcut(QKeySequence(QString::fromUtf16(from.keys)));
            action->setToolTip(QString::fromUtf16(from.tip) + u" (%1)"_s.arg(QString::fromUtf16(from.keys)));
            connect(action, &QAction::triggered, this, [this, run = from.run] {
                finishInput();
                run(*this);
            });
            menu->addAction(action);
        }
    }
    auto* const tools = new QActionGroup(this);
    for (const Command tool : {PointerTool, PencilTool, FillTool}) {
        action(tool).setCheckable(true);
        tools->addAction(&action(tool));
    }
}

void SpriteEditor::makeToolbar()
{
    auto* const bar = new QToolBar(u"Tools"_s, this);
    bar->setObjectName(u"Toolbar1"_s);
    bar->setMovable(false);
    const Sizes& sizes = sizesOn(*screen());
    bar->setToolButtonStyle(sizes.toolText);
    bar->setIconSize(QSize(sizes.toolIcon, sizes.toolIcon));
    for (const Command command :
         {NewSprite, OpenSprite, SaveSprite, Undo, Redo, PointerTool, PencilTool, FillTool}) {
        if (command == Undo || command == PointerTool)
            bar->addSeparator();
        bar->addAction(&action(command));
        QWidget* const button = bar->widgetForAction(&action(command));
        button->setObjectName(action(command).objectName() + "Button"_L1);
        button->setAccessibleName(action(command).iconText());
        button->setFocusPolicy(Qt::TabFocus);
        button->setMinimumWidth(64);
    }
    addToolBar(sizes.tools, bar);
}

QWidget* SpriteEditor::makeColors()
{
    auto* const panel = new QWidget(this);
    auto* const layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    auto* const title = new QLabel(u"&Colors"_s, panel);
    m_swatch = new ColorPlate("Swatch", panel);
    m_swatch->setFixedHeight(sizesOn(*screen()).swatch);
    m_palette = new PaletteView(sizesOn(*screen()).color, panel);
    title->setBuddy(m_palette);
    auto* const more = new QPushButton(u"&More..."_s, panel);
    forms::setUpButton(*more, "MoreColours", "palette", u"Choose any color you like"_s);
    connect(more, &QPushButton::clicked, this, &SpriteEditor::moreColors);
    layout->addWidget(title);
    layout->addWidget(m_swatch);
    layout->addWidget(m_palette, 0, Qt::AlignHCenter);
    layout->addWidget(more);
    layout->addStretch(1);
    return panel;
}

QWidget* SpriteEditor::makeStage()
{
    m_stage = new QWidget(this);
    m_stage->setObjectName(u"Stage"_s);
    const int side = sizesOn(*screen()).stage;
    m_stage->setMinimumSize(side, side);
    m_stage->installEventFilter(this);
    m_currentFrame = new FrameView(m_stage);
    return m_stage;
}

QWidget* SpriteEditor::makeSide()
{
    auto* const panel = new QWidget(this);
    auto* const layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);

    auto* const previewTitle = new QLabel(u"In the game"_s, panel);
    m_preview = new QLabel(panel);
    m_preview->setObjectName(u"Preview"_s);
    m_preview->setAccessibleName(u"The sprite as it moves in the game"_s);
    m_preview->setFixedSize(sizesOn(*screen()).preview + 8, sizesOn(*screen()).preview + 8);
    m_preview->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    m_preview->setAlignment(Qt::AlignCenter);
    layout->addWidget(previewTitle);
    layout->addWidget(m_preview, 0, Qt::AlignHCenter);

    m_kind = new QComboBox(panel);
    m_kind->setObjectName(u"Kind"_s);
    m_kind->addItems({u"Simple"_s, u"Animated"_s, u"Rotating"_s});
    m_kind->setAccessibleName(u"Kind of sprite"_s);
    const auto side = [this, panel](const char* name, const QString& what) {
        auto* const box = new QSpinBox(panel);
        box->setObjectName(QLatin1StringView(name));
        box->setAccessibleName(what);
        box->setToolTip(what + u", in pixels"_s);
        box->setRange(SpriteModel::smallestSide, largestSpinSide);
        box->setKeyboardTracking(false); // "64" is no 6 on the way
        box->installEventFilter(this);
        return box;
    };
    m_width = side("FrameWidth", u"Width of a frame"_s);
    m_height = side("FrameHeight", u"Height of a frame"_s);
    auto* const form = new QFormLayout;
    form->setSpacing(8);
    form->addRow(u"&Kind"_s, m_kind);
    form->addRow(u"&Width"_s, m_width);
    form->addRow(u"&Height"_s, m_height);
    layout->addLayout(form);

    m_hint = hintLabel(panel);
    m_hint->setVisible(sizesOn(*screen()).hint);
    layout->addWidget(m_hint);
    layout->addStretch(1);
    return panel;
}

QWidget* SpriteEditor::makeFrames()
{
    auto* const panel = new QWidget(this);
    auto* const layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    auto* const row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(decoration(panel, "Picture1", "sprite", QSize(36, 36)));
    row->addWidget(new QLabel(u"Frames"_s, panel));
    for (const Command command : {AddFrame, DuplicateFrame, DeleteFrame, FrameLeft, FrameRight}) {
        auto* const button = new QToolButton(panel);
        button->setDefaultAction(&action(command));
        button->setObjectName(action(command).objectName() + "Button"_L1);
        button->setAccessibleName(action(command).toolTip());
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setIconSize(QSize(22, 22));
        button->setFocusPolicy(Qt::TabFocus);
        row->addWidget(button);
    }
    row->addStretch(1); // the decoration stands where it costs no height
    auto* const logo = decoration(panel, "Logo", "logo", QSize(110, 36));
    logo->setVisible(sizesOn(*screen()).logo);
    row->addWidget(logo);
    layout->addLayout(row);

    m_strip = new StripView(m_model, sizesOn(*screen()).stripFrame, panel);
    m_stripArea = new QScrollArea(panel);
    m_stripArea->setObjectName(u"StripArea"_s);
    m_stripArea->setWidget(m_strip);
    m_stripArea->setFocusPolicy(Qt::NoFocus);
    m_stripArea->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_stripArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_stripArea->setFixedHeight(m_strip->height() + m_stripArea->horizontalScrollBar()->sizeHint().height() +
                                4);
    m_stripArea->viewport()->installEventFilter(this);
    connect(m_stripArea->horizontalScrollBar(), &QScrollBar::rangeChanged, this,
            &SpriteEditor::showCurrentOnStrip); // also when the window becomes smaller
    layout->addWidget(m_stripArea);
    return panel;
}

void SpriteEditor::connectModel()
{
    connect(m_currentFrame, &FrameView::mouseDown, this, &SpriteEditor::CurrentFrame_MouseDown);
    connect(m_currentFrame, &FrameView::mouseMove, this, &SpriteEditor::CurrentFrame_MouseMove);
    connect(m_currentFrame, &FrameView::mouseUp, this, &SpriteEditor::CurrentFrame_MouseUp);
    connect(m_currentFrame, &FrameView::lostFocus, this, &SpriteEditor::CurrentFrame_LostFocus);
    connect(m_palette, &PaletteView::picked, this, &SpriteEditor::palettep_MouseMove);
    connect(m_strip, &StripView::picked, this, [this](int index) {
        m_model.setCurrent(index);
        refresh();
    });
    connect(m_strip, &StripView::dragStarted, this, [this] { m_model.beginStroke(); });
    connect(m_strip, &StripView::dragEnded, this, [this] { m_model.endStroke(); });
    connect(m_strip, &StripView::dragged, this, [this](int toIndex) {
        m_model.moveFrame(toIndex - m_model.currentIndex());
        refresh();
    });
    connect(m_kind, &QComboBox::activated, this, [this](int index) {
        m_model.setKind(kinds[static_cast<std::size_t>(index)]);
        refresh();
    });
    connect(m_width, &QSpinBox::valueChanged, this, &SpriteEditor::setFrameSize);
    connect(m_height, &QSpinBox::valueChanged, this, &SpriteEditor::setFrameSize);
}

void SpriteEditor::Form_Load(const QString& graphicName)
{
    if (graphicName.isEmpty()) {
        refresh();
        return;
    }
    const SpriteLoad result = m_files.load(forms::toUtf8(graphicName), m_model);
    showLoaded(result);
    if (!isLoaded(result)) // told once the window is there
        QTimer::singleShot(
            0, this, [this, message = loadMessage(result, graphicName)] { forms::tell(this, message); });
}

void SpriteEditor::showLoaded(SpriteLoad result)
{
    refresh();
    if (result == SpriteLoad::Incomplete)
        statusBar()->showMessage(u"A part of this sprite is missing in its file. It is see-through there."_s);
}

// Drawing.

void SpriteEditor::CurrentFrame_MouseDown(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, int x, int y)
{
    CurrentFrame_MouseMove(buttons, shift, x, y);
}

void SpriteEditor::CurrentFrame_MouseMove(Qt::MouseButtons buttons, Qt::KeyboardModifiers /*shift*/, int x,
                                          int y)
{
    if (buttons.testFlag(Qt::RightButton) && m_model.contains(x, y))
        setSwatch(m_model.pixel(x, y));
    if (buttons.testFlag(Qt::LeftButton)) {
        m_strokes.hold(x, y, m_swatch->fillColor());
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

void SpriteEditor::palettep_MouseMove(Pixel color)
{
    setSwatch(color);
}

void SpriteEditor::setSwatch(Pixel color)
{
    m_swatch->setFillColor(color);
    m_palette->showChosen(color);
}

void SpriteEditor::moreColors()
{
    const Pixel now = m_swatch->fillColor();
    if (const auto chosen = forms::askColor(this, u"Choose a color"_s, now == transparent ? white : now))
        setSwatch(*chosen);
}

void SpriteEditor::setTool(SpriteTool tool)
{
    m_strokes.setTool(tool);
    const auto command = static_cast<Command>(static_cast<std::size_t>(tool) - 1 + PointerTool);
    action(command).setChecked(true);
    m_currentFrame->setCursor(tool == SpriteTool::Pointer ? Qt::ArrowCursor : Qt::CrossCursor);
}

void SpriteEditor::finishInput()
{
    m_strokes.end();
    m_width->interpretText();
    m_height->interpretText();
}

void SpriteEditor::setFrameSize()
{
    m_model.setFrameSize({m_width->value(), m_height->value()});
    refresh();
}

// Files.

QString SpriteEditor::graphicName() const
{
    return forms::fromUtf8(m_files.name());
}

void SpriteEditor::newSprite()
{
    if (!mayClose())
        return;
    m_model.clear(m_model.frameSize());
    m_discardAllowed = false;
    m_files.startNew();
    refresh();
}

void SpriteEditor::openSprite()
{
    if (!mayClose())
        return;
    m_discardAllowed = false; // the list of sprites may still be cancelled
    const auto name = chooseSprite(this, m_desk.installation(), m_desk.pictures(), m_files.folder());
    if (!name)
        return;
    const SpriteLoad result = m_files.load(forms::toUtf8(*name), m_model);
    if (isLoaded(result))
        showLoaded(result);
    else
        forms::warn(this, loadMessage(result, *name));
}

bool SpriteEditor::saveSprite()
{
    return m_files.name().empty() ? saveSpriteAs() : saveAs(graphicName());
}

bool SpriteEditor::saveSpriteAs()
{
    const QString name = askName();
    return !name.isEmpty() && saveAs(name);
}

QString SpriteEditor::askName()
{
    for (QString wish = graphicName();;) {
        const auto answer = forms::askText(
            this, u"Save Sprite"_s, u"What is the name of your sprite? (small letters and digits)"_s, wish);
        if (!answer)
            return {};
        const std::string name = writableName(forms::toUtf8(*answer));
        wish = name.empty() ? *answer : forms::fromUtf8(name);
        switch (m_files.faultOf(name)) {
        case SpriteNameFault::None:
            return wish;
        case SpriteNameFault::Empty:
            forms::tell(this, u"I need a name with at least one letter or digit in it."_s);
            break;
        case SpriteNameFault::Icon:
            forms::tell(
                this,
                u"I cannot call a sprite \"%1\": that is the name of the picture that stands for your game. "
                "Please think of another name."_s.arg(wish));
            break;
        case SpriteNameFault::Taken:
            if (forms::askOk(this, u"Save Sprite"_s,
                             u"There is a sprite named %1 already. Shall I replace it?"_s.arg(wish)))
                return wish;
        }
    }
}

bool SpriteEditor::mayReplace(const QString& name)
{
    if (const auto file = m_files.changedFile(forms::toUtf8(name)))
        return forms::askReplaceChanged(this, forms::fromUtf8(*file));
    return m_desk.mayChangeGame(this);
}

bool SpriteEditor::saveAs(const QString& name)
{
    if (!mayReplace(name))
        return false;
    if (!m_files.save(forms::toUtf8(name), m_model)) {
        forms::warn(this,
                    u"I could not save the sprite %1. Maybe the disk is full, or I am not allowed to write "
                    "there. Your sprite is still here in this window."_s.arg(name));
        return false;
    }
    m_model.setSaved();
    refreshState();
    statusBar()->showMessage(u"Saved. Your program can use it as \"%1\"."_s.arg(name), 6000);
    Q_EMIT saved(name);
    return true;
}

bool SpriteEditor::mayClose()
{
    finishInput();
    if (!m_model.isModified() || m_discardAllowed)
        return true;
    const QString name =
        m_files.name().empty() ? u"your new sprite"_s : u"the sprite %1"_s.arg(graphicName());
    switch (forms::askYesNoCancel(this, u"Zorbino Sprite Editor"_s, u"Do you want to save %1?"_s.arg(name))) {
    case forms::Answer::Yes:
        return saveSprite();
    case forms::Answer::No:
        m_discardAllowed = true; // not asked again while nothing new is drawn
        return true;
    default:
        return false;
    }
}

void SpriteEditor::closeEvent(QCloseEvent* event)
{
    event->setAccepted(mayClose());
}

// Views.

bool SpriteEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_stage && event->type() == QEvent::Resize)
        placeCurrentFrame();
    if (m_stripArea != nullptr && watched == m_stripArea->viewport() && event->type() == QEvent::Wheel) {
        QCoreApplication::sendEvent(m_stripArea->horizontalScrollBar(),
                                    event); // a usual wheel turns up and down
        return true;
    }
    if ((watched == m_width || watched == m_height) && event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo)) {
        event->ignore(); // it means the last change of the sprite, also while the box has the focus
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

void SpriteEditor::placeCurrentFrame()
{
    const FrameSize size = m_model.frameSize();
    m_currentFrame->setGeometry(fitFrame(m_stage->rect(), size.width, size.height));
}

void SpriteEditor::showCurrentOnStrip()
{
    const QRect current = m_strip->frameRect(m_model.currentIndex());
    m_stripArea->ensureVisible(current.center().x(), current.center().y(), current.width(), 0);
}

void SpriteEditor::refresh()
{
    placeCurrentFrame();
    m_strip->refresh();
    showCurrentOnStrip();
    const QSignalBlocker blockKind(m_kind);
    const QSignalBlocker blockWidth(m_width);
    const QSignalBlocker blockHeight(m_height);
    m_kind->setCurrentIndex(static_cast<int>(m_model.kind()) - 1);
    const auto showSide = [](QSpinBox* box, int side) {
        box->setMaximum(std::max(largestSpinSide, side)); // a large frame that others made stays as it is
        box->setValue(side);
    };
    showSide(m_width, m_model.frameSize().width);
    showSide(m_height, m_model.frameSize().height);
    updatePreviewTimer();
    refreshPixels();
}

void SpriteEditor::refreshPixels()
{
    m_discardAllowed = false;
    statusBar()->clearMessage();
    m_currentFrame->showFrame(m_model.currentFrame());
    m_strip->update();
    if (!m_previewTimer->isActive())
        preview_Timer();
    refreshState();
}

void SpriteEditor::refreshState()
{
    const QString hint = QString::fromUtf16(hints[static_cast<std::size_t>(m_model.kind()) - 1]);
    m_hint->setText(hint);
    m_kind->setToolTip(hint);
    const QString name = m_files.name().empty() ? u"New sprite"_s : u"Sprite \"%1\""_s.arg(graphicName());
    m_nameLabel->setText(m_model.isModified() ? name + u", not saved yet"_s : name);
    action(Undo).setEnabled(m_model.canUndo());
    action(Redo).setEnabled(m_model.canRedo());
    action(AddFrame).setEnabled(m_model.canAddFrame());
    action(DuplicateFrame).setEnabled(m_model.canAddFrame());
    action(FrameLeft).setEnabled(m_model.currentIndex() > 0);
    action(FrameRight).setEnabled(m_model.currentIndex() + 1 < m_model.frameCount());
}

void SpriteEditor::preview_Timer()
{
    m_previewFrame = m_previewTimer->isActive() ? m_previewFrame + framesPerAnimationStep : 0;
    const auto frame = m_model.frame(m_model.previewIndex(m_previewFrame));
    const int previewSide = m_preview->width() - 8;
    QPixmap picture(previewSide, previewSide);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawFrame(painter, fitFrame(picture.rect(), frame->width(), frame->height()), *frame);
    painter.end();
    m_preview->setPixmap(picture);
}

/// An animation costs nothing while nobody sees it.
void SpriteEditor::updatePreviewTimer()
{
    const bool moves = isVisible() && m_model.kind() != GraphicKind::Simple && m_model.frameCount() > 1;
    if (!moves)
        m_previewTimer->stop();
    else if (!m_previewTimer->isActive())
        m_previewTimer->start();
}

void SpriteEditor::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    updatePreviewTimer();
}

void SpriteEditor::hideEvent(QHideEvent* event)
{
    QMainWindow::hideEvent(event);
    updatePreviewTimer();
}
