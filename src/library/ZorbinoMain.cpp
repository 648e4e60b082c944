// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "library/ZorbinoMain.h"

#include "forms/Desk.h"
#include "forms/Icons.h"
#include "forms/MessageBoxes.h"
#include "forms/Texts.h"
#include "games/GameFolders.h"
#include "library/ActionWindow.h"
#include "library/GamePictures.h"
#include "library/TileArea.h"
#include "library/TrayLayout.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
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

} // namespace

ZorbinoMain::ZorbinoMain(Desk& desk, const QImage& backdrop)
    : QWidget(nullptr)
    , m_desk(desk)
    , m_icons(iconsKept)
    , m_picture(backdrop.isNull() ? Backdrop::read(desk.installation(), desk.pictures()) : backdrop)
{
    setObjectName(u"ZorbinoMain"_s);
    setWindowTitle(forms::fromUtf8(ProductName));
    setAttribute(Qt::WA_DeleteOnClose);
    layOut();
    Form_Load();
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

ActionWindow* ZorbinoMain::makeActionWindow()
{
    static constexpr struct {
        forms::ActionOf<ZorbinoMain> row; // without a tip, which would cover the game
        const char16_t* help;
    } actions[] = {
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
    auto* panel = new ActionWindow(outerSize.width() / tilesInView, this);
    for (const auto& [row, help] : actions)
        connect(panel->addAction(row, QString::fromUtf16(help)), &QAbstractButton::clicked, this,
                row.handler);
    panel->takeWidth(outerSize.width());
    return panel;
}

bool ZorbinoMain::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_tray && event->type() == QEvent::Wheel && m_scrollbar->isEnabled())
        return QCoreApplication::sendEvent(m_scrollbar, event);
    return QWidget::eventFilter(watched, event);
}

void ZorbinoMain::Form_Load()
{
    setCursor(Qt::WaitCursor);
    m_scrollbar->setEnabled(false);
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
    m_backdrop = m_picture.filling(size());
    m_tray->setBackdrop(m_backdrop, m_tray->pos());
    const QPoint behindPanel = m_tray->pos() + QPoint(m_tray->width() / 4, 0);
    m_actionWindow->gamePicture().setBackdrop(m_backdrop, behindPanel);
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
    const TrayStep step = stepInTray(m_tray->marked(), key == Qt::Key_Right ? 1 : -1);
    m_scrollbar->setValue(m_scrollbar->value() + step.scrolled);
    m_tray->setMarked(std::clamp(step.slot, 0, std::max(0, m_tray->count() - 1)));
}

void ZorbinoMain::pick(int index)
{
    if (index < 1 || index > static_cast<int>(m_games.size()))
        return;
    DisableTray();
    const GameRecord& game = m_games[static_cast<std::size_t>(index - 1)];
    m_desk.module().CurrentGame = game;
    m_actionWindow->gamePicture().clear();
    DrawGameTile(m_actionWindow->gamePicture(), game, firstTileLeft, tileTop);
    m_actionWindow->open();
}

void ZorbinoMain::Cancel_Click()
{
    m_actionWindow->hide();
    m_actionWindow->gamePicture().clear();
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
        m_actionWindow->centre();
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
    m_actionWindow->centre();
}

void ZorbinoMain::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && m_actionWindow->isVisible())
        Cancel_Click();
    else
        QWidget::keyPressEvent(event);
}
