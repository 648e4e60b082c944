// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "library/ZorbinoMain.h"

#include "forms/Desk.h"
#include "forms/Icons.h"
#include "forms/MessageBoxes.h"
#include "forms/Texts.h"
#include "games/GameFolders.h"
#include "library/GamePictures.h"
#include "library/TileArea.h"
#include "library/TrayLayout.h"

#include <QApplication>
#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>

namespace
{

using namespace Qt::StringLiterals;

constexpr QSize outerSize(600, 418);
constexpr int iconsKept = 64;
constexpr int headHeight = 92; // of the sky above the tray
constexpr const char* helpProperty = "helpText";

/// White letters with a black shadow, to be read on any picture.
class Caption : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setPen(Qt::black);
        painter.drawText(rect().translated(1, 1), static_cast<int>(alignment()), text());
        painter.setPen(Qt::white);
        painter.drawText(rect(), static_cast<int>(alignment()), text());
    }
};

/// A plain sky for an installation without pictures.
QPixmap plainSky(QSize size)
{
    QPixmap sky(size);
    QPainter painter(&sky);
    QLinearGradient blue(0, 0, 0, size.height());
    blue.setColorAt(0, QColor(0x1d, 0x4f, 0xa0));
    blue.setColorAt(1, QColor(0x7f, 0xc4, 0xf0));
    painter.fillRect(QRect(QPoint(), size), blue);
    return sky;
}

} // namespace

QImage ZorbinoMain::readBackdrop(const Installation& installation, PictureReader& pictures)
{
    const bool first = QRandomGenerator::global()->generateDouble() > 0.5;
    const auto file = installation.find(first ? "zbo\\zorbino1.jpg" : "zbo\\zorbino2.jpg");
    auto surface = file ? pictures.read(*file) : std::nullopt;
    return surface ? imageOf(std::move(*surface)) : QImage();
}

ZorbinoMain::ZorbinoMain(Desk& desk, const QImage& backdrop)
    : QWidget(nullptr)
    , m_desk(desk)
    , m_icons(iconsKept)
{
    setObjectName(u"ZorbinoMain"_s);
    setWindowTitle(forms::fromUtf8(ProductName));
    setAttribute(Qt::WA_DeleteOnClose);
    layOut();
    Form_Load(backdrop.isNull() ? readBackdrop(desk.installation(), desk.pictures()) : backdrop);
}

void ZorbinoMain::layOut()
{
    auto* label = new Caption(u"Click on a game!"_s, this);
    label->setObjectName(u"Label1"_s);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
    QFont large = label->font();
    large.setPixelSize(24);
    large.setBold(true);
    label->setFont(large);
    label->setFixedHeight(headHeight);
    label->setContentsMargins(0, 0, 0, 0);

    m_tray = new TileArea("GameTray", outerSize.width() / tilesInView, this);
    m_tray->setToolTip(u"Click on a game to play, edit, pack, or delete it"_s);
    m_tray->setAccessibleName(u"Games"_s);
    m_tray->setFocusPolicy(Qt::StrongFocus);
    m_scrollbar = new QScrollBar(Qt::Horizontal, this);
    m_scrollbar->setObjectName(u"scrollbar"_s);
    m_scrollbar->setAccessibleName(u"First game shown"_s);
    m_scrollbar->setFocusPolicy(Qt::StrongFocus);
    m_scrollbar->setPageStep(tilesInView);
    m_scrollbar->setFixedHeight(20);
    m_scrollbar->setEnabled(false);
    m_tempPic = new QLabel(this);
    m_tempPic->setObjectName(u"TempPic"_s);
    m_tempPic->hide();

    auto* column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetNoConstraint); // the window has its size whatever the font
    column->setContentsMargins(0, 0, 0, 12);
    column->setSpacing(0);
    column->addWidget(label);
    column->addWidget(m_tray);
    column->addWidget(m_scrollbar);
    column->addStretch();
    column->addWidget(makeToolRow());
    m_actionWindow = makeActionWindow();

    m_tray->installEventFilter(this);
    connect(m_tray, &TileArea::pressed, this, &ZorbinoMain::GameTray_MouseDown);
    connect(m_tray, &TileArea::keyPressed, this, &ZorbinoMain::GameTray_Key);
    connect(m_scrollbar, &QScrollBar::valueChanged, this, &ZorbinoMain::scrollbar_Change);
}

QAbstractButton* ZorbinoMain::toolButton(const forms::ActionOf<ZorbinoMain>& row, QSize iconSize)
{
    auto* button = forms::makeToolButton(row, iconSize, this);
    button->setCursor(Qt::PointingHandCursor);
    connect(button, &QAbstractButton::clicked, this, row.handler);
    return button;
}

QWidget* ZorbinoMain::makeToolRow()
{
    constexpr auto install = u"Install new Zorbino games you have on a floppy or your hard drive";
    constexpr QSize captioned(48, 48);
    m_createButton = toolButton(
        {{"CreateButton", "create", u"", u"Write a new game of your own!"}, &ZorbinoMain::CreateButton_Click},
        buttonPicture);
    m_unPackButton = toolButton({{"UnPackButton", "unpack", u"", install}, &ZorbinoMain::UnPackButton_Click},
                                buttonPicture);
    m_specialButton = toolButton(
        {{"SpecialButton", "special", u"", install}, &ZorbinoMain::SpecialButton_Click}, buttonPicture);
    auto* exit = toolButton({{"ExitButton", "exit", u"", u"Exit Zorbino"}, &ZorbinoMain::ExitButton_Click},
                            buttonPicture);
    auto* mapEditor = toolButton({{"LaunchMapEditor", "mapeditor", u"&Map Editor", u"Draw the map of a game"},
                                  &ZorbinoMain::LaunchMapEditor_Click},
                                 captioned);

    auto* frame = new QFrame(this);
    frame->setObjectName(u"SpecialFrame"_s);
    frame->setStyleSheet(u"#SpecialFrame { border: 2px solid #ffd23a; border-radius: 13px; }"_s);
    auto* inFrame = new QHBoxLayout(frame);
    inFrame->setContentsMargins(4, 4, 4, 4);
    inFrame->addWidget(m_specialButton);

    auto* tools = new QWidget(this);
    auto* row = new QHBoxLayout(tools);
    row->setContentsMargins(12, 0, 12, 0);
    row->setSpacing(8);
    row->addWidget(m_createButton, 0, Qt::AlignVCenter);
    row->addWidget(m_unPackButton, 0, Qt::AlignVCenter);
    row->addWidget(frame, 0, Qt::AlignVCenter);
    row->addStretch();
    row->addWidget(mapEditor, 0, Qt::AlignVCenter);
    row->addWidget(exit, 0, Qt::AlignVCenter);
    setTabOrder(mapEditor, exit);
    return tools;
}

QFrame* ZorbinoMain::makeActionWindow()
{
    auto* panel = new QFrame(this);
    panel->setObjectName(u"ActionWindow"_s);
    panel->setAccessibleName(u"The game that you picked"_s);
    panel->setStyleSheet(u"#ActionWindow { background: palette(window); border: 2px solid "
                         "palette(highlight); border-radius: 14px; }"_s);
    m_gamePicture = new TileArea("GamePicture", outerSize.width() / tilesInView, panel);
    m_gamePicture->setAccessibleName(u"Picture of the game"_s);
    m_gamePicture->setFixedSize(firstTileLeft + outerSize.width() / tilesInView,
                                m_gamePicture->sizeHint().height());
    m_help = new QLabel(panel);
    m_help->setObjectName(u"Help"_s);
    m_help->setWordWrap(true);
    m_help->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_help->setFixedHeight(m_help->fontMetrics().lineSpacing() * 2 + 4); // 4: lines are rounded up

    auto* upper = new QHBoxLayout;
    upper->setSpacing(16);
    upper->addWidget(m_gamePicture, 0, Qt::AlignVCenter);
    upper->addLayout(makeActions(panel));
    explain(panel, QString());
    explain(m_gamePicture, QString());
    auto* column = new QVBoxLayout(panel);
    constexpr int margin = 16;
    column->setContentsMargins(margin, margin, margin, 8);
    column->setSpacing(8);
    column->addLayout(upper);
    column->addWidget(m_help);
    // Half of the longest help and a word more, so that two lines hold it in a large font too.
    panel->setMinimumWidth(
        std::clamp(longestHelp() * 5 / 8 + 2 * margin, 420, outerSize.width() - 2 * margin));
    panel->hide();
    return panel;
}

struct ZorbinoMain::GameAction {
    forms::ActionOf<ZorbinoMain> row; ///< without a tip, which would cover the game
    const char16_t* help;
};

std::span<const ZorbinoMain::GameAction> ZorbinoMain::gameActions()
{
    static constexpr GameAction actions[] = {
        {{{"Work", "work", u"&Work on this Game", u""}, &ZorbinoMain::Work_Click},
         u"You can work on a game that is not finished yet, or change a completed game."},
        {{{"PlayGame", "playgame", u"&Play this Game", u""}, &ZorbinoMain::PlayGame_Click},
         u"Play the game!"},
        {{{"delete", "deletegame", u"&Delete it", u""}, &ZorbinoMain::delete_Click},
         u"If you delete a game, it is removed permanently from your computer."},
        {{{"Pack", "pack", u"Pa&ck it Up", u""}, &ZorbinoMain::Pack_Click},
         u"You can pack up a game to give it to your friends or put on the Internet."},
        {{{"Cancel", "cancel", u"&Cancel", u""}, &ZorbinoMain::Cancel_Click},
         u"Press cancel to look at a different game."},
    };
    return actions;
}

QLayout* ZorbinoMain::makeActions(QWidget* panel)
{
    auto* buttons = new QVBoxLayout;
    buttons->setSpacing(8);
    for (const GameAction& action : gameActions()) {
        auto* button = new QPushButton(panel);
        forms::setUpButton(*button, action.row);
        button->setAccessibleDescription(QString::fromUtf16(action.help));
        button->setIconSize(QSize(32, 24)); // with some room beside the caption
        connect(button, &QAbstractButton::clicked, this, action.row.handler);
        explain(button, QString::fromUtf16(action.help));
        buttons->addWidget(button);
        if (m_work == nullptr)
            m_work = button;
    }
    return buttons;
}

int ZorbinoMain::longestHelp() const
{
    int longest = 0;
    for (const GameAction& action : gameActions())
        longest = std::max(longest, m_help->fontMetrics().horizontalAdvance(QString::fromUtf16(action.help)));
    return longest;
}

void ZorbinoMain::explain(QWidget* control, const QString& help)
{
    control->setProperty(helpProperty, help);
    control->setMouseTracking(true);
    control->installEventFilter(this);
}

bool ZorbinoMain::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_tray && event->type() == QEvent::Wheel && m_scrollbar->isEnabled())
        return QCoreApplication::sendEvent(m_scrollbar, event);
    // The second half of a double click on a tile falls on the panel that has come up: it means no button.
    if (watched != m_tray && event->type() == QEvent::MouseButtonDblClick &&
        m_sincePicked.elapsed() < QApplication::doubleClickInterval())
        return true;
    if (watched != m_tray && event->type() == QEvent::MouseMove) {
        // A button passes its moves on to the panel behind it, which means only its bare places.
        const auto* control = static_cast<QWidget*>(watched);
        if (control->childAt(static_cast<QMouseEvent*>(event)->position().toPoint()) == nullptr)
            m_help->setText(control->property(helpProperty).toString());
    }
    return QWidget::eventFilter(watched, event);
}

void ZorbinoMain::Form_Load(const QImage& picture)
{
    setCursor(Qt::WaitCursor);
    m_scrollbar->setEnabled(false);
    m_picture = picture.isNull() ? plainSky(outerSize) : QPixmap::fromImage(picture);
    resize(outerSize); // less the frame, as soon as there is one
    m_scrollbar->setMinimum(1);
    refreshGames();
    m_scrollbar->setEnabled(true);
    spreadBackdrop();
    scrollbar_Change();
    m_tray->setFocus();
    unsetCursor();
}

void ZorbinoMain::spreadBackdrop()
{
    // One pixel to one as long as the picture covers the window; a larger window gets a larger picture.
    const bool covers = m_picture.width() >= width() && m_picture.height() >= height();
    m_backdrop = covers ? m_picture
                        : m_picture.scaled(size(), Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
    m_tray->setBackdrop(m_backdrop, m_tray->pos());
    const QPoint behindPanel = m_tray->pos() + QPoint(m_tray->width() / 4, 0);
    m_gamePicture->setBackdrop(m_backdrop, behindPanel);
}

void ZorbinoMain::refreshGames()
{
    m_games = ListGames(m_desk.installation());
    m_icons.clear();
    m_scrollbar->setMaximum(std::max(1, static_cast<int>(m_games.size())));
}

void ZorbinoMain::scrollbar_Change()
{
    if (m_scrollbar->isEnabled())
        drawTray();
}

void ZorbinoMain::drawTray()
{
    m_tray->clear();
    m_tray->setSlotWidth(m_tray->width() / tilesInView);
    const int first = m_scrollbar->value();
    const int last = std::min(first + tilesInView - 1, static_cast<int>(m_games.size()));
    for (int index = first; index <= last; ++index)
        DrawGameTile(*m_tray, m_games[static_cast<std::size_t>(index - 1)],
                     tileLeft(index - first, m_tray->width()), tileTop);
}

void ZorbinoMain::scrollbar_Scroll()
{
    scrollbar_Change();
}

void ZorbinoMain::DrawGameTile(TileArea& area, const GameRecord& game, int left, int top)
{
    const QString key = forms::fromUtf8(game.folder);
    if (!m_icons.contains(key))
        m_icons.insert(key, new QPixmap(iconOf(m_desk, game)));
    const QPixmap& icon = *m_icons.object(key);
    m_tempPic->setPixmap(icon);
    area.addTile(
        {forms::fromUtf8(tileText(game.title)), forms::fromUtf8(tileText(game.author)), icon, left, top});
}

void ZorbinoMain::setTrayEnabled(bool on)
{
    m_tray->setEnabled(on);
    m_scrollbar->setEnabled(on);
    m_specialButton->setEnabled(on);
    m_unPackButton->setEnabled(on);
    m_createButton->setEnabled(on);
}

void ZorbinoMain::DisableTray()
{
    setTrayEnabled(false);
}

void ZorbinoMain::EnableTray()
{
    setTrayEnabled(true);
}

void ZorbinoMain::GameTray_MouseDown(int x)
{
    pick(slotAt(x, m_tray->width()) + m_scrollbar->value());
}

void ZorbinoMain::GameTray_Key(int key)
{
    if (key != Qt::Key_Left && key != Qt::Key_Right) {
        if (m_tray->marked() >= 0)
            pick(m_tray->marked() + m_scrollbar->value());
        return;
    }
    const int slot = m_tray->marked() < 0 ? 0 : m_tray->marked() + (key == Qt::Key_Right ? 1 : -1);
    if (slot < 0 || slot >= tilesInView)
        m_scrollbar->setValue(m_scrollbar->value() + (slot < 0 ? -1 : 1));
    m_tray->setMarked(std::clamp(slot, 0, std::max(0, m_tray->count() - 1)));
}

void ZorbinoMain::pick(int index)
{
    if (index < 1 || index > static_cast<int>(m_games.size()))
        return;
    m_sincePicked.start();
    DisableTray();
    const GameRecord& game = m_games[static_cast<std::size_t>(index - 1)];
    m_desk.module().CurrentGame = game;
    m_gamePicture->clear();
    DrawGameTile(*m_gamePicture, game, firstTileLeft, tileTop);
    m_help->clear();
    centreActionWindow();
    m_actionWindow->show();
    m_actionWindow->raise();
    m_work->setFocus();
}

void ZorbinoMain::Cancel_Click()
{
    m_actionWindow->hide();
    m_gamePicture->clear();
    EnableTray();
    m_tray->setFocus();
}

void ZorbinoMain::CreateButton_Click()
{
    const NewGameFolder made = CreateGameFolder(m_desk.installation());
    redrawGames();
    switch (made.outcome) {
    case NewGameFolder::Outcome::Created:
        forms::tell(this,
                    u"Your new game is ready for you to work on it!  Just find the white box with the red "
                    "X and click on it, then select the Work button."_s);
        break;
    case NewGameFolder::Outcome::TemplateMissing:
        forms::tell(this,
                    u"I can't make a new game, because I can't find the file %1.  Please ask somebody to "
                    "install Zorbino again."_s.arg(forms::fromUtf8(made.name)));
        break;
    case NewGameFolder::Outcome::NotWritten:
        forms::tell(this, u"I can't make a new game, because I can't write %1.  Maybe the disk is full, or "
                          "nobody may write there."_s.arg(forms::fromUtf8(made.name)));
        break;
    }
}

void ZorbinoMain::redrawGames()
{
    m_scrollbar->setEnabled(false); // the new maximum may move it, which draws nothing yet
    refreshGames();
    m_scrollbar->setEnabled(true);
    scrollbar_Change();
}

void ZorbinoMain::Work_Click()
{
    if (!m_desk.installation().isFolder(m_desk.module().CurrentGame.path())) {
        forms::tell(this, u"I can't find the folder of this game any more.  Somebody must have moved it or "
                          "deleted it."_s);
        Cancel_Click();
        redrawGames();
        return;
    }
    m_desk.LogProgress(u"ZorbinoMain.Work_click: begin"_s);
    m_desk.LogProgress(u"ZorbinoMain.Work_click: About to show GameEditor"_s);
    m_desk.showGameEditor();
    m_desk.LogProgress(u"ZorbinoMain.Work_click: GameEditor Shown"_s);
    close();
    m_desk.LogProgress(u"ZorbinoMain.Work_click: unloaded ZorbinoMain"_s);
}

void ZorbinoMain::sayNotEnabled()
{
    forms::tell(this, u"This feature is not enabled yet-- sorry!"_s);
}

void ZorbinoMain::PlayGame_Click()
{
    sayNotEnabled();
}

void ZorbinoMain::delete_Click()
{
    sayNotEnabled();
}

void ZorbinoMain::Pack_Click()
{
    sayNotEnabled();
}

void ZorbinoMain::UnPackButton_Click()
{
    sayNotEnabled();
}

void ZorbinoMain::SpecialButton_Click()
{
    forms::tell(this,
                u"This feature is not enabled yet-- sorry! This is where you could add resources to your "
                "general pool from"_s);
}

void ZorbinoMain::LaunchMapEditor_Click()
{
    m_desk.showMapEditor();
}

void ZorbinoMain::ExitButton_Click()
{
    m_desk.exitProgram();
}

void ZorbinoMain::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, devicePixelRatioF() != 1);
    painter.drawPixmap(0, 0, m_backdrop);
}

void ZorbinoMain::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layout()->activate(); // the tray has its new width from here on
    spreadBackdrop();
    if (m_actionWindow->isVisible())
        centreActionWindow();
    drawTray();
}

void ZorbinoMain::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    takeOuterSize();
}

void ZorbinoMain::moveEvent(QMoveEvent* event)
{
    QWidget::moveEvent(event);
    takeOuterSize(); // the desktop has put its frame around the window, which moves what is inside
}

void ZorbinoMain::takeOuterSize()
{
    const QMargins frame = windowHandle() != nullptr ? windowHandle()->frameMargins() : QMargins();
    if (frame.isNull() || m_hasOuterSize)
        return;
    m_hasOuterSize = true;
    resize(outerSize.shrunkBy(frame));
    centreActionWindow();
}

void ZorbinoMain::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && m_actionWindow->isVisible())
        Cancel_Click();
    else
        QWidget::keyPressEvent(event);
}

void ZorbinoMain::centreActionWindow()
{
    m_actionWindow->adjustSize();
    m_actionWindow->move((width() - m_actionWindow->width()) / 2, (height() - m_actionWindow->height()) / 2);
}
