#include "library/Resources.h"

#include "forms/Desk.h"
#include "forms/Forms.h"
#include "library/GamePictures.h"
#include "library/Messages.h"
#include "library/PictureName.h"
#include "platform/TextFile.h"
#include "runtime/GameFolders.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

constexpr QSize previewSize(120, 90);
constexpr int spriteSide = 32;
constexpr int picturedSprites = 100; // the others are names only: a list of thousands must open as well
constexpr std::array<std::string_view, 3> pictureKinds = {"*.bmp", "*.gif", "*.jpg"};

bool isGameIcon(std::string_view name)
{
    const std::string lower = lowerCase(name);
    return lower == "icon.bmp" || lower == "icon.gif" || lower == "icon.jpg";
}

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

Resources::Resources(Desk& desk, QWidget* parent)
    : QWidget(parent)
    , m_desk(desk)
    , m_backgroundNames(nameList("BackgroundNames", tr("Backgrounds"), this))
    , m_backgroundScroll(new QScrollBar(Qt::Horizontal, this))
    , m_spriteNames(nameList("SpriteNames", tr("Sprites"), this))
{
    setObjectName(u"Resources");
    setWindowTitle(tr("Resources"));
    setAttribute(Qt::WA_DeleteOnClose);
    layOut();
    Form_Load();
}

void Resources::layOut()
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(16, 12, 16, 16);
    row->setSpacing(24);
    row->addWidget(makeBackgrounds());
    row->addWidget(makeSprites(), 1);

    connect(m_backgroundNames, &QListWidget::currentRowChanged, this, &Resources::backgroundSelected);
    connect(m_backgroundScroll, &QScrollBar::valueChanged, this, &Resources::BackgroundScroll_Change);
    connect(m_spriteNames, &QListWidget::currentRowChanged, this, &Resources::enableButtons);
    connect(m_spriteNames, &QListWidget::itemActivated, this, &Resources::EditSprite_Click);
    // Every save makes several changes, and every key in the title is a save.
    m_changesSettle.setSingleShot(true);
    m_changesSettle.setInterval(100);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_changesSettle, qOverload<>(&QTimer::start));
    connect(&m_changesSettle, &QTimer::timeout, this, &Resources::relist);
}

QPushButton* Resources::listButton(const char* name, const char* iconName, const QString& caption,
                                   QBoxLayout& box, void (Resources::*click)())
{
    auto* button = new QPushButton(caption, this);
    forms::dressButton(*button, name, iconName, QString());
    button->setIconSize(QSize(24, 24));
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
        listButton("AddBackground", "add", tr("&Add..."), *buttons, &Resources::AddBackground_Click);
    add->setToolTip(tr("Copy a picture into your game"));
    m_removeBackground =
        listButton("Command1", "remove", tr("&Remove..."), *buttons, &Resources::Command1_Click);
    m_removeBackground->setToolTip(tr("Take the picture out of your game"));
    m_removeBackground->setAccessibleName(tr("Remove background..."));
    buttons->addStretch();

    auto* grid = new QGridLayout(part);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(8);
    grid->addWidget(heading(tr("Backgrounds"), part), 0, 0);
    grid->addWidget(m_backgroundNames, 1, 0);
    grid->addLayout(buttons, 1, 1);
    grid->addWidget(makePreviews(), 2, 0, 1, 2);
    grid->setRowStretch(1, 1);
    return part;
}

QWidget* Resources::makePreviews()
{
    auto* part = new QWidget(this);
    auto* grid = new QGridLayout(part);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(4);
    for (int index = 0; index < previews; ++index) {
        auto* picture = new QToolButton(part);
        picture->setObjectName(QStringLiteral("ShowBackground_%1").arg(index));
        picture->setIconSize(previewSize);
        picture->setFixedSize(previewSize + QSize(16, 16));
        forms::letEnterPress(*picture);
        connect(picture, &QAbstractButton::clicked, this,
                [this, index] { m_backgroundNames->setCurrentRow(m_backgroundScroll->value() + index); });
        auto* title = new QLabel(part);
        title->setObjectName(QStringLiteral("ShowBackgroundTitle_%1").arg(index));
        title->setAlignment(Qt::AlignHCenter);
        title->setFixedWidth(picture->width());
        grid->addWidget(picture, 0, index);
        grid->addWidget(title, 1, index);
        m_showBackground[static_cast<std::size_t>(index)] = picture;
        m_showBackgroundTitle[static_cast<std::size_t>(index)] = title;
    }
    m_backgroundScroll->setObjectName(u"BackgroundScroll");
    m_backgroundScroll->setAccessibleName(tr("First background shown"));
    m_backgroundScroll->setFocusPolicy(Qt::StrongFocus);
    m_backgroundScroll->setPageStep(previews);
    m_backgroundScroll->setFixedHeight(18);
    grid->addWidget(m_backgroundScroll, 2, 0, 1, previews);
    return part;
}

QWidget* Resources::makeSprites()
{
    m_spriteNames->setIconSize(QSize(spriteSide, spriteSide));
    auto* part = new QWidget(this);
    auto* column = new QVBoxLayout(part);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addWidget(heading(tr("Sprites"), part));
    column->addWidget(m_spriteNames, 1);
    QPushButton* create = listButton("NewSprite", "new", tr("&New..."), *column, &Resources::NewSprite_Click);
    create->setToolTip(tr("Draw a new sprite"));
    m_editSprite = listButton("EditSprite", "edit", tr("&Edit..."), *column, &Resources::EditSprite_Click);
    m_editSprite->setToolTip(tr("Change how the sprite looks"));
    m_removeSprite =
        listButton("RemoveSprite", "remove", tr("Re&move..."), *column, &Resources::RemoveSprite_Click);
    m_removeSprite->setToolTip(tr("Take the sprite out of your game"));
    m_removeSprite->setAccessibleName(tr("Remove sprite..."));
    return part;
}

std::string Resources::gameFolder() const
{
    std::string folder = m_desk.module().gamePath();
    folder.pop_back(); // the backslash
    return folder;
}

std::string Resources::gameFile(const QString& name) const
{
    return m_desk.module().gamePath() + forms::toUtf8(name);
}

void Resources::Form_Load()
{
    relist();
    // Sprites that are drawn and pictures that come in from elsewhere show up by themselves.
    if (const auto folder = m_desk.installation().find(gameFolder()))
        m_watcher.addPath(QString::fromStdString(folder->string()));
}

void Resources::relist()
{
    m_pictures.clear();
    ListBackgrounds();
    ListSprites();
    enableButtons();
}

void Resources::ListBackgrounds()
{
    QStringList names;
    for (const auto kind : pictureKinds) {
        for (const auto& name : m_desk.installation().listFiles(gameFolder(), kind)) {
            if (!isGameIcon(name))
                names += forms::fromUtf8(name);
        }
    }
    fill(*m_backgroundNames, names);
    m_backgroundScroll->setMaximum(std::max(0, m_backgroundNames->count() - previews));
    BackgroundScroll_Change();
}

void Resources::ListSprites()
{
    QStringList names;
    for (const auto& name : spriteNames(m_desk.installation(), m_desk.module().gamePath()))
        names += forms::fromUtf8(name);
    fill(*m_spriteNames, names);
    for (int row = 0; row < std::min(m_spriteNames->count(), picturedSprites); ++row) {
        QListWidgetItem& item = *m_spriteNames->item(row);
        item.setIcon(spriteOf(m_desk, gameFile(item.text()), spriteSide));
    }
}

void Resources::backgroundSelected()
{
    const int row = m_backgroundNames->currentRow();
    const int first = m_backgroundScroll->value();
    if (row >= 0)
        m_backgroundScroll->setValue(std::clamp(first, row - previews + 1, row));
    enableButtons();
}

void Resources::enableButtons()
{
    const int row = m_backgroundNames->currentRow();
    m_removeBackground->setEnabled(row >= 0);
    m_editSprite->setEnabled(m_spriteNames->currentRow() >= 0);
    m_removeSprite->setEnabled(m_spriteNames->currentRow() >= 0);
}

void Resources::BackgroundScroll_Change()
{
    for (int index = 0; index < previews; ++index)
        showPreview(index);
}

void Resources::showPreview(int index)
{
    QToolButton& picture = *m_showBackground[static_cast<std::size_t>(index)];
    QLabel& title = *m_showBackgroundTitle[static_cast<std::size_t>(index)];
    const QListWidgetItem* item = m_backgroundNames->item(m_backgroundScroll->value() + index);
    const QString name = item != nullptr ? item->text() : QString();
    picture.setIcon(name.isEmpty() ? QPixmap() : previewOf(name));
    picture.setEnabled(!name.isEmpty());
    picture.setAccessibleName(name.isEmpty() ? tr("No background") : name);
    title.setToolTip(name);
    title.setText(title.fontMetrics().elidedText(name, Qt::ElideMiddle, title.width()));
}

QPixmap Resources::previewOf(const QString& name)
{
    if (!m_pictures.contains(name)) {
        QPixmap picture = pictureOf(m_desk, gameFile(name), previewSize, Qt::KeepAspectRatio);
        m_pictures.insert(
            name, picture.isNull() ? crossedBox(QSize(previewSize.height(), previewSize.height())) : picture);
    }
    return m_pictures.value(name);
}

void Resources::AddBackground_Click()
{
    const QString file =
        QFileDialog::getOpenFileName(this, tr("Add a background"), QDir::homePath(),
                                     tr("Pictures (*.bmp *.gif *.jpg *.jpeg *.BMP *.GIF *.JPG *.JPEG)"));
    if (!file.isEmpty())
        addPicture(file);
}

void Resources::addPicture(const QString& file)
{
    const QString shortName = QFileInfo(file).fileName();
    const QString name = writablePictureName(shortName);
    const std::filesystem::path path(file.toStdString());
    if (name.isEmpty() || !m_desk.pictures().read(path)) {
        forms::tell(this, say::pictureUnreadable.toString().arg(shortName));
        return;
    }
    const auto there = m_desk.installation().find(gameFile(name));
    std::error_code error;
    const bool same = there && std::filesystem::equivalent(*there, path, error);
    if (!same) {
        if (there && !forms::askOk(this, tr("Add a background"), say::pictureExists.toString().arg(name)))
            return;
        const auto bytes = readFileBytes(path, Installation::maximumFileSize);
        if (!bytes || !m_desk.installation().write(gameFile(name), *bytes)) {
            forms::tell(this, say::pictureNotAdded.toString());
            return;
        }
    }
    relist();
    const auto added = m_backgroundNames->findItems(name, Qt::MatchFixedString);
    if (!added.isEmpty())
        m_backgroundNames->setCurrentItem(added.front());
}

void Resources::removeFiles(const QStringList& names, const QString& shownName)
{
    bool gone = true;
    for (const QString& name : names) {
        if (m_desk.installation().find(gameFile(name)))
            gone = m_desk.installation().remove(gameFile(name)) && gone;
    }
    if (!gone)
        forms::tell(this, say::notRemoved.toString().arg(shownName));
    relist();
}

void Resources::Command1_Click()
{
    const QString name = selectedName(*m_backgroundNames);
    if (!name.isEmpty() &&
        forms::askOk(this, tr("Remove a background"), say::removePicture.toString().arg(name)))
        removeFiles({name}, name);
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
    if (!name.isEmpty() && forms::askOk(this, tr("Remove a sprite"), say::removeSprite.toString().arg(name)))
        removeFiles({name + QStringLiteral(".spr"), name + QStringLiteral(".spb")}, name);
}

void Resources::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}
