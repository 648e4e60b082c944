// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "library/Properties.h"

#include "forms/Desk.h"
#include "forms/Icons.h"
#include "forms/MessageBoxes.h"
#include "forms/Texts.h"
#include "games/GameIcon.h"
#include "library/GamePictures.h"
#include "library/PictureImport.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>
#include <QValidator>

#include <algorithm>

namespace
{

using namespace Qt::StringLiterals;

constexpr const char* tagProperty = "tag";

bool isLineBreak(QChar c)
{
    return c == u'\r' || c == u'\n' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

/// Takes line breaks out of whatever comes into a box, pasted text included: each box is one line of a file.
class OneLine : public QValidator
{
public:
    using QValidator::QValidator;

    State validate(QString& input, int& position) const override
    {
        const auto before = std::count_if(input.cbegin(), input.cbegin() + position, isLineBreak);
        position -= static_cast<int>(before);
        input.removeIf(isLineBreak);
        return Acceptable;
    }
};

QLineEdit* lineBox(const char* name, QWidget* parent)
{
    auto* box = new QLineEdit(parent);
    box->setObjectName(QLatin1String(name));
    box->setValidator(new OneLine(box));
    box->setMinimumWidth(box->fontMetrics().averageCharWidth() * 34);
    return box;
}

} // namespace

Properties::Properties(Desk& desk, GameRecord& game, QWidget* parent)
    : QWidget(parent)
    , m_desk(desk)
    , m_draft(desk.installation(), game)
    , m_title(lineBox("title", this))
    , m_author(lineBox("Author", this))
    , m_showIcon(new QLabel(this))
    , m_notSaved(new QLabel(u"Not saved!"_s, this))
    , m_iconScroll(new QScrollBar(Qt::Horizontal, this))
    , m_iconName(new QListWidget(this))
{
    setObjectName(u"Properties");
    setWindowTitle(u"Game Properties"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    layOut();
    Form_Load();
    adjustSize(); // no larger than its parts want it
    connect(m_title, &QLineEdit::textChanged, this, &Properties::title_Change);
    connect(m_author, &QLineEdit::textChanged, this, &Properties::Author_Change);
    connect(m_iconScroll, &QScrollBar::valueChanged, this, &Properties::IconScroll_Change);
}

void Properties::nameControls()
{
    m_showIcon->setObjectName(u"ShowIcon");
    m_showIcon->setAccessibleName(u"Icon of the game"_s);
    m_showIcon->setFixedSize(iconSide, iconSide);
    m_iconName->setObjectName(u"IconName");
    m_iconName->hide(); // the names behind the four pictures
    m_notSaved->setObjectName(u"NotSaved");
    m_notSaved->setStyleSheet(u"color: #d62828; font-weight: bold;"_s);
    m_notSaved->hide();
    m_iconScroll->setObjectName(u"IconScroll");
    m_iconScroll->setAccessibleName(u"First icon shown"_s);
    m_iconScroll->setFocusPolicy(Qt::StrongFocus);
    m_iconScroll->setPageStep(selectors);
    m_iconScroll->setFixedHeight(18);
}

void Properties::addRow(QFormLayout& form, const QString& caption, const char* key, QWidget* field,
                        QWidget* target)
{
    form.addRow(new QLabel(caption), field);
    auto* shortcut = new QShortcut(QKeySequence(QLatin1String(key)), this);
    connect(shortcut, &QShortcut::activated, target, [target] { target->setFocus(Qt::ShortcutFocusReason); });
    if (target->accessibleName().isEmpty())
        target->setAccessibleName(caption);
}

QWidget* Properties::makeIcons()
{
    auto* icons = new QWidget(this);
    auto* row = new QHBoxLayout(icons);
    row->setContentsMargins(0, 4, 0, 0);
    row->setSpacing(16);
    row->addWidget(m_showIcon, 0, Qt::AlignTop);
    row->addWidget(makeSelector());
    row->addStretch();
    return icons;
}

void Properties::layOut()
{
    nameControls();
    auto* form = new QFormLayout;
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(8);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    addRow(*form, u"Game Title"_s, "Alt+T", m_title, m_title);
    addRow(*form, u"Your Name"_s, "Alt+N", m_author, m_author);
    QWidget* icons = makeIcons();
    addRow(*form, u"Icon"_s, "Alt+I", icons, m_iconSelector[0]);

    auto* ok = new QPushButton(u"&Ok"_s, this);
    forms::setUpButton(*ok, "Command1", "ok", u"Close this window"_s);
    ok->setIconSize(QSize(28, 20)); // with some room beside the caption
    connect(ok, &QAbstractButton::clicked, this, &Properties::Command1_Click);
    auto* lower = new QHBoxLayout;
    lower->addWidget(m_notSaved);
    lower->addStretch();
    lower->addWidget(ok);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 12);
    column->setSpacing(12);
    column->addLayout(form);
    column->addStretch();
    column->addLayout(lower);
}

QWidget* Properties::makeSelector()
{
    auto* selector = new QWidget(this);
    auto* grid = new QGridLayout(selector);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(8);
    for (int index = 0; index < selectors; ++index) {
        auto* picture = new QToolButton(selector);
        picture->setObjectName(u"IconSelector_%1"_s.arg(index));
        picture->setIconSize(QSize(iconSide, iconSide) * 0.8);
        picture->setFixedSize(picture->sizeHint());
        picture->setFocusPolicy(Qt::StrongFocus);
        picture->setCursor(Qt::PointingHandCursor);
        forms::letEnterPress(*picture);
        connect(picture, &QAbstractButton::clicked, this, [this, index] { IconSelector_Click(index); });
        grid->addWidget(picture, 0, index);
        m_iconSelector[static_cast<std::size_t>(index)] = picture;
    }
    grid->addWidget(m_iconScroll, 1, 0, 1, selectors);
    setTabOrder(m_iconSelector.back(), m_iconScroll);
    return selector;
}

void Properties::Form_Load()
{
    m_title->setText(forms::fromUtf8(m_draft.game().title));
    m_author->setText(forms::fromUtf8(m_draft.game().author));
    showGameIcon();
    listIcons();
    m_title->setFocus();
}

void Properties::listIcons()
{
    m_iconName->clear();
    for (const auto& name : m_desk.installation().listFiles("zbo\\icons", "*.*"))
        m_iconName->addItem(forms::fromUtf8(name));
    m_iconScroll->setMaximum(std::max(0, m_iconName->count() - 1));
    IconScroll_Change();
}

void Properties::showGameIcon()
{
    const auto icon = findGameIcon(m_desk.installation(), m_draft.game());
    m_showIcon->setPixmap(icon ? iconOf(m_desk, m_draft.game()) : QPixmap());
}

void Properties::title_Change()
{
    if (!m_title->isEnabled())
        return;
    m_draft.setText(forms::toUtf8(m_title->text()), forms::toUtf8(m_author->text()));
    m_desk.gameTitleChanged();
    const QPointer<Properties> guard(this); // a question may outlive the window
    if (!mayReplaceStored()) {
        if (guard)
            showStored();
        return;
    }
    const bool wasSaved = m_draft.isSaved();
    m_notSaved->setVisible(!m_draft.save());
    if (wasSaved && !m_draft.isSaved()) // said once, not at every key
        forms::warn(this, u"I could not save the title and your name.  Maybe the disk is full, or nobody may "
                          "write in the folder of this game.  I will try again when you type something else "
                          "or press Ok."_s);
}

bool Properties::mayReplaceStored()
{
    if (!m_draft.hasChangedElsewhere())
        return m_desk.mayChangeGame(this);
    return forms::askYesNo(
        this, u"Save"_s,
        u"Somebody else has changed the title of this game or the name of its author since "
        "you opened it.  If you save now, their changes are lost.\n\nSave yours all the "
        "same?"_s);
}

/// The boxes show what others have saved.
void Properties::showStored()
{
    m_draft.takeStored();
    const QSignalBlocker titleIsQuiet(m_title);
    const QSignalBlocker authorIsQuiet(m_author);
    m_title->setText(forms::fromUtf8(m_draft.game().title));
    m_author->setText(forms::fromUtf8(m_draft.game().author));
    m_notSaved->hide();
    m_desk.gameTitleChanged();
}

void Properties::Author_Change()
{
    title_Change();
}

void Properties::IconScroll_Change()
{
    for (int index = 0; index < selectors; ++index) {
        QToolButton& picture = *m_iconSelector[static_cast<std::size_t>(index)];
        const QListWidgetItem* item = m_iconName->item(index + m_iconScroll->value());
        const QString tag = item != nullptr ? item->text() : QString();
        QPixmap icon;
        if (!tag.isEmpty()) {
            icon = pictureOf(m_desk, "zbo\\icons\\" + forms::toUtf8(tag), QSize(iconSide, iconSide));
            if (icon.isNull())
                icon = crossedBox(QSize(iconSide, iconSide));
        }
        picture.setProperty(tagProperty, tag);
        picture.setIcon(icon);
        const QString name = tag.section(u'.', 0, -2);
        picture.setToolTip(name);
        picture.setAccessibleName(tag.isEmpty() ? u"No icon"_s : name);
        picture.setEnabled(!tag.isEmpty());
    }
}

void Properties::IconScroll_Scroll()
{
    IconScroll_Change();
}

void Properties::IconSelector_Click(int index)
{
    const QString tag = m_iconSelector[static_cast<std::size_t>(index)]->property(tagProperty).toString();
    if (!tag.isEmpty() && m_desk.mayChangeGame(this))
        useIcon(tag);
}

void Properties::useIcon(const QString& fileName)
{
    const std::string path = "zbo\\icons\\" + forms::toUtf8(fileName);
    const auto file = m_desk.installation().find(path);
    const auto bytes = m_desk.installation().readBytes(path);
    if (!file || !bytes) {
        listIcons();
        forms::tell(this,
                    u"I can't find the icon %1 any more.  Somebody must have moved it or deleted it."_s.arg(
                        fileName));
        return;
    }
    const PictureImport picture = importPicture(m_desk.pictures(), *file);
    const bool isGood = picture.outcome == PictureImport::Outcome::Ready;
    if (!isGood && hasGoodIcon()) {
        forms::warn(this,
                    u"I can't read the icon %1.  Maybe it is damaged.  Your game keeps the icon that it "
                    "has."_s.arg(fileName));
        return;
    }
    const std::string ending = file->extension().string();
    const bool chosen =
        writeGameIcon(m_desk.installation(), m_draft.game(),
                      isGameIcon("icon" + ending) ? ending : picture.ending, isGood ? picture.bytes : *bytes);
    showGameIcon();
    if (!chosen)
        forms::warn(this, u"I could not change the icon.  Maybe the disk is full, or nobody may write in the "
                          "folder of this game."_s);
}

bool Properties::hasGoodIcon()
{
    const auto icon = findGameIcon(m_desk.installation(), m_draft.game());
    const auto file = icon ? m_desk.installation().find(*icon) : std::nullopt;
    return file && m_desk.pictures().read(*file);
}

void Properties::Command1_Click()
{
    close();
}

void Properties::closeEvent(QCloseEvent* event)
{
    if (!m_draft.isSaved() && mayReplaceStored() && !m_draft.save())
        forms::warn(this, u"I could not save the title and your name.  They will be gone when you close this "
                          "game!"_s);
    QWidget::closeEvent(event);
}

void Properties::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void Properties::wheelEvent(QWheelEvent* event)
{
    QCoreApplication::sendEvent(m_iconScroll, event);
}
