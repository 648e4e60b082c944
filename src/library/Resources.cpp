// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "library/Resources.h"

#include "forms/Desk.h"
#include "forms/Icons.h"
#include "forms/MessageBoxes.h"
#include "forms/NameOrder.h"
#include "forms/Texts.h"
#include "games/GameFolders.h"
#include "games/GameIcon.h"
#include "games/WritableName.h"
#include "library/BackgroundPreviews.h"
#include "library/GamePictures.h"
#include "library/PictureImport.h"
#include "library/PictureName.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

using namespace Qt::StringLiterals;

constexpr int spriteSide = 32;
constexpr int picturedSprites = 100; // the others are names only: a list of thousands must open as well
constexpr std::array<std::string_view, 3> pictureKinds = {"*.bmp", "*.gif", "*.jpg"};

QListWidget* nameList(const char* name, const QString& accessibleName, QWidget* parent)
{
    auto* list = new QListWidget(parent);
    list->setObjectName(QLatin1String(name));
    list->setAccessibleName(accessibleName);
    list->setTextElideMode(Qt::ElideMiddle);
    list->setMinimumSize(list->fontMetrics().averageCharWidth() * 22, list->fontMetrics().lineSpacing() * 7);
    return list;
}

QStringList namesIn(const QListWidget& list)
{
    QStringList names;
    for (int row = 0; row < list.count(); ++row)
        names += list.item(row)->text();
    return names;
}

QString selectedName(const QListWidget& list)
{
    return list.currentItem() != nullptr ? list.currentItem()->text() : QString();
}

/// Fills a list anew; the selected name stays selected where it is still there. A list in which nothing has
/// changed is left where the user has scrolled it.
void fill(QListWidget& list, const QStringList& names)
{
    if (names == namesIn(list))
        return;
    const QString selected = selectedName(list);
    const int row = list.currentRow();
    list.clear();
    list.addItems(names);
    const auto still = static_cast<int>(names.indexOf(selected));
    list.setCurrentRow(still >= 0 ? still : std::clamp(row, 0, std::max(0, list.count() - 1)));
}

QLabel* heading(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

} // namespace

Resources::Resources(Desk& desk, GameRecord game, QWidget* parent)
    : QWidget(parent)
    , m_desk(desk)
    , m_game(std::move(game))
    , m_backgroundNames(nameList("BackgroundNames", u"Backgrounds"_s, this))
    , m_previews(new BackgroundPreviews([this](const QString& name) { return previewOf(name); }, this))
    , m_spriteNames(nameList("SpriteNames", u"Sprites"_s, this))
{
    setObjectName(u"Resources");
    setWindowTitle(u"Resources"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    layOut();
    Form_Load();
    fitScreen();
    adjustSize(); // no larger than its parts want it
}

void Resources::layOut()
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(16, 12, 16, 16);
    row->setSpacing(24);
    row->addWidget(makeBackgrounds());
    row->addWidget(makeSprites(), 1);

    connect(m_backgroundNames, &QListWidget::currentRowChanged, this, &Resources::backgroundSelected);
    connect(m_previews, &BackgroundPreviews::picked, m_backgroundNames,
            qOverload<int>(&QListWidget::setCurrentRow));
    connect(m_spriteNames, &QListWidget::currentRowChanged, this, &Resources::enableButtons);
    connect(m_spriteNames, &QListWidget::itemActivated, this, &Resources::EditSprite_Click);
    // Every save makes several changes, and every key in the title is a save.
    m_changesSettle.setSingleShot(true);
    m_changesSettle.setInterval(100);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_changesSettle, qOverload<>(&QTimer::start));
    connect(&m_changesSettle, &QTimer::timeout, this, &Resources::relist);
}

/// The previews make room for large letters on a small screen.
void Resources::fitScreen()
{
    constexpr int frame = 16; // that the desktop may put around a window
    const int excess = minimumSizeHint().width() + frame - screen()->availableGeometry().width();
    if (excess <= 0)
        return;
    m_previews->shrinkBy(excess);
    for (QWidget* part = m_previews; part != parentWidget(); part = part->parentWidget())
        part->layout()->activate(); // passes the new size on, now and not with the next event
}

QPushButton* Resources::listButton(const char* name, const char* iconName, const QString& caption,
                                   QBoxLayout& box, void (Resources::*click)())
{
    auto* button = new QPushButton(caption, this);
    forms::setUpButton(*button, name, iconName, QString());
    button->setIconSize(QSize(32, 24)); // with some room beside the caption
    connect(button, &QAbstractButton::clicked, this, click);
    box.addWidget(button);
    return button;
}

QWidget* Resources::makeBackgrounds()
{
    auto* part = new QWidget(this);
    auto* buttons = new QVBoxLayout;
    buttons->setSpacing(8);
    QPushButton* add =
        listButton("AddBackground", "add", u"&Add..."_s, *buttons, &Resources::AddBackground_Click);
    add->setToolTip(u"Copy a picture into your game"_s);
    m_removeBackground =
        listButton("Command1", "remove", u"&Remove..."_s, *buttons, &Resources::Command1_Click);
    m_removeBackground->setToolTip(u"Take the picture out of your game"_s);
    m_removeBackground->setAccessibleName(u"Remove background..."_s);
    buttons->addStretch();

    auto* grid = new QGridLayout(part);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(8);
    grid->addWidget(heading(u"Backgrounds"_s, part), 0, 0);
    grid->addWidget(m_backgroundNames, 1, 0);
    grid->addLayout(buttons, 1, 1);
    grid->addWidget(m_previews, 2, 0, 1, 2);
    grid->setRowStretch(1, 1);
    return part;
}

QWidget* Resources::makeSprites()
{
    m_spriteNames->setIconSize(QSize(spriteSide, spriteSide));
    auto* part = new QWidget(this);
    auto* column = new QVBoxLayout(part);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addWidget(heading(u"Sprites"_s, part));
    column->addWidget(m_spriteNames, 1);
    QPushButton* create = listButton("NewSprite", "new", u"&New..."_s, *column, &Resources::NewSprite_Click);
    create->setToolTip(u"Draw a new sprite"_s);
    m_editSprite = listButton("EditSprite", "edit", u"&Edit..."_s, *column, &Resources::EditSprite_Click);
    m_editSprite->setToolTip(u"Change how the sprite looks"_s);
    m_removeSprite =
        listButton("RemoveSprite", "remove", u"Re&move..."_s, *column, &Resources::RemoveSprite_Click);
    m_removeSprite->setToolTip(u"Take the sprite out of your game"_s);
    m_removeSprite->setAccessibleName(u"Remove sprite..."_s);
    return part;
}

std::string Resources::gameFile(const QString& name) const
{
    return m_game.pathOf(forms::toUtf8(name));
}

void Resources::Form_Load()
{
    relist();
    // Sprites that are drawn and pictures that come in from elsewhere show up by themselves.
    if (const auto folder = m_desk.installation().find(m_game.path()))
        m_watcher.addPath(QString::fromStdString(folder->string()));
}

void Resources::relist()
{
    ListBackgrounds();
    ListSprites();
    enableButtons();
}

void Resources::ListBackgrounds()
{
    QStringList names;
    for (const auto kind : pictureKinds) {
        for (const auto& name : m_desk.installation().listFiles(m_game.path(), kind)) {
            if (!isGameIcon(name))
                names += forms::fromUtf8(name);
        }
    }
    fill(*m_backgroundNames, names);
    m_previews->setNames(names);
}

void Resources::ListSprites()
{
    fill(*m_spriteNames, forms::inNameOrder(spriteNames(m_desk.installation(), m_game.path())));
    for (int row = 0; row < std::min(m_spriteNames->count(), picturedSprites); ++row) {
        QListWidgetItem& item = *m_spriteNames->item(row);
        item.setIcon(spriteOf(m_desk, gameFile(item.text()), spriteSide));
    }
}

void Resources::backgroundSelected()
{
    const int row = m_backgroundNames->currentRow();
    if (row >= 0)
        m_previews->bringIntoView(row);
    enableButtons();
}

void Resources::enableButtons()
{
    const int row = m_backgroundNames->currentRow();
    m_removeBackground->setEnabled(row >= 0);
    m_editSprite->setEnabled(m_spriteNames->currentRow() >= 0);
    m_removeSprite->setEnabled(m_spriteNames->currentRow() >= 0);
}

QPixmap Resources::previewOf(const QString& name)
{
    return pictureOf(m_desk, gameFile(name), BackgroundPreviews::pictureSize, Qt::KeepAspectRatio);
}

void Resources::AddBackground_Click()
{
    const QString file = QFileDialog::getOpenFileName(this, u"Add a background"_s, QDir::homePath(),
                                                      u"Pictures (%1)"_s.arg(importablePatterns()));
    if (!file.isEmpty())
        addPicture(file);
}

void Resources::addPicture(const QString& file)
{
    const std::filesystem::path path(file.toStdString());
    const PictureImport picture = importPicture(m_desk.pictures(), path);
    if (picture.outcome != PictureImport::Outcome::Ready) {
        forms::warn(this, whyNotAdded(picture, QFileInfo(file).fileName()));
        return;
    }
    const QString wish = QFileInfo(file).completeBaseName();
    const QString name = pictureName(wish) + QString::fromUtf8(picture.ending);
    const auto there = m_desk.installation().find(gameFile(name));
    std::error_code error;
    const bool isThisOne = there && std::filesystem::equivalent(*there, path, error);
    if (!isThisOne && !writePicture(name, picture.bytes))
        return;
    relist();
    const auto added = m_backgroundNames->findItems(name, Qt::MatchFixedString);
    if (!added.isEmpty())
        m_backgroundNames->setCurrentItem(added.front());
    if (isIconName(forms::toUtf8(wish)))
        forms::tell(this,
                    u"A picture with the name icon is the icon of your game.  So I gave this one the name "
                    "%1."_s.arg(name));
}

bool Resources::writePicture(const QString& name, const std::string& bytes)
{
    const bool isThere = m_desk.installation().find(gameFile(name)).has_value();
    if (isThere &&
        !forms::askOk(
            this, u"Add a background"_s,
            u"Your game already has a picture with the name %1.  Do you want the new picture to take "
            "its place?"_s.arg(name)))
        return false;
    if (!m_desk.mayChangeGame(this))
        return false;
    if (m_desk.installation().write(gameFile(name), bytes))
        return true;
    forms::warn(this, u"I could not copy the picture into your game.  Maybe the disk is full, or nobody may "
                      "write in the folder of this game."_s);
    return false;
}

void Resources::removeFiles(const QStringList& names, const QString& shownName)
{
    if (!m_desk.mayChangeGame(this))
        return;
    bool gone = true;
    for (const QString& name : names) {
        if (m_desk.installation().find(gameFile(name)))
            gone = m_desk.installation().remove(gameFile(name)) && gone;
    }
    if (!gone)
        forms::warn(this, u"I could not remove %1.  Maybe nobody may write in the folder of this game."_s.arg(
                              shownName));
    relist();
}

void Resources::Command1_Click()
{
    const QString name = selectedName(*m_backgroundNames);
    if (!name.isEmpty() && mayRemove(u"background"_s, u"picture"_s, name))
        removeFiles({name}, name);
}

bool Resources::mayRemove(const QString& what, const QString& kind, const QString& name)
{
    return forms::askOk(
        this, u"Remove a %1"_s.arg(what),
        u"Do you really want to remove the %1 %2 from your game?  You can't get it back."_s.arg(kind, name),
        forms::DefaultButton::Cancel);
}

void Resources::NewSprite_Click()
{
    m_desk.showSpriteEditor(QString());
}

void Resources::EditSprite_Click()
{
    const QString name = selectedName(*m_spriteNames);
    if (!name.isEmpty())
        m_desk.showSpriteEditor(name);
}

void Resources::RemoveSprite_Click()
{
    const QString name = selectedName(*m_spriteNames);
    if (!name.isEmpty() && mayRemove(u"sprite"_s, u"sprite"_s, name))
        removeFiles({name + u".spr"_s, name + u".spb"_s}, name);
}

void Resources::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}
