// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "editor/EditorBars.h"

#include "forms/Icons.h"

#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr QPoint minibufferPlace(88, 2);
constexpr int gap = 8;
constexpr int betweenBars = 2;
constexpr int logoHeight = 40;
constexpr int leastFieldColumns = 8;

QString searchCaption()
{
    return u"Search For:"_s;
}

QString searchHint()
{
    return u"(Ctrl-S to find next)"_s;
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
    forms::setUpButton(*button, entry.name, entry.icon, QLatin1String(entry.tip));
    button->setToolButtonStyle(isBig ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonTextBesideIcon);
    button->setIconSize(isBig ? QSize(40, 40) : QSize(30, 24));
    if (isBig)
        button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);
    return button;
}

template<typename Label = QLabel> Label* makeLabel(const char* name, QWidget* parent = nullptr)
{
    auto* label = new Label(parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText); // usage lines are full of < and >
    return label;
}

} // namespace

/// Shows prompts and progress. What stands behind a run of blanks is a hint: it is painted to the right of
/// the input field, wherever that is, and not where the blanks end.
class EditorBars::StatusLabel : public QLabel
{
public:
    using QLabel::QLabel;
    void setHintPlace(int left)
    {
        m_hintPlace = left;
        update();
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        const qsizetype blanks = text().indexOf(u"  ");
        if (blanks < 0) {
            QLabel::paintEvent(event);
            return;
        }
        QPainter painter(this);
        const auto paint = [this, &painter](int left, const QString& part) {
            style()->drawItemText(&painter, rect().adjusted(left, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                                  palette(), isEnabled(), part, foregroundRole());
        };
        paint(0, text().first(blanks));
        paint(m_hintPlace, text().sliced(blanks).trimmed());
    }

private:
    int m_hintPlace = 0;
};

EditorBars::EditorBars(QWidget* parent)
    : QWidget(parent)
    , m_Toolbar1(makeToolbar("Toolbar1", 1))
    , m_Toolbar2(makeToolbar("Toolbar2", 2))
    , m_helpBar(makeHelpBar())
    , m_ShowCursorPos(makeLabel("ShowCursorPos"))
    , m_ShowStatus(makeLabel<StatusLabel>("ShowStatus", this))
    , m_Minibuffer(new QLineEdit(this))
{
    setObjectName(u"EditorBars"_s);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_ShowCursorPos->setAlignment(Qt::AlignCenter);
    m_ShowCursorPos->setAccessibleName(u"Line and column of the cursor"_s);
    m_ShowCursorPos->setToolTip(u"Line and column of the cursor"_s);
    m_Minibuffer->setObjectName(u"Minibuffer"_s);
    m_Minibuffer->setAccessibleName(u"Prompt"_s);
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
    bar->setObjectName(u"helpBar"_s);
    bar->setStyleSheet(u"#helpBar { background: palette(base); border: 1px solid palette(mid); "
                       "border-radius: 8px; margin: 0 8px 4px 8px; }"_s);
    m_ShowHelp = makeLabel("ShowHelp");
    m_ShowHelp->setText(u"Welcome to the Zorbino Code Editor!"_s);
    m_ShowHelp->setToolTip(u"Shows the format of the command you are using"_s);
    m_ShowHelp->setWordWrap(true);
    m_Logo = makeLabel("Logo");
    m_Logo->setAccessibleName(u"Zorbino"_s);
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
    return captionAndField() + searchHint();
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
    m_ShowCursorPos->setText(u"L:%1, C:%2"_s.arg(line).arg(column));
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
    m_ShowCursorPos->setFixedWidth(metrics.horizontalAdvance(u"L:0000, C:000"_s) + 2 * gap);
    m_ShowHelp->setFixedHeight(std::max(2 * metrics.lineSpacing() + 2, logoHeight));
    m_Logo->setPixmap(
        forms::icon("logo-small").pixmap(QSize(4 * logoHeight, logoHeight), devicePixelRatioF()));
    placePrompt();
}

/// The hint stands where the blanks end, or further left where it would not be seen whole there; the input
/// field takes what room is left between the caption and the hint.
void EditorBars::placePrompt()
{
    const QFontMetrics metrics(m_ShowStatus->font());
    const int text = minibufferPlace.y();
    const int caption = metrics.horizontalAdvance(searchCaption());
    const int left = std::max(minibufferPlace.x(), text + caption + text); // larger fonts need more
    const int leastField = metrics.averageCharWidth() * leastFieldColumns;
    const int right = width() - m_ShowCursorPos->width() - gap;
    const int behindBlanks = text + metrics.horizontalAdvance(captionAndField());
    const int lastPlace = right - metrics.horizontalAdvance(searchHint()) - text;
    const int hint = std::max(std::min(behindBlanks, lastPlace), left + leastField + gap);
    const int height = m_Minibuffer->sizeHint().height();
    m_Minibuffer->setGeometry(left, minibufferPlace.y(), hint - gap - left, height);
    m_ShowStatus->setGeometry(text, minibufferPlace.y(), std::max(right - text, left), height);
    m_ShowStatus->setHintPlace(hint - text);
}
