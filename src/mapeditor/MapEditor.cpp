// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "mapeditor/MapEditor.h"

#include "forms/ActionRow.h"
#include "forms/MessageBoxes.h"
#include "forms/PictureArea.h"
#include "forms/Replacing.h"
#include "forms/Texts.h"
#include "forms/WindowPlacement.h"
#include "mapeditor/ColorLegend.h"
#include "mapeditor/MapCanvas.h"
#include "mapeditor/MapDisplay.h"
#include "mapeditor/NewMapPanel.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolBar>

#include <algorithm>
#include <utility>

namespace
{

using namespace Qt::StringLiterals;

constexpr int smallestButton = 72;

/// What is wrong with a name for a map; `example` is a better one.
QString reasonAgainst(MapNameFault fault, const QString& name, const QString& example)
{
    switch (fault) {
    case MapNameFault::LeadsOut:
        return u"The name %1 leads out of your games. Say the game's folder and the map's name, like %2"_s
            .arg(name, example);
    case MapNameFault::Icon:
        return u"The name icon belongs to the icon of your game, which you see in the library. Please give "
               "your map another name, like %1"_s.arg(example);
    case MapNameFault::GameFile:
        return u"The file %1 of your game is not a map. Please give your map another name."_s.arg(name);
    default:
        return u"No program can use a map with the name %1. Please give your map a name without spaces, "
               "quotes, semicolons and braces, like %2"_s.arg(name, example);
    }
}

QMenu* addMenu(QMenuBar& bar, const QString& title, const QString& name)
{
    QMenu* const menu = bar.addMenu(title);
    menu->setObjectName(name);
    menu->menuAction()->setObjectName(name);
    return menu;
}

/// Lets a panel scroll on a low screen; there is always room for the bar beside it.
QScrollArea* scrolled(QWidget* panel, QWidget* parent)
{
    auto* const area = new QScrollArea(parent);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    area->setWidget(panel);
    area->setFixedWidth(panel->sizeHint().width() + area->verticalScrollBar()->sizeHint().width());
    return area;
}

} // namespace

MapEditor::MapEditor(Desk& desk)
    : m_desk(desk)
    , m_files(desk.installation(), desk.pictures())
{
    setObjectName(u"MapEditor"_s);
    setContextMenuPolicy(Qt::NoContextMenu);
    makeMenus();
    makePage();

    connect(m_canvas, &MapCanvas::resized, this, &MapEditor::Form_Resize);
    connect(m_display, &MapDisplay::mouseDown, this, &MapEditor::Display_MouseDown);
    connect(m_display, &MapDisplay::mouseMove, this, &MapEditor::Display_MouseMove);
    connect(m_display, &MapDisplay::mouseUp, this, &MapEditor::Display_MouseUp);
    connect(m_display, &MapDisplay::mouseLeft, m_canvas, [this] { m_canvas->setMarked(-1, -1); });
    connect(m_newMap, &NewMapPanel::answered, this, &MapEditor::CreateNewMap_Click);
    connect(m_legend, &ColorLegend::colorPicked, this, &MapEditor::ColorSelect_Click);
    connect(m_legend, &ColorLegend::textChanged, this, &MapEditor::LegendText_Change);
    connect(m_legend, &ColorLegend::onlyCurrentChanged, this, &MapEditor::OnlyCurrent_Click);
    placeToolbar();
    resize(sizeHint()); // the display as large as in the game; a small screen makes it smaller
    Form_Load();
}

void MapEditor::makePage()
{
    m_canvas = new MapCanvas(this);
    m_display = new MapDisplay(m_canvas);
    m_display->setEnabled(false);
    m_background = new forms::PictureArea("Background", this);
    m_background->hide();
    m_backgroundResized = new forms::PictureArea("backgroundResized", this);
    m_backgroundResized->hide();
    m_newMap = new NewMapPanel(m_canvas);

    auto* const page = new QWidget(this);
    m_legend = new ColorLegend(page);
    auto* const layout = new QHBoxLayout(page);
    layout->setContentsMargins(8, 8, 4, 8);
    layout->setSpacing(12);
    layout->addWidget(m_canvas, 1);
    layout->addWidget(scrolled(m_legend, page));
    setCentralWidget(page);
}

void MapEditor::makeMenus()
{
    struct Entry {
        forms::MenuRow row;
        void (MapEditor::*handler)();
    };
    // clang-format off
    static constexpr Entry entries[] = {
        {{{"FileNew",        "new",        u"New",        u"Start a new map"},                u"&New Map...",         u"Ctrl+N"}, &MapEditor::FileNew_Click},
        {{{"FileOpen",       "open-map",   u"Open",       u"Open a map that you have saved"}, u"&Open Map...",        u"Ctrl+O"}, &MapEditor::FileOpen_Click},
        {{{"FileSave",       "save-map",   u"Save",       u"Save this map"},                  u"&Save Map",           u"Ctrl+S"}, &MapEditor::FileSave_Click},
        {{{"ViewBackground", "background", u"Background", u"Show the map over a picture"},    u"&Over Background...", u"Ctrl+B"}, &MapEditor::ViewBackground_Click},
    };
    // clang-format on
    QMenu* const file = addMenu(*menuBar(), u"&File"_s, u"FileMnu"_s);
    QMenu* const view = addMenu(*menuBar(), u"&View"_s, u"ViewMnu"_s);
    auto* const bar = new QToolBar(u"Map"_s, this);
    bar->setObjectName(u"Toolbar"_s);
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    bar->setIconSize(QSize(32, 32));
    for (const Entry& entry : entries) {
        QAction* const action = forms::makeAction(entry.row, this);
        connect(action, &QAction::triggered, this, entry.handler);
        (entry.handler == &MapEditor::ViewBackground_Click ? view : file)->addAction(action);
        forms::addButton(*bar, *action, smallestButton);
    }
    addToolBar(bar);
}

/// The toolbar stands on the left where that gives the display more room: on a low and wide screen.
void MapEditor::placeToolbar()
{
    auto* const bar = findChild<QToolBar*>(u"Toolbar"_s);
    const int barWidth = bar->widgetForAction(bar->actions().last())->sizeHint().width(); // "Background"
    const QSize screenRoom = screen()->availableGeometry().size() - QSize(0, forms::titleBarHeight);
    const QSize below = screenRoom - (sizeHint() - m_canvas->sizeHint());
    const QSize beside = below + QSize(-barWidth, bar->sizeHint().height());
    const auto sideOf = [this](QSize room) {
        const QSize canvas = room.boundedTo(m_canvas->sizeHint());
        return std::min(canvas.width(), canvas.height());
    };
    if (sideOf(beside) > sideOf(below))
        addToolBar(Qt::LeftToolBarArea, bar);
}

void MapEditor::Form_Load()
{
    ColorSelect_Click(m_currentColor);
    FileNew_Click();
    showTitle();
}

void MapEditor::showTitle()
{
    QString title = u"Zorbino Map Editor"_s;
    if (!m_files.name().empty())
        title += u" - "_s + forms::fromUtf8(m_files.name());
    if (m_painting.isModified())
        title += u" *"_s;
    setWindowTitle(title);
}

// New maps.

void MapEditor::FileNew_Click()
{
    m_newMap->ask();
}

void MapEditor::CreateNewMap_Click()
{
    m_painting.create(m_newMap->squares());
    m_files.startNew();
    mapOpened();
}

void MapEditor::mapOpened()
{
    m_newMap->hide();
    m_display->setEnabled(map().hasGrid());
    m_canvas->setGrid(map().columns, map().rows);
    showTitle();
    RedrawMap();
}

void MapEditor::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isAsked = m_newMap->isVisible();
    if (event->key() == Qt::Key_Escape && isAsked && m_display->isEnabled())
        m_newMap->hide(); // back to the map that is there
    else if (isReturn && isAsked && m_newMap->isAncestorOf(focusWidget()))
        CreateNewMap_Click();
    else
        QMainWindow::keyPressEvent(event);
}

// Colors and legend.

void MapEditor::ColorSelect_Click(int index)
{
    m_legend->showColor(index);
    m_currentColor = index;
    RedrawMap();
}

void MapEditor::LegendText_Change(int index)
{
    if (m_loading)
        return;
    m_painting.setLegend(index, forms::toUtf8(m_legend->text(index)));
    showTitle();
}

void MapEditor::OnlyCurrent_Click()
{
    RedrawMap();
}

// Drawing.

void MapEditor::RedrawMap()
{
    if (m_resizedPicture.isNull())
        return;
    m_picture = m_resizedPicture;
    if (map().hasGrid())
        map().Draw(m_picture, m_legend->onlyCurrent() ? m_currentColor : -1);
    m_display->update();
}

void MapEditor::Form_Resize()
{
    const QRect area = m_canvas->displayRect();
    m_display->setGeometry(area);
    m_newMap->moveToMiddle();
    scaleBackground();
    RedrawMap();
    m_display->showSurface(&m_picture);
}

void MapEditor::scaleBackground()
{
    m_resizedPicture.reset(m_display->width(), m_display->height());
    stretch(m_resizedPicture, m_backgroundPicture);
    m_backgroundResized->showSurface(&m_resizedPicture);
}

void MapEditor::showBackground(Surface picture)
{
    m_backgroundPicture = std::move(picture);
    m_background->showSurface(&m_backgroundPicture);
}

// Painting.

void MapEditor::Display_MouseDown(int x, int y)
{
    m_painting.beginStroke();
    Display_MouseMove(x, y);
}

void MapEditor::Display_MouseMove(int x, int y)
{
    const GridPlace place = m_painting.placeAt(x, y, m_display->width(), m_display->height());
    const bool isOn = m_display->rect().contains(x, y);
    m_canvas->setMarked(isOn ? place.column : -1, isOn ? place.row : -1);
    if (!m_painting.isPainting() || !m_painting.strokeTo(place, brush()))
        return; // nothing has changed: the picture would be the same
    showTitle();
    RedrawMap();
}

Brush MapEditor::brush() const
{
    return {m_currentColor, m_legend->deletes(), m_legend->onlyCurrent()};
}

void MapEditor::Display_MouseUp()
{
    m_painting.endStroke();
}

void MapEditor::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::ActivationChange && !isActiveWindow())
        Display_MouseUp(); // the button may be let go of over a box that has come up
    QMainWindow::changeEvent(event);
}

// Files.

/// The folder of the game that is picked in the library, or one as they look.
QString MapEditor::exampleFolder() const
{
    const std::string& folder = m_desk.module().CurrentGame.folder;
    return folder.empty() ? u"00000001\\"_s : forms::fromUtf8(folder);
}

/// A name without the blanks around it; asked for again until there is one.
std::optional<QString> MapEditor::askName(const QString& title, const QString& prompt, const QString& start)
{
    for (;;) {
        const auto name = forms::askText(this, title, prompt.arg(exampleFolder()), start);
        if (!name)
            return std::nullopt;
        if (faultOf(forms::toUtf8(*name)) != MapNameFault::Blank)
            return name->trimmed();
    }
}

void MapEditor::FileOpen_Click()
{
    const auto name =
        askName(u"Open..."_s, u"Which map? Say the game's folder and the map's name,\nlike %1castle"_s,
                forms::fromUtf8(m_files.name()));
    if (!name)
        return;
    const MapLoad result = m_files.load(forms::toUtf8(*name), m_painting);
    if (result == MapLoad::Missing)
        forms::warn(this,
                    u"I could not open the map %1. Maybe it has another name, or it is gone."_s.arg(*name));
    else
        showLoaded(*name, result);
}

void MapEditor::showLoaded(const QString& name, MapLoad result)
{
    {
        const QScopedValueRollback loading(m_loading, true);
        m_legend->showTexts(map());
    }
    auto background = m_files.pictureOf(map(), forms::toUtf8(name));
    const bool lacksBackground = !background && !map().get_background().empty();
    if (background)
        showBackground(std::move(*background));
    Form_Resize();
    mapOpened();
    if (result == MapLoad::Damaged)
        forms::warn(this,
                    u"I could not read the map %1 to its end. Its file seems to be damaged."_s.arg(name));
    else if (lacksBackground)
        forms::warn(this, u"I could not open the picture %1, which belongs to this map."_s.arg(
                              forms::fromUtf8(map().get_background())));
}

void MapEditor::FileSave_Click()
{
    if (!map().hasGrid()) {
        forms::tell(this, u"There is no map to save yet. Make a new one first!"_s);
        return;
    }
    const auto name =
        askName(u"Save as..."_s,
                u"Where to? Say the game's folder and the map's name without spaces,\nlike %1castle"_s,
                forms::fromUtf8(m_files.name()));
    if (!name || !maySaveAs(*name))
        return;
    if (!m_files.save(forms::toUtf8(*name), m_painting)) {
        forms::warn(
            this,
            u"I could not save the map %1. Maybe there is no such folder, the disk is full, or I am not "
            "allowed to write there. Your map is still here."_s.arg(*name));
        return;
    }
    showTitle();
    forms::tell(this, *name + u" saved."_s);
}

bool MapEditor::maySaveAs(const QString& name)
{
    const std::string text = forms::toUtf8(name);
    if (const MapNameFault fault = m_files.faultOf(text); fault != MapNameFault::None) {
        forms::tell(this, reasonAgainst(fault, name, exampleFolder() + u"castle"_s));
        return false;
    }
    if (const auto file = m_files.changedFile(text))
        return forms::askReplaceChanged(this, forms::fromUtf8(*file));
    return m_desk.mayChangeGame(this);
}

void MapEditor::ViewBackground_Click()
{
    const auto name =
        askName(u"Enter background filename"_s,
                u"Which picture? Say the game's folder and the picture's name,\nlike %1sky.bmp"_s,
                forms::fromUtf8(map().get_background()));
    if (!name)
        return;
    auto picture = m_files.picture(forms::toUtf8(*name));
    if (!picture) {
        forms::warn(
            this,
            u"I could not open the picture %1. Maybe it has another name, or it is no picture."_s.arg(*name));
        return;
    }
    showBackground(std::move(*picture));
    m_painting.setBackground(forms::toUtf8(*name));
    showTitle();
    Form_Resize();
}
