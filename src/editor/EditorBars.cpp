#include "editor/EditorBars.h"

#include "forms/Forms.h"

#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include <algorithm>

namespace
{

constexpr QPoint minibufferPlace(88, 2);
constexpr int gap = 8;
constexpr int betweenBars = 2;
constexpr int logoHeight = 40;

QString searchCaption()
{
    return QStringLiteral("Search For:");
}

/// The caption, and the blanks that the input field stands on.
QString captionAndField()
{
    return searchCaption() + QString(100, u' ');
}

struct Button {
    const char* name;
    const char* icon;
    const char* caption;
    const char* tip;
    int toolbar;
};

// clang-format off
constexpr Button buttons[] = {
    {"UndoButton",       "undo",       "&Undo",        "Undo (Ctrl-Z)",      1},
    {"SearchButton",     "search",     "Sear&ch",      "Search (Ctrl-S)",    1},
    {"AutoIndentButton", "autoindent", "Auto-&indent", "Auto-indent",        2},
    {"Gotolinebutton",   "gotoline",   "&Goto Line",   "Goto Line (Ctrl-1)", 2},
    {"PrintButton",      "print",      "P&rint",       "Print",              2},
    {"FontButton",       "font",       "Fo&nt",        "Change Font",        2},
};
// clang-format on

QToolButton* makeButton(const Button& entry)
{
    const bool isBig = entry.toolbar == 1;
    auto* button = new QToolButton;
    button->setText(QLatin1String(entry.caption));
    forms::dressButton(*button, entry.name, entry.icon, QLatin1String(entry.tip));
    button->setToolButtonStyle(isBig ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonTextBesideIcon);
    button->setIconSize(isBig ? QSize(40, 40) : QSize(30, 24));
    if (isBig)
        button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);
    return button;
}

QLabel* makeLabel(const char* name, QWidget* parent = nullptr)
{
    auto* label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText); // usage lines are full of < and >
    return label;
}

} // namespace

EditorBars::EditorBars(QWidget* parent)
    : QWidget(parent)
    , m_Toolbar1(makeToolbar("Toolbar1", 1))
    , m_Toolbar2(makeToolbar("Toolbar2", 2))
    , m_helpBar(makeHelpBar())
    , m_ShowCursorPos(makeLabel("ShowCursorPos"))
    , m_ShowStatus(makeLabel("ShowStatus", this))
    , m_Minibuffer(new QLineEdit(this))
{
    setObjectName(QStringLiteral("EditorBars"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_ShowCursorPos->setAlignment(Qt::AlignCenter);
    m_ShowCursorPos->setAccessibleName(QStringLiteral("Line and column of the cursor"));
    m_ShowCursorPos->setToolTip(QStringLiteral("Line and column of the cursor"));
    m_Minibuffer->setObjectName(QStringLiteral("Minibuffer"));
    m_Minibuffer->setAccessibleName(QStringLiteral("Prompt"));
    m_Minibuffer->hide();
    m_ShowStatus->hide();

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(betweenBars);
    grid->addWidget(m_Toolbar1, 0, 0, 2, 1);
    grid->addWidget(m_Toolbar2, 0, 1);
    grid->addWidget(m_ShowCursorPos, 0, 2);
    grid->addWidget(m_helpBar, 1, 1, 1, 2);
    grid->setColumnStretch(1, 1);
    measure();
}

QFrame* EditorBars::makeToolbar(const char* name, int row)
{
    auto* bar = new QFrame(this);
    bar->setObjectName(QLatin1String(name));
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setRetainSizeWhenHidden(true); // the text below must not jump
    bar->setSizePolicy(policy);
    auto* line = new QHBoxLayout(bar);
    line->setContentsMargins(gap, gap / 2, 0, gap / 2);
    line->setSpacing(gap);
    for (const Button& entry : buttons) {
        if (entry.toolbar == row)
            line->addWidget(makeButton(entry));
    }
    line->addStretch();
    return bar;
}

QFrame* EditorBars::makeHelpBar()
{
    auto* bar = new QFrame(this);
    bar->setObjectName(QStringLiteral("helpBar"));
    bar->setStyleSheet(QStringLiteral("#helpBar { background: palette(base); border: 1px solid palette(mid); "
                                      "border-radius: 8px; margin: 0 8px 4px 8px; }"));
    m_ShowHelp = makeLabel("ShowHelp");
    m_ShowHelp->setText(QStringLiteral("Welcome to the Zorbino Code Editor!"));
    m_ShowHelp->setToolTip(QStringLiteral("Shows the format of the command you are using"));
    m_ShowHelp->setWordWrap(true);
    m_Logo = makeLabel("Logo");
    m_Logo->setAccessibleName(QStringLiteral("Zorbino"));
    auto* line = new QHBoxLayout(bar);
    line->setContentsMargins(gap, 0, gap, 0);
    line->setSpacing(gap);
    line->addWidget(m_ShowHelp, 1);
    line->addWidget(m_Logo);
    return bar;
}

QToolButton* EditorBars::button(const char* name) const
{
    return findChild<QToolButton*>(QLatin1String(name));
}

QString EditorBars::searchPrompt()
{
    return captionAndField() + QStringLiteral("(Ctrl-S to find next)");
}

int EditorBars::promptWidth() const
{
    const QFontMetrics metrics(m_ShowStatus->font());
    return metrics.horizontalAdvance(searchPrompt()) + 2 * gap + m_ShowCursorPos->width();
}

void EditorBars::showToolbars(bool shown)
{
    m_Toolbar1->setVisible(shown);
    m_Toolbar2->setVisible(shown);
    m_ShowStatus->setVisible(!shown);
}

void EditorBars::showPosition(int line, int column)
{
    m_ShowCursorPos->setText(QStringLiteral("L:%1, C:%2").arg(line).arg(column));
}

void EditorBars::showHelp(const QString& usage)
{
    m_ShowHelp->setText(usage);
}

void EditorBars::showStatus(const QString& status)
{
    m_ShowStatus->setText(status);
    m_ShowStatus->repaint();
}

void EditorBars::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placePrompt();
}

void EditorBars::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        measure();
}

/// Sizes that do not depend on what is shown: a label that keeps its size costs no new layout at every key.
void EditorBars::measure()
{
    const QFontMetrics metrics(font());
    m_ShowCursorPos->setFixedWidth(metrics.horizontalAdvance(QStringLiteral("L:00000, C:0000")) + 2 * gap);
    m_ShowHelp->setFixedHeight(std::max(2 * metrics.lineSpacing() + 2, logoHeight));
    m_Logo->setPixmap(
        forms::icon("logo-small").pixmap(QSize(4 * logoHeight, logoHeight), devicePixelRatioF()));
    placePrompt();
}

void EditorBars::placePrompt()
{
    const QFontMetrics metrics(m_ShowStatus->font());
    const int text = minibufferPlace.y();
    const int caption = metrics.horizontalAdvance(searchCaption());
    const int left = std::max(minibufferPlace.x(), text + caption + text); // larger fonts need more
    const int hint = text + metrics.horizontalAdvance(captionAndField());
    const int height = m_Minibuffer->sizeHint().height();
    m_Minibuffer->setGeometry(left, minibufferPlace.y(), std::max(hint - gap - left, left), height);
    m_ShowStatus->setGeometry(text, minibufferPlace.y(),
                              std::max(width() - m_ShowCursorPos->width() - gap, left), height);
}
