// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "mapeditor/MapEditor.h"

#include "forms/Icons.h"
#include "forms/MessageBoxes.h"
#include "forms/PictureArea.h"
#include "forms/Replacing.h"
#include "forms/Texts.h"
#include "mapeditor/ColorSwatch.h"
#include "mapeditor/MapCanvas.h"
#include "mapeditor/MapDisplay.h"
#include "mapeditor/MapName.h"
#include "platform/TextFile.h"

#include <QAction>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

using namespace Qt::StringLiterals;

constexpr int usualSize = 4; // "16 x 16"
constexpr std::array<int, 10> sizes = {3, 5, 8, 10, 16, 25, 40, 50, 64, 75};
constexpr std::array<const char16_t*, mapColorCount> colorNames = {u"Red",  u"Orange", u"Yellow", u"Green",
                                                                   u"Cyan", u"Blue",   u"Purple"};

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

} // namespace

MapEditor::MapEditor(Desk& desk)
    : m_desk(desk)
{
    setObjectName(u"MapEditor"_s);
    setContextMenuPolicy(Qt::NoContextMenu);
    makeMenus();

    m_canvas = new MapCanvas(this);
    m_display = new MapDisplay(m_canvas);
    m_display->setEnabled(false);
    m_background = new forms::PictureArea("Background", this);
    m_background->hide();
    m_backgroundResized = new forms::PictureArea("backgroundResized", this);
    m_backgroundResized->hide();
    m_newMap = makeNewMapPanel(m_canvas);

    auto* const page = new QWidget(this);
    auto* const layout = new QHBoxLayout(page);
    layout->setContentsMargins(8, 8, 4, 8);
    layout->setSpacing(12);
    layout->addWidget(m_canvas, 1);
    layout->addWidget(makeSide());
    setCentralWidget(page);
    statusBar();

    connect(m_canvas, &MapCanvas::resized, this, &MapEditor::Form_Resize);
    connect(m_display, &MapDisplay::mouseDown, this, &MapEditor::Display_MouseDown);
    connect(m_display, &MapDisplay::mouseMove, this, &MapEditor::Display_MouseMove);
    connect(m_display, &MapDisplay::mouseUp, this, &MapEditor::Display_MouseUp);
    connect(m_display, &MapDisplay::mouseLeft, m_canvas, [this] { m_canvas->setMarked(-1, -1); });
    resize(sizeHint()); // the display as large as in the game; a small screen makes it smaller
    Form_Load();
}

void MapEditor::makeMenus()
{
    struct Entry {
        const char* name;
        const char* icon;
        const char16_t* text;
        const char16_t* buttonText;
        const char16_t* tip;
        const char16_t* keys;
        void (MapEditor::*handler)();
    };
    // clang-format off
    static constexpr Entry entries[] = {
        {"FileNew",        "new",        u"&New Map...",         u"New",        u"Start a new map",                  u"Ctrl+N", &MapEditor::FileNew_Click},
        {"FileOpen",       "open-map",   u"&Open Map...",        u"Open",       u"Open a map that you have saved",   u"Ctrl+O", &MapEditor::FileOpen_Click},
        {"FileSave",       "save-map",   u"&Save Map",           u"Save",       u"Save this map",                    u"Ctrl+S", &MapEditor::FileSave_Click},
        {"ViewBackground", "background", u"&Over Background...", u"Background", u"Show the map over a picture",      u"Ctrl+B", &MapEditor::ViewBackground_Click},
    };
    // clang-format on
    QMenu* const file = menuBar()->addMenu(u"&File"_s);
    file->setObjectName(u"FileMnu"_s);
    file->menuAction()->setObjectName(u"FileMnu"_s);
    QMenu* const view = menuBar()->addMenu(u"&View"_s);
    view->setObjectName(u"ViewMnu"_s);
    view->menuAction()->setObjectName(u"ViewMnu"_s);

    auto* const bar = new QToolBar(u"Map"_s, this);
    bar->setObjectName(u"Toolbar"_s);
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    bar->setIconSize(QSize(32, 32));
    for (const Entry& entry : entries) {
        auto* const action = new QAction(forms::icon(entry.icon), QString::fromUtf16(entry.text), this);
        action->setObjectName(QLatin1StringView(entry.name));
        action->setIconText(QString::fromUtf16(entry.buttonText));
        action->setShortcut(QKeySequence(QString::fromUtf16(entry.keys)));
        action->setToolTip(QString::fromUtf16(entry.tip) + u" (%1)"_s.arg(QString::fromUtf16(entry.keys)));
        connect(action, &QAction::triggered, this, entry.handler);
        (entry.handler == &MapEditor::ViewBackground_Click ? view : file)->addAction(action);
        bar->addAction(action);
        QWidget* const button = bar->widgetForAction(action);
        button->setObjectName(QLatin1StringView(entry.name) + "Button"_L1);
        button->setAccessibleName(action->iconText());
        button->setFocusPolicy(Qt::TabFocus);
        button->setMinimumWidth(72);
    }
    addToolBar(bar);
}

QFrame* MapEditor::makeNewMapPanel(QWidget* parent)
{
    auto* const panel = new QFrame(parent);
    panel->setObjectName(u"NewMap"_s);
    panel->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    panel->setAutoFillBackground(true);
    auto* const question = new QLabel(u"How many &squares for the new map?"_s, panel);
    m_sizes = new QComboBox(panel);
    m_sizes->setObjectName(u"MapSizeBox"_s);
    m_sizes->setAccessibleName(u"Squares of the new map"_s);
    for (const int size : sizes)
        m_sizes->addItem(u"%1 x %1"_s.arg(size));
    m_sizes->setMaxVisibleItems(static_cast<int>(sizes.size()));
    question->setBuddy(m_sizes);
    auto* const create = new QPushButton(u"&Ok"_s, panel);
    forms::setUpButton(*create, "CreateNewMap", "ok", u"Make the new map"_s);
    connect(create, &QPushButton::clicked, this, &MapEditor::CreateNewMap_Click);
    auto* const layout = new QVBoxLayout(panel);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(12);
    layout->addWidget(question);
    layout->addWidget(m_sizes);
    layout->addWidget(create);
    return panel;
}

QWidget* MapEditor::makeSide()
{
    auto* const panel = new QWidget(this);
    auto* const layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 8, 0);
    layout->setSpacing(8);

    auto* const frame = new QGroupBox(u"Colors and what they mean"_s, panel);
    frame->setObjectName(u"LegendFrame"_s);
    auto* const grid = new QGridLayout(frame);
    grid->setSpacing(8);
    auto* const group = new QButtonGroup(this);
    for (int index = 0; index < mapColorCount; ++index) {
        const std::size_t place = static_cast<std::size_t>(index);
        const QString name = QString::fromUtf16(colorNames[place]);
        auto* const swatch = new ColorSwatch(u"ColorSelect_%1"_s.arg(index), ColorTable[place], frame);
        swatch->setAccessibleName(name);
        swatch->setToolTip(u"Paint with %1 (Alt+%2)"_s.arg(name.toLower()).arg(index + 1));
        swatch->setShortcut(QKeySequence(u"Alt+%1"_s.arg(index + 1)));
        connect(swatch, &QAbstractButton::clicked, this, [this, index] { ColorSelect_Click(index); });
        group->addButton(swatch, index);
        auto* const text = new QLineEdit(frame);
        text->setObjectName(u"LegendText_%1"_s.arg(index));
        text->setAccessibleName(u"What %1 means"_s.arg(name.toLower()));
        text->setPlaceholderText(u"What is %1?"_s.arg(name.toLower()));
        text->setMinimumWidth(text->fontMetrics().averageCharWidth() * 20);
        connect(text, &QLineEdit::textChanged, this, [this, index] { LegendText_Change(index); });
        grid->addWidget(swatch, index, 0);
        grid->addWidget(new QLabel(name, frame), index, 1);
        grid->addWidget(text, index, 2);
        m_swatches[place] = swatch;
        m_legend[place] = text;
    }

    m_delete = new QCheckBox(u"Delete"_s, panel);
    m_delete->setObjectName(u"delete"_s);
    m_delete->setIcon(forms::icon("eraser"));
    m_delete->setShortcut(QKeySequence(u"Alt+D"_s));
    m_delete->setToolTip(u"Painting takes colors away (Alt+D)"_s);
    m_onlyCurrent = new QCheckBox(u"Show Current Color Only"_s, panel);
    m_onlyCurrent->setObjectName(u"OnlyCurrent"_s);
    m_onlyCurrent->setShortcut(QKeySequence(u"Alt+C"_s));
    m_onlyCurrent->setToolTip(u"The other colors are hidden for a while (Alt+C)"_s);
    connect(m_onlyCurrent, &QCheckBox::toggled, this, &MapEditor::OnlyCurrent_Click);

    layout->addWidget(frame);
    layout->addWidget(m_delete);
    layout->addWidget(m_onlyCurrent);
    layout->addStretch(1);

    // On a low screen the panel can be scrolled; there is always room for the bar beside it.
    auto* const scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidgetResizable(true);
    scroll->setWidget(panel);
    scroll->setFixedWidth(panel->sizeHint().width() + scroll->verticalScrollBar()->sizeHint().width());
    return scroll;
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
    if (!m_fileName.isEmpty())
        title += u" - "_s + m_fileName;
    if (m_painting.isModified())
        title += u" *"_s;
    setWindowTitle(title);
}

// New maps.

void MapEditor::FileNew_Click()
{
    m_sizes->setCurrentIndex(usualSize);
    m_newMap->show();
    m_newMap->raise();
    placeNewMapPanel();
    m_sizes->setFocus();
}

void MapEditor::CreateNewMap_Click()
{
    m_newMap->hide();
    const QString text = m_sizes->currentText();
    m_painting.create(text.left(text.indexOf(u' ')).toInt());
    m_fileName.clear();
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
    for (ColorSwatch* const swatch : m_swatches)
        swatch->setChecked(swatch == m_swatches[static_cast<std::size_t>(index)]);
    m_currentColor = index;
    RedrawMap();
}

void MapEditor::LegendText_Change(int index)
{
    if (m_loading)
        return;
    m_painting.setLegend(index, forms::toUtf8(m_legend[static_cast<std::size_t>(index)]->text()));
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
        map().Draw(m_picture, m_onlyCurrent->isChecked() ? m_currentColor : -1);
    m_display->update();
}

void MapEditor::Form_Resize()
{
    const QRect area = m_canvas->displayRect();
    m_display->setGeometry(area);
    placeNewMapPanel();
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

void MapEditor::placeNewMapPanel()
{
    QRect place({}, m_newMap->sizeHint().expandedTo(QSize(260, 0)));
    place.moveCenter(m_canvas->rect().center());
    m_newMap->setGeometry(place);
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
    return {m_currentColor, m_delete->isChecked(), m_onlyCurrent->isChecked()};
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
    const auto name = askName(
        u"Open..."_s, u"Which map? Say the game's folder and the map's name,\nlike %1castle"_s, m_fileName);
    if (!name)
        return;
    const auto bytes = m_desk.installation().readBytes(belowGames(forms::toUtf8(*name)));
    if (!bytes) {
        forms::warn(this,
                    u"I could not open the map %1. Maybe it has another name, or it is gone."_s.arg(*name));
        return;
    }
    const bool isWhole = takeMap(*name, *bytes);
    const bool backgroundFound = loadBackgroundOf(*name);
    Form_Resize();
    mapOpened();
    if (!isWhole)
        forms::warn(this,
                    u"I could not read the map %1 to its end. Its file seems to be damaged."_s.arg(*name));
    else if (!backgroundFound)
        forms::warn(this, u"I could not open the picture %1, which belongs to this map."_s.arg(
                              forms::fromUtf8(map().get_background())));
}

bool MapEditor::takeMap(const QString& name, std::string_view bytes)
{
    const bool isWhole = m_painting.load(decodeText(bytes));
    m_fileName = isWhole ? name : QString();
    m_fileStamp = FileStamp(bytes);
    showLegend();
    return isWhole;
}

void MapEditor::showLegend()
{
    const QScopedValueRollback loading(m_loading, true);
    for (int index = 0; index < mapColorCount; ++index) {
        QLineEdit* const box = m_legend[static_cast<std::size_t>(index)];
        box->setText(forms::fromUtf8(map().get_legend(index)));
        box->setCursorPosition(0); // a long text shows its beginning
    }
}

void MapEditor::FileSave_Click()
{
    if (!map().hasGrid()) {
        forms::tell(this, u"There is no map to save yet. Make a new one first!"_s);
        return;
    }
    const auto name = askName(
        u"Save as..."_s,
        u"Where to? Say the game's folder and the map's name without spaces,\nlike %1castle"_s, m_fileName);
    if (!name || !mayBeSavedAs(*name))
        return;
    const std::string bytes = map().toText();
    if (!m_desk.installation().write(belowGames(forms::toUtf8(*name)), bytes)) {
        forms::warn(
            this,
            u"I could not save the map %1. Maybe there is no such folder, the disk is full, or I am not "
            "allowed to write there. Your map is still here."_s.arg(*name));
        return;
    }
    m_fileName = *name;
    m_fileStamp = FileStamp(bytes);
    m_painting.noteSaved();
    showTitle();
    forms::tell(this, *name + u" saved."_s);
}

bool MapEditor::mayBeSavedAs(const QString& name)
{
    const std::string path = belowGames(forms::toUtf8(name));
    MapNameFault fault = faultOf(forms::toUtf8(name));
    if (fault != MapNameFault::LeadsOut && holdsNoMap(m_desk.installation(), path))
        fault = MapNameFault::GameFile;
    if (fault == MapNameFault::None)
        return mayReplace(path);
    forms::tell(this, reasonAgainst(fault, name, exampleFolder() + u"castle"_s));
    return false;
}

bool MapEditor::mayReplace(const std::string& productPath)
{
    const auto place = m_desk.installation().find(productPath);
    const bool wasSeen = place && place == m_desk.installation().find(belowGames(forms::toUtf8(m_fileName)));
    return wasSeen ? forms::mayReplace(this, m_desk, productPath, m_fileStamp) : m_desk.mayChangeGame(this);
}

void MapEditor::ViewBackground_Click()
{
    const auto name =
        askName(u"Enter background filename"_s,
                u"Which picture? Say the game's folder and the picture's name,\nlike %1sky.bmp"_s,
                forms::fromUtf8(map().get_background()));
    if (!name)
        return;
    if (!loadBackground(belowGames(forms::toUtf8(*name)))) {
        forms::warn(
            this,
            u"I could not open the picture %1. Maybe it has another name, or it is no picture."_s.arg(*name));
        return;
    }
    m_painting.setBackground(forms::toUtf8(*name));
    showTitle();
    Form_Resize();
}

/// The picture that the map names; a game that has moved to another folder has it beside its map.
bool MapEditor::loadBackgroundOf(const QString& mapName)
{
    const std::string& picture = map().get_background();
    return picture.empty() || loadBackground(belowGames(picture)) ||
           loadBackground(besideMap(forms::toUtf8(mapName), picture));
}

bool MapEditor::loadBackground(const std::string& productPath)
{
    const auto file = m_desk.installation().find(productPath);
    auto picture = file ? m_desk.pictures().read(*file) : std::nullopt;
    if (!picture)
        return false;
    m_backgroundPicture = std::move(*picture);
    m_background->showSurface(&m_backgroundPicture);
    return true;
}
