// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "editor/EditorBars.h"

#include "forms/ActionRow.h"
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
#include <span>

using namespace Qt::StringLiterals;

namespace
{

constexpr QPoint minibufferPlace(88, 2);
constexpr int gap = 8;
constexpr int betweenBars = 2;
constexpr int logoHeight = 40;
constexpr int leastFieldColumns = 8;
constexpr int leastHelpColumns = 36; // a usage line takes two lines at most
constexpr int helpMargins = 32;

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

// clang-format off
constexpr forms::ActionRow bigButtons[] = {
    {"UndoButton",       "undo",       u"&Undo",        u"Undo (Ctrl-Z)"},
    {"SearchButton",     "search",     u"Sear&ch",      u"Search (Ctrl-S)"},
};
constexpr forms::ActionRow smallButtons[] = {
    {"AutoIndentButton", "autoindent", u"Auto-&indent", u"Auto-indent"},
    {"Gotolinebutton",   "gotoline",   u"&Goto Line",   u"Goto Line (Ctrl-1)"},
    {"PrintButton",      "print",      u"P&rint",       u"Print"},
    {"FontButton",       "font",       u"Fo&nt",        u"Change Font"},
};
// clang-format on

QFrame* makeToolbar(const char* name, std::span<const forms::ActionRow> rows, QSizePolicy::Policy vertical,
                    QWidget* parent)
{
    auto* bar = new QFrame(parent);
    bar->setObjectName(QLatin1String(name));
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setRetainSizeWhenHidden(true); // the text below must not jump
    bar->setSizePolicy(policy);
    auto* line = new QHBoxLayout(bar);
    line->setContentsMargins(gap, gap / 2, 0, gap / 2);
    for (const forms::ActionRow& row : rows) {
        auto* button = new QToolButton; // a click leaves the keyboard where it is: in the program
        forms::setUpButton(*button, row);
        button->setSizePolicy(QSizePolicy::Minimum, vertical);
        line->addWidget(button);
    }
    line->addStretch();
    return bar;
}

/// How the buttons of a bar look.
struct ButtonLook {
    Qt::ToolButtonStyle style;
    QSize icon;
    int spacing;
};

constexpr ButtonLook big{Qt::ToolButtonTextUnderIcon, {40, 40}, gap};
constexpr ButtonLook bigBare{Qt::ToolButtonIconOnly, {32, 32}, gap / 4};
constexpr ButtonLook small{Qt::ToolButtonTextBesideIcon, {30, 24}, gap};
constexpr ButtonLook smallBare{Qt::ToolButtonIconOnly, {30, 24}, gap};
constexpr ButtonLook smallDense{Qt::ToolButtonIconOnly, {24, 24}, gap / 4};

void setLook(QWidget& bar, const ButtonLook& look)
{
    for (auto* button : bar.findChildren<QToolButton*>()) {
        button->ensurePolished(); // its style decides how wide it is
        button->setToolButtonStyle(look.style);
        button->setIconSize(look.icon);
    }
    bar.layout()->setSpacing(look.spacing);
    bar.layout()->invalidate();
    bar.updateGeometry(); // the layout around it remembers its old size
}

int leastWidth(const QWidget& bar)
{
    return bar.layout()->minimumSize().width();
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
        const QString hint = text().sliced(blanks).trimmed();
        paint(m_hintPlace, fontMetrics().elidedText(hint, Qt::ElideRight, width() - m_hintPlace));
    }

private:
    int m_hintPlace = 0;
};

EditorBars::EditorBars(QWidget* parent)
    : QWidget(parent)
    , m_Toolbar1(makeToolbar("Toolbar1", bigButtons, QSizePolicy::Expanding, this))
    , m_Toolbar2(makeToolbar("Toolbar2", smallButtons, QSizePolicy::Fixed, this))
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

int EditorBars::wishedWidth() const
{
    const QFontMetrics metrics(m_ShowStatus->font());
    const int prompt = metrics.horizontalAdvance(searchPrompt()) + 2 * gap + m_ShowCursorPos->width();
    return std::max(prompt, m_leastWidths[All]);
}

QSize EditorBars::minimumSizeHint() const
{
    return {m_leastWidths[None], QWidget::minimumSizeHint().height()};
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
    fitCaptions();
    placePrompt();
}

void EditorBars::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    fitCaptions();
}

void EditorBars::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        QMetaObject::invokeMethod(this, &EditorBars::measure, Qt::QueuedConnection); // the buttons follow
}

/// Sizes that do not depend on what is shown: a label that keeps its size costs no new layout at every key.
void EditorBars::measure()
{
    const QFontMetrics metrics(font());
    m_ShowCursorPos->setFixedWidth(metrics.horizontalAdvance(u"L:0000, C:000"_s) + 2 * gap);
    m_ShowHelp->setFixedHeight(std::max(2 * metrics.lineSpacing() + 2, logoHeight));
    m_Logo->setPixmap(
        forms::icon("logo-small").pixmap(QSize(4 * logoHeight, logoHeight), devicePixelRatioF()));
    for (const Captions captions : {None, BelowIcons, All}) {
        setCaptions(captions);
        m_leastWidths[captions] =
            leastWidth(*m_Toolbar1) + leastWidth(*m_Toolbar2) + m_ShowCursorPos->width();
    }
    fitCaptions();
    updateGeometry();
    placePrompt();
}

void EditorBars::setCaptions(Captions captions)
{
    m_captions = captions;
    setLook(*m_Toolbar1, captions == None ? bigBare : big);
    setLook(*m_Toolbar2, captions == None ? smallDense : captions == All ? small : smallBare);
}

/// As many captions as there is room for. Before anybody sees them the room is not known.
void EditorBars::fitCaptions()
{
    if (!isVisible())
        return;
    const auto fits = [this](Captions captions) { return m_leastWidths[captions] <= width(); };
    const Captions captions = fits(All) ? All : fits(BelowIcons) ? BelowIcons : None;
    if (captions != m_captions)
        setCaptions(captions);
    // The help comes before the picture.
    const int help = width() - leastWidth(*m_Toolbar1) - helpMargins - m_Logo->sizeHint().width() - gap;
    m_Logo->setVisible(help >= QFontMetrics(font()).averageCharWidth() * leastHelpColumns);
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
