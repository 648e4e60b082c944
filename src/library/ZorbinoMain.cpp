#include "library/ZorbinoMain.h"

#include "forms/Desk.h"
#include "forms/Forms.h"
#include "library/GamePictures.h"
#include "library/Messages.h"
#include "library/TileArea.h"
#include "library/TrayMath.h"
#include "runtime/GameFolders.h"

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
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>
#include <future>

namespace
{

constexpr QSize outerSize(600, 418);
constexpr int pictureSide = 68;
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

/// One of the two pictures of the library, by chance; a null image where it cannot be read.
QImage readBackdrop(Desk& desk)
{
    const bool first = QRandomGenerator::global()->generateDouble() > 0.5;
    const auto file = desk.installation().find(first ? "zbo\\zorbino1.jpg" : "zbo\\zorbino2.jpg");
    auto surface = file ? desk.pictures().read(*file) : std::nullopt;
    return surface ? imageOf(std::move(*surface)) : QImage();
}

std::future<QImage>& comingBackdrop()
{
    static std::future<QImage> picture;
    return picture;
}

} // namespace

void ZorbinoMain::readAhead(Desk& desk)
{
    if (comingBackdrop().valid())
        return;
    comingBackdrop() = std::async(std::launch::async, [&desk] { return readBackdrop(desk); });
    const QSize size(pictureSide, pictureSide);
    forms::drawAhead({"create", "unpack", "special", "exit"}, size);
}

ZorbinoMain::ZorbinoMain(Desk& desk, QWidget* parent)
    : QWidget(parent)
    , m_desk(desk)
    , m_icons(iconsKept)
{
    setObjectName(u"ZorbinoMain");
    setWindowTitle(forms::fromUtf8(ProductName));
    setAttribute(Qt::WA_DeleteOnClose);
    readAhead(desk); // unless the program has done so long before
    layOut();
    Form_Load(comingBackdrop().get());
}

void ZorbinoMain::layOut()
{
    auto* label = new Caption(tr("Click on a game!"), this);
    label->setObjectName(u"Label1");
    label->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
    QFont large = label->font();
    large.setPixelSize(24);
    large.setBold(true);
    label->setFont(large);
    label->setFixedHeight(headHeight);
    label->setContentsMargins(0, 0, 0, 0);

    m_tray = new TileArea("GameTray", outerSize.width() / tilesInView, this);
    m_tray->setToolTip(tr("Click on a game to play, edit, pack, or delete it"));
    m_tray->setAccessibleName(tr("Games"));
    m_tray->setFocusPolicy(Qt::StrongFocus);
    m_scrollbar = new QScrollBar(Qt::Horizontal, this);
    m_scrollbar->setObjectName(u"scrollbar");
    m_scrollbar->setAccessibleName(tr("First game shown"));
    m_scrollbar->setFocusPolicy(Qt::StrongFocus);
    m_scrollbar->setPageStep(tilesInView);
    m_scrollbar->setFixedHeight(20);
    m_scrollbar->setEnabled(false);
    m_tempPic = new QLabel(this);
    m_tempPic->setObjectName(u"TempPic");
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
    connect(m_scrollbar, &QScrollBar::sliderMoved, this, &ZorbinoMain::scrollbar_Scroll);
}

QAbstractButton* ZorbinoMain::pictureButton(const char* name, const char* iconName, const QString& tip,
                                            void (ZorbinoMain::*click)())
{
    auto* button = new QToolButton(this);
    forms::dressButton(*button, name, iconName, tip);
    button->setIconSize(QSize(pictureSide, pictureSide));
    button->setFocusPolicy(Qt::StrongFocus);
    button->setCursor(Qt::PointingHandCursor);
    connect(button, &QAbstractButton::clicked, this, click);
    return button;
}

QWidget* ZorbinoMain::makeToolRow()
{
    const QString install = tr("Install new Zorbino games you have on a floppy or your hard drive");
    m_createButton = pictureButton("CreateButton", "create", tr("Write a new game of your own!"),
                                   &ZorbinoMain::CreateButton_Click);
    m_unPackButton = pictureButton("UnPackButton", "unpack", install, &ZorbinoMain::UnPackButton_Click);
    m_specialButton = pictureButton("SpecialButton", "special", install, &ZorbinoMain::SpecialButton_Click);
    auto* exit = pictureButton("ExitButton", "exit", tr("Exit Zorbino"), &ZorbinoMain::ExitButton_Click);

    auto* mapEditor = new QToolButton(this);
    mapEditor->setText(tr("&Map Editor"));
    mapEditor->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    forms::dressButton(*mapEditor, "LaunchMapEditor", "mapeditor", tr("Draw the map of a game"));
    mapEditor->setIconSize(QSize(48, 48));
    mapEditor->setFocusPolicy(Qt::StrongFocus);
    mapEditor->setCursor(Qt::PointingHandCursor);
    connect(mapEditor, &QAbstractButton::clicked, this, &ZorbinoMain::LaunchMapEditor_Click);

    auto* frame = new QFrame(this);
    frame->setObjectName(u"SpecialFrame");
    frame->setStyleSheet(QStringLiteral("#SpecialFrame { border: 2px solid #ffd23a; border-radius: 13px; }"));
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
    struct Action {
        const char* name;
        const char* icon;
        QString caption;
        QString help;
        void (ZorbinoMain::*click)();
    };
    const Action actions[] = {
        {"Work", "work", tr("&Work on this Game"),
         tr("You can work on a game that is not finished yet, or change a completed game."),
         &ZorbinoMain::Work_Click},
        {"PlayGame", "playgame", tr("&Play this Game"), tr("Play the game!"), &ZorbinoMain::PlayGame_Click},
        {"delete", "deletegame", tr("&Delete it"),
         tr("If you delete a game, it is removed permanently from your computer."),
         &ZorbinoMain::delete_Click},
        {"Pack", "pack", tr("Pa&ck it Up"),
         tr("You can pack up a game to give it to your friends or put on the Internet."),
         &ZorbinoMain::Pack_Click},
        {"Cancel", "cancel", tr("&Cancel"), tr("Press cancel to look at a different game."),
         &ZorbinoMain::Cancel_Click},
    };

    auto* panel = new QFrame(this);
    panel->setObjectName(u"ActionWindow");
    panel->setAccessibleName(tr("The game that you picked"));
    panel->setStyleSheet(QStringLiteral("#ActionWindow { background: palette(window); border: 2px solid "
                                        "palette(highlight); border-radius: 14px; }"));
    m_gamePicture = new TileArea("GamePicture", outerSize.width() / tilesInView, panel);
    m_gamePicture->setAccessibleName(tr("Picture of the game"));
    m_gamePicture->setFixedSize(firstTileLeft + outerSize.width() / tilesInView,
                                m_gamePicture->sizeHint().height());
    m_help = new QLabel(panel);
    m_help->setObjectName(u"Help");
    m_help->setWordWrap(true);
    m_help->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_help->setFixedHeight(m_help->fontMetrics().lineSpacing() * 2 + 4); // 4: lines are rounded up

    auto* buttons = new QVBoxLayout;
    buttons->setSpacing(8);
    int longestHelp = 0;
    for (const Action& action : actions) {
        longestHelp = std::max(longestHelp, m_help->fontMetrics().horizontalAdvance(action.help));
        auto* button = new QPushButton(action.caption, panel);
        forms::dressButton(*button, action.name, action.icon, QString());
        button->setAccessibleDescription(action.help);
        button->setIconSize(QSize(24, 24));
        connect(button, &QAbstractButton::clicked, this, action.click);
        explain(button, action.help);
        buttons->addWidget(button);
        if (m_work == nullptr)
            m_work = button;
    }
    explain(panel, QString());
    explain(m_gamePicture, QString());

    auto* upper = new QHBoxLayout;
    upper->setSpacing(16);
    upper->addWidget(m_gamePicture, 0, Qt::AlignVCenter);
    upper->addLayout(buttons);
    auto* column = new QVBoxLayout(panel);
    constexpr int margin = 16;
    column->setContentsMargins(margin, margin, margin, 8);
    column->setSpacing(8);
    column->addLayout(upper);
    column->addWidget(m_help);
    // Half of the longest help and a word more, so that two lines hold it in a large font too.
    panel->setMinimumWidth(std::clamp(longestHelp * 5 / 8 + 2 * margin, 420, outerSize.width() - 2 * margin));
    panel->hide();
    return panel;
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
    const QPixmap* icon = m_icons.object(key);
    if (icon == nullptr) {
        m_tempPic->setPixmap(iconOf(m_desk, game));
        m_icons.insert(key, new QPixmap(m_tempPic->pixmap()));
        icon = m_icons.object(key);
    }
    area.addTile(
        {forms::fromUtf8(tileText(game.title)), forms::fromUtf8(tileText(game.author)), *icon, left, top});
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
    std::string missing;
    const bool created = CreateGameFolder(m_desk.installation(), missing).has_value();
    m_scrollbar->setEnabled(false);
    refreshGames();
    m_scrollbar->setEnabled(true);
    scrollbar_Change();
    if (created) {
        forms::tell(this, say::gameCreated.toString());
        return;
    }
    const QStringView message = missing.starts_with("zbo") ? say::templateMissing : say::gameNotCreated;
    forms::tell(this, message.toString().arg(forms::fromUtf8(missing)));
}

void ZorbinoMain::Work_Click()
{
    std::string folder = m_desk.module().gamePath();
    folder.pop_back(); // the backslash
    if (!m_desk.installation().isFolder(folder)) {
        forms::tell(this, say::gameIsGone.toString());
        Cancel_Click();
        refreshGames();
        scrollbar_Change();
        return;
    }
    m_desk.LogProgress(QStringLiteral("ZorbinoMain.Work_click: begin"));
    m_desk.LogProgress(QStringLiteral("ZorbinoMain.Work_click: About to show GameEditor"));
    m_desk.showGameEditor();
    m_desk.LogProgress(QStringLiteral("ZorbinoMain.Work_click: GameEditor Shown"));
    close();
    m_desk.LogProgress(QStringLiteral("ZorbinoMain.Work_click: unloaded ZorbinoMain"));
}

void ZorbinoMain::PlayGame_Click()
{
    forms::tell(this, say::notEnabled.toString());
}

void ZorbinoMain::delete_Click()
{
    forms::tell(this, say::notEnabled.toString());
}

void ZorbinoMain::Pack_Click()
{
    forms::tell(this, say::notEnabled.toString());
}

void ZorbinoMain::UnPackButton_Click()
{
    forms::tell(this, say::notEnabled.toString());
}

void ZorbinoMain::SpecialButton_Click()
{
    forms::tell(this, say::notEnabledSpecial.toString());
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
    if (!event->spontaneous())
        takeOuterSize(10);
}

void ZorbinoMain::takeOuterSize(int triesLeft)
{
    // The window manager puts its frame on some time after the window was asked for, and tells nobody.
    const QMargins frame = windowHandle() != nullptr ? windowHandle()->frameMargins() : QMargins();
    if (frame.isNull() && triesLeft > 0) {
        QTimer::singleShot(30, this, [this, triesLeft] { takeOuterSize(triesLeft - 1); });
        return;
    }
    if (!frame.isNull())
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
