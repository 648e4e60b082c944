// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "runtime/Ports.h"
#include "runtime/ZBInterpreter.h"

#include <QTimer>
#include <QWidget>

class HistoryList;
class QCheckBox;
class QLabel;
class QLayout;
class QListView;
class VariableModel;

/// Shows what the interpreter does: the history of the run, the current state, and the variables while it is
/// paused. What arrives is shown at most 60 times a second; while nothing arrives, nothing is done.
class SpyWindow : public QWidget, public SpyPort
{
    Q_OBJECT
public:
    explicit SpyWindow(CodeEditorPort& codeEditor);

    TraceBoxes traceBoxes() const;

    void clearHistory() override;
    void addHistoryLine(std::string_view line) override;
    void selectLastLine() override;
    void showState(std::string_view state, std::string_view subState) override;
    void enableVariables() override;
    void setVariables(const std::vector<std::string>& lines) override;

    /// What the window shows of a moment of the past.
    struct PastPage {
        std::vector<std::string> history;
        std::vector<std::string> explanations; ///< beside each line of it; fewer where there are none
        std::string state;
        std::string subState;
        std::vector<std::string> variables;
        std::vector<std::string> variablesBefore; ///< at the moment that was shown before it
    };
    void showPast(const PastPage& page);
    /// What the run has come to, again.
    void showNow();

    /// Takes the code editor to the line that the selected line of the history names.
    void History_DblClick();

Q_SIGNALS:
    void traceBoxesChanged();

private:
    QLayout* makeBoxes();
    QLayout* makeStateLine();
    QWidget* makeHistory();
    QWidget* makeVariables();
    void refreshSoon();
    void refresh();
    void showLabels(const std::string& state, const std::string& subState);
    void showVariables(const std::vector<std::string>& lines, const std::vector<std::string>& before);

    CodeEditorPort& m_codeEditor;
    HistoryList* m_history;
    QListView* m_variables;
    VariableModel* m_variableLines;
    QLabel* m_showState;
    QLabel* m_showSubstate;
    QCheckBox* m_frames;
    QCheckBox* m_events;
    QCheckBox* m_code;
    QTimer m_refresh{this};
    std::string m_state;
    std::string m_subState;
    bool m_showsPast = false;
    std::vector<std::string> m_variablesNow;
};
