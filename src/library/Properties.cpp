#include "library/Properties.h"

#include "forms/Desk.h"
#include "forms/Forms.h"
#include "library/GamePictures.h"
#include "library/Messages.h"
#include "runtime/GameFolders.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>
#include <QValidator>

#include <algorithm>

namespace
{

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

Properties::Properties(Desk& desk, QWidget* parent)
    : QWidget(parent)
    , m_desk(desk)
    , m_title(lineBox("title", this))
    , m_author(lineBox("Author", this))
    , m_showIcon(new QLabel(this))
    , m_notSaved(new QLabel(tr("Not saved!"), this))
    , m_iconScroll(new QScrollBar(Qt::Horizontal, this))
    , m_iconName(new QListWidget(this))
{
    setObjectName(u"Properties");
    setWindowTitle(tr("Game Properties"));
    setAttribute(Qt::WA_DeleteOnClose);
    layOut();
    Form_Load();
    connect(m_title, &QLineEdit::textChanged, this, &Properties::title_Change);
    connect(m_author, &QLineEdit::textChanged, this, &Properties::Author_Change);
    connect(m_iconScroll, &QScrollBar::valueChanged, this, &Properties::IconScroll_Change);
    connect(m_iconScroll, &QScrollBar::sliderMoved, this, &Properties::IconScroll_Scroll);
}

void Properties::layOut()
{
    m_showIcon->setObjectName(u"ShowIcon");
    m_showIcon->setAccessibleName(tr("Icon of the game"));
    m_showIcon->setFixedSize(iconSide, iconSide);
    m_iconName->setObjectName(u"IconName");
    m_iconName->hide(); // the names behind the four pictures
    m_notSaved->setObjectName(u"NotSaved");
    m_notSaved->setStyleSheet(QStringLiteral("color: #d62828; font-weight: bold;"));
    m_notSaved->hide();
    m_iconScroll->setObjectName(u"IconScroll");
    m_iconScroll->setAccessibleName(tr("First icon shown"));
    m_iconScroll->setFocusPolicy(Qt::StrongFocus);
    m_iconScroll->setPageStep(selectors);
    m_iconScroll->setFixedHeight(18);

    auto* form = new QFormLayout;
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(8);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    const auto row = [this, form](const QString& caption, const char* key, QWidget* field, QWidget* target) {
        form->addRow(new QLabel(caption), field);
        auto* shortcut = new QShortcut(QKeySequence(QLatin1String(key)), this);
        connect(shortcut, &QShortcut::activated, target,
                [target] { target->setFocus(Qt::ShortcutFocusReason); });
        if (target->accessibleName().isEmpty())
            target->setAccessibleName(caption);
    };
    row(tr("Game Title"), "Alt+T", m_title, m_title);
    row(tr("Your Name"), "Alt+N", m_author, m_author);
    auto* icons = new QWidget(this);
    auto* iconRow = new QHBoxLayout(icons);
    iconRow->setContentsMargins(0, 4, 0, 0);
    iconRow->setSpacing(16);
    iconRow->addWidget(m_showIcon, 0, Qt::AlignTop);
    iconRow->addWidget(makeSelector());
    iconRow->addStretch();
    row(tr("Icon"), "Alt+I", icons, m_iconSelector[0]);

    auto* ok = new QPushButton(tr("&Ok"), this);
    forms::dressButton(*ok, "Command1", "ok", tr("Close this window"));
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
        picture->setObjectName(QStringLiteral("IconSelector_%1").arg(index));
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
    const GameRecord& game = m_desk.module().CurrentGame;
    m_title->setEnabled(false);
    m_title->setText(forms::fromUtf8(game.title));
    m_author->setText(forms::fromUtf8(game.author));
    m_title->setEnabled(true);
    showGameIcon();
    for (const auto& name : m_desk.installation().listFiles("zbo\\icons", "*.*"))
        m_iconName->addItem(forms::fromUtf8(name));
    m_iconScroll->setMaximum(std::max(0, m_iconName->count() - 1));
    IconScroll_Change();
    m_title->setFocus();
}

void Properties::showGameIcon()
{
    const auto icon = findGameIcon(m_desk.installation(), m_desk.module().CurrentGame);
    m_showIcon->setPixmap(icon ? iconOf(m_desk, m_desk.module().CurrentGame) : QPixmap());
}

void Properties::title_Change()
{
    if (!m_title->isEnabled())
        return;
    GameRecord& game = m_desk.module().CurrentGame;
    game.title = forms::toUtf8(m_title->text());
    game.author = forms::toUtf8(m_author->text());
    m_desk.gameTitleChanged();
    const bool saved = SaveGameProperties(m_desk.installation(), game);
    const bool news = !saved && !m_saveFailed; // said once, not at every key
    m_saveFailed = !saved;
    m_notSaved->setVisible(!saved);
    if (news)
        forms::tell(this, say::propertiesNotSaved.toString());
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
        picture.setAccessibleName(tag.isEmpty() ? tr("No icon") : name);
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
    if (tag.isEmpty())
        return;
    const bool chosen =
        ChooseGameIcon(m_desk.installation(), m_desk.module().CurrentGame, forms::toUtf8(tag));
    showGameIcon();
    if (!chosen)
        forms::tell(this, say::iconNotChosen.toString());
}

void Properties::Command1_Click()
{
    close();
}

void Properties::closeEvent(QCloseEvent* event)
{
    if (m_saveFailed && !SaveGameProperties(m_desk.installation(), m_desk.module().CurrentGame))
        forms::tell(this, say::propertiesStillNotSaved.toString());
    m_saveFailed = false;
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
