#include "play/SpyWindow.h"

#include "forms/Forms.h"
#include "platform/NumberText.h"
#include "platform/Rounding.h"
#include "play/HistoryList.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QScrollBar>
#include <QStringListModel>
#include <QVBoxLayout>

namespace
{

constexpr int refreshInterval = 17; // milliseconds: not quite 60 times a second
constexpr int numberWidth = 4;
constexpr int listFontSize = 11;
constexpr int gap = 8;
constexpr int margin = 12;

QLabel* makeLabel(const QString& text, QWidget* buddy)
{
    auto* label = new QLabel(text);
    label->setBuddy(buddy);
    return label;
}

QLabel* makeStateLabel(const char* name, const QString& accessibleName)
{
    auto* label = new QLabel;
    label->setObjectName(QLatin1String(name));
    label->setAccessibleName(accessibleName);
    label->setTextFormat(Qt::PlainText);
    label->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
    label->setMinimumWidth(label->fontMetrics().averageCharWidth() * 16);
    label->setMargin(4);
    return label;
}

} // namespace

SpyWindow::SpyWindow(CodeEditorPort& codeEditor)
    : m_codeEditor(codeEditor)
    , m_history(new HistoryList)
    , m_variables(new QListView)
    , m_variableLines(new QStringListModel(this))
    , m_showState(makeStateLabel("ShowState", QStringLiteral("State")))
    , m_showSubstate(makeStateLabel("ShowSubstate", QStringLiteral("Substate")))
    , m_frames(new QCheckBox(QStringLiteral("Show &Frame Divisions")))
    , m_events(new QCheckBox(QStringLiteral("Show &Event Entry/Exit")))
    , m_code(new QCheckBox(QStringLiteral("Show Every &Line of Code Executed")))
{
    setObjectName(QStringLiteral("SpyWindow"));
    setWindowTitle(QStringLiteral("Spy"));
    setWindowIcon(forms::icon("spy"));

    auto* lists = new QHBoxLayout;
    lists->setSpacing(margin);
    lists->addLayout(makeHistory(), 2);
    lists->addLayout(makeVariables(), 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(gap);
    layout->addLayout(makeBoxes());
    layout->addLayout(makeStateLine());
    layout->addLayout(lists, 1);

    resize(fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 30);

    m_refresh.setSingleShot(true);
    m_refresh.setInterval(refreshInterval);
    m_refresh.callOnTimeout(this, &SpyWindow::refresh);
}

QLayout* SpyWindow::makeBoxes()
{
    auto* row = new QHBoxLayout;
    row->setSpacing(2 * gap);
    struct Box {
        QCheckBox* box;
        const char* name;
    };
    for (const Box& entry : {Box{m_frames, "ShowFrameDivisions"}, Box{m_events, "ShowEvents"},
                             Box{m_code, "ShowEveryLineOfCode"}}) {
        entry.box->setObjectName(QLatin1String(entry.name));
        connect(entry.box, &QCheckBox::toggled, this, &SpyWindow::traceBoxesChanged);
        row->addWidget(entry.box);
    }
    row->addStretch();
    return row;
}

QLayout* SpyWindow::makeStateLine()
{
    auto* row = new QHBoxLayout;
    row->setSpacing(gap);
    row->addWidget(new QLabel(QStringLiteral("State")));
    row->addWidget(m_showState, 1);
    row->addSpacing(gap);
    row->addWidget(new QLabel(QStringLiteral("Substate")));
    row->addWidget(m_showSubstate, 1);
    row->addStretch(1);
    return row;
}

QLayout* SpyWindow::makeHistory()
{
    m_history->setObjectName(QStringLiteral("History"));
    m_history->setAccessibleName(QStringLiteral("History"));
    m_history->setFont(forms::fixedFont(listFontSize));
    m_history->setMinimumWidth(m_history->fontMetrics().averageCharWidth() * 48);
    connect(m_history, &HistoryList::doubleClicked, this, &SpyWindow::History_DblClick);

    auto* header = new QLabel(QStringLiteral("Line            Code"));
    header->setObjectName(QStringLiteral("HistoryHeader"));
    header->setFont(forms::fixedFont(listFontSize));
    header->setIndent(6);
    auto* column = new QVBoxLayout;
    column->setSpacing(gap / 2);
    column->addWidget(makeLabel(QStringLiteral("&History"), m_history));
    column->addWidget(header);
    column->addWidget(m_history, 1);
    return column;
}

QLayout* SpyWindow::makeVariables()
{
    m_variables->setObjectName(QStringLiteral("Variables"));
    m_variables->setAccessibleName(QStringLiteral("Variables"));
    m_variables->setFont(forms::fixedFont(listFontSize));
    m_variables->setUniformItemSizes(true);
    m_variables->setEditTriggers(QListView::NoEditTriggers);
    m_variables->setModel(m_variableLines);
    m_variables->setMinimumWidth(m_variables->fontMetrics().averageCharWidth() * 20);
    m_variables->setEnabled(false); // there is nothing to see until a game has been played

    auto* column = new QVBoxLayout;
    column->setSpacing(gap / 2);
    column->addWidget(makeLabel(QStringLiteral("&Variables"), m_variables));
    column->addWidget(m_variables, 1);
    return column;
}

TraceBoxes SpyWindow::traceBoxes() const
{
    return {m_frames->isChecked(), m_events->isChecked(), m_code->isChecked()};
}

void SpyWindow::clearHistory()
{
    m_history->lines().clear();
    refreshSoon();
}

void SpyWindow::addHistoryLine(std::string_view line)
{
    m_history->lines().append(line);
    refreshSoon();
}

void SpyWindow::selectLastLine()
{
    m_history->selectLastLine();
}

void SpyWindow::showState(std::string_view state, std::string_view subState)
{
    if (m_state == state && m_subState == subState)
        return;
    m_state.assign(state);
    m_subState.assign(subState);
    refreshSoon();
}

void SpyWindow::enableVariables()
{
    m_variables->setEnabled(true);
}

void SpyWindow::setVariables(const std::vector<std::string>& lines)
{
    QStringList texts;
    texts.reserve(static_cast<qsizetype>(lines.size()));
    for (const std::string& line : lines)
        texts.append(forms::fromUtf8(line));
    if (texts == m_variableLines->stringList())
        return;
    const int first = m_variables->verticalScrollBar()->value();
    m_variableLines->setStringList(texts);
    m_variables->doItemsLayout();
    m_variables->verticalScrollBar()->setValue(
        first); // from step to step the list stays where the user reads
}

void SpyWindow::refreshSoon()
{
    if (!m_refresh.isActive())
        m_refresh.start();
}

void SpyWindow::refresh()
{
    m_history->refresh();
    m_showState->setText(forms::fromUtf8(m_state));
    m_showSubstate->setText(forms::fromUtf8(m_subState));
}

void SpyWindow::History_DblClick()
{
    const QModelIndex line = m_history->currentIndex();
    if (!m_codeEditor.isVisible() || !line.isValid())
        return;
    const QString number = line.data().toString().left(numberWidth);
    if (number == QString(numberWidth, u' '))
        return;
    m_codeEditor.SetCursorPos(roundToInt(leadingNumber(forms::toUtf8(number))), 1, false);
    m_codeEditor.show();
    m_codeEditor.focusText();
}
