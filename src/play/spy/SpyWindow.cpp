// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/spy/SpyWindow.h"

#include "forms/Icons.h"
#include "forms/Style.h"
#include "forms/Texts.h"
#include "platform/NumberText.h"
#include "platform/Rounding.h"
#include "play/spy/HistoryList.h"
#include "play/spy/LineDelegate.h"
#include "play/spy/VariableModel.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QScrollBar>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace
{

using namespace Qt::StringLiterals;

constexpr int refreshInterval = 17; // milliseconds: not quite 60 times a second
constexpr int numberWidth = 4;
constexpr int listFontSize = 11;
constexpr int gap = 8;
constexpr int margin = 12;

/// The font of the lists, which grows with the system's.
QFont listFont()
{
    return forms::fixedFont(std::max(listFontSize, QApplication::font().pointSize()));
}

/// The font of the heading above the history. The blanks in it take the room of one: its second word stands
/// where the code begins.
QFont headingFont(const QString& heading)
{
    QFont font = listFont();
    const int code = numberWidth + 1;
    const auto offset = heading.lastIndexOf(u' ') + 1 - code;
    font.setWordSpacing(-static_cast<qreal>(offset) * QFontMetricsF(font).horizontalAdvance(u' '));
    return font;
}

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
    label->setStyleSheet(u"border: 1px solid palette(mid); border-radius: 6px; padding: 3px 6px;"_s);
    label->setMinimumWidth(label->fontMetrics().averageCharWidth() * 16);
    return label;
}

/// Widgets below each other; the last takes the room that is left.
QWidget* makeColumn(std::initializer_list<QWidget*> widgets)
{
    auto* column = new QWidget;
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(gap / 2);
    for (QWidget* widget : widgets)
        layout->addWidget(widget, widget == widgets.end()[-1] ? 1 : 0);
    return column;
}

} // namespace

SpyWindow::SpyWindow(CodeEditorPort& codeEditor)
    : m_codeEditor(codeEditor)
    , m_history(new HistoryList)
    , m_variables(new QListView)
    , m_variableLines(new VariableModel(this))
    , m_showState(makeStateLabel("ShowState", u"State"_s))
    , m_showSubstate(makeStateLabel("ShowSubstate", u"Substate"_s))
    , m_frames(new QCheckBox(u"Show &Frame Divisions"_s))
    , m_events(new QCheckBox(u"Show &Event Entry/Exit"_s))
    , m_code(new QCheckBox(u"Show Every &Line of Code Executed"_s))
{
    setObjectName(u"SpyWindow"_s);
    setWindowTitle(u"Spy"_s);
    setWindowIcon(forms::icon("spy"));

    auto* lists = new QSplitter;
    lists->setHandleWidth(margin);
    lists->setChildrenCollapsible(false);
    lists->addWidget(makeHistory());
    lists->addWidget(makeVariables());
    lists->setStretchFactor(0, 3);
    lists->setStretchFactor(1, 2);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(gap);
    layout->addLayout(makeBoxes());
    layout->addLayout(makeStateLine());
    layout->addWidget(lists, 1);

    resize(fontMetrics().averageCharWidth() * 104, fontMetrics().height() * 30);

    m_refresh.setObjectName(u"RefreshTimer"_s);
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(refreshInterval);
    m_refresh.callOnTimeout(this, &SpyWindow::refresh);
}

QLayout* SpyWindow::makeBoxes()
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(2 * gap);
    grid->setVerticalSpacing(gap);
    grid->setColumnStretch(1, 1);
    struct Box {
        QCheckBox* box;
        const char* name;
        int row;
        int column;
        int width;
    };
    for (const Box& entry :
         {Box{m_frames, "ShowFrameDivisions", 0, 0, 1}, Box{m_events, "ShowEvents", 0, 1, 1},
          Box{m_code, "ShowEveryLineOfCode", 1, 0, 2}}) {
        entry.box->setObjectName(QLatin1String(entry.name));
        connect(entry.box, &QCheckBox::toggled, this, &SpyWindow::traceBoxesChanged);
        grid->addWidget(entry.box, entry.row, entry.column, 1, entry.width);
    }
    return grid;
}

QLayout* SpyWindow::makeStateLine()
{
    auto* row = new QHBoxLayout;
    row->setSpacing(gap);
    row->addWidget(new QLabel(u"State"_s));
    row->addWidget(m_showState, 1);
    row->addSpacing(gap);
    row->addWidget(new QLabel(u"Substate"_s));
    row->addWidget(m_showSubstate, 1);
    row->addStretch(1);
    return row;
}

QWidget* SpyWindow::makeHistory()
{
    m_history->setObjectName(u"History"_s);
    m_history->setAccessibleName(u"History"_s);
    m_history->setFont(listFont());
    m_history->setMinimumWidth(m_history->fontMetrics().averageCharWidth() * 30);
    connect(m_history, &HistoryList::doubleClicked, this, &SpyWindow::History_DblClick);

    const QString heading = u"Line            Code"_s;
    auto* header = new QLabel(heading);
    header->setObjectName(u"HistoryHeader"_s);
    header->setFont(headingFont(heading));
    header->setIndent(6);
    return makeColumn({makeLabel(u"&History"_s, m_history), header, m_history});
}

QWidget* SpyWindow::makeVariables()
{
    m_variables->setObjectName(u"Variables"_s);
    m_variables->setAccessibleName(u"Variables"_s);
    m_variables->setFont(listFont());
    m_variables->setUniformItemSizes(true);
    m_variables->setItemDelegate(new LineDelegate(m_variables));
    m_variables->setHorizontalScrollMode(QListView::ScrollPerPixel);
    m_variables->setEditTriggers(QListView::NoEditTriggers);
    m_variables->setModel(m_variableLines);
    m_variables->setMinimumWidth(m_variables->fontMetrics().averageCharWidth() * 16);
    m_variables->setEnabled(false); // there is nothing to see until a game has been played

    return makeColumn({makeLabel(u"&Variables"_s, m_variables), m_variables});
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
    m_variablesNow = lines;
    if (!m_showsPast)
        showVariables(lines, lines);
}

void SpyWindow::showVariables(const std::vector<std::string>& lines, const std::vector<std::string>& before)
{
    if (!m_variableLines->wouldChange(lines, before))
        return;
    const int first = m_variables->verticalScrollBar()->value();
    m_variableLines->show(lines, before);
    m_variables->doItemsLayout();
    m_variables->verticalScrollBar()->setValue(
        first); // from step to step the list stays where the user reads
}

void SpyWindow::showPast(const PastPage& page)
{
    m_showsPast = true;
    std::deque<QString> lines;
    std::deque<QString> explanations;
    for (const std::string& line : page.history)
        lines.push_back(forms::fromUtf8(line));
    for (const std::string& text : page.explanations)
        explanations.push_back(forms::fromUtf8(text));
    m_history->showInstead(std::move(lines), std::move(explanations));
    m_variables->setEnabled(true);
    showVariables(page.variables, page.variablesBefore);
    showLabels(page.state, page.subState);
}

void SpyWindow::showNow()
{
    if (!std::exchange(m_showsPast, false))
        return;
    m_history->showInstead(std::nullopt, {});
    showVariables(m_variablesNow, m_variablesNow);
    refresh();
}

void SpyWindow::showLabels(const std::string& state, const std::string& subState)
{
    m_showState->setText(forms::fromUtf8(state));
    m_showSubstate->setText(forms::fromUtf8(subState));
}

void SpyWindow::refreshSoon()
{
    if (!m_refresh.isActive())
        m_refresh.start();
}

void SpyWindow::refresh()
{
    m_history->refresh();
    if (!m_showsPast)
        showLabels(m_state, m_subState);
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
