// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/CodeView.h"
#include "editor/EditHistory.h"
#include "editor/WinCode.h"
#include "forms/Desk.h"
#include "platform/FileStamp.h"

#include <QHash>
#include <QMainWindow>

#include <functional>
#include <utility>
#include <vector>

class EditorBars;
class QAction;

/// The window in which the program text of a game is written. The rules about the text itself are in
/// ProgramText, Indentation and EditHistory; here keys, menus and buttons find their way to them.
class CodeEditor : public QMainWindow, public CodeEditorForm
{
    Q_OBJECT

public:
    /// For a program of `game`, whose title may change meanwhile.
    CodeEditor(Desk& desk, const GameRecord& game);
    ~CodeEditor() override;

    // The window as the program around it sees it.
    bool LoadFile(const QString& productPath) override;
    bool saveFile() override;
    std::string text() const override;
    bool isModified() const override { return m_Modified; }
    void closeForGood() override;
    QWidget* widget() override { return this; }
    bool isVisible() const override { return QMainWindow::isVisible(); }
    void hide() override { QMainWindow::hide(); }
    void show() override;
    void SetCursorPos(int line, int column, bool wrap) override;
    void focusText() override;
    void runBegins() override { m_CodeView->runBegins(); }
    void showLineMarks(std::vector<LineMark> marks) override { m_CodeView->showLineMarks(std::move(marks)); }
    void showMomentAt(int line) override { m_CodeView->showMomentAt(line); }
    void setLineAsked(std::function<void(int line)> lineAsked) override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class MinibufferMode { Closed, GotoLine, Search };
    struct MenuItem;
    class Busy;
    class IndentProgress;

    void Form_Load();
    void makeMenus();
    void makeViewMenu();
    void connectButtons();
    void connectText();
    void setFirstSize();
    QAction* makeAction(const MenuItem& item);

    // Keys and mouse in the text.
    bool CodeView_KeyDown(const QKeyEvent& event);
    void CodeView_KeyPress();
    void CodeView_KeyUp();
    void CodeView_MouseUp() { CodeView_KeyUp(); }
    void CodeView_GotFocus() { UpdateCursorPosition(); }
    void CodeView_Change() { UpdateCursorPosition(); }
    void CodeView_ContextMenu(QPoint place);
    void CodeView_Tab();
    bool Minibuffer_KeyDown(const QKeyEvent& event);
    bool isKeptFromCommands(const QKeyEvent& event) const;

    // Menu items and buttons.
    void SaveMnu_Click() { saveFile(); }
    void UndoMnu_Click() { UndoChange(); }
    void CopyMnu_Click();
    void PasteMnu_Click();
    void SearchMnu_Click();
    void FindAndReplace_Click();
    void UpMnu_Click() { SetCursorPos(m_CurrentLine - 1, m_CurrentColumn, false); }
    void DownMnu_Click() { SetCursorPos(m_CurrentLine + 1, m_CurrentColumn, false); }
    void LeftMnu_Click() { SetCursorPos(m_CurrentLine, m_CurrentColumn - 1, true); }
    void RightMnu_Click() { SetCursorPos(m_CurrentLine, m_CurrentColumn + 1, true); }
    void DeleteMnu_Click();
    void HomeMnu_Click() { SetCursorPos(m_CurrentLine, 1, false); }
    void EndMnu_Click() { SetCursorPos(m_CurrentLine + 1, -1, true); }
    void LifeMnu_Click(bool shown) { m_CodeView->setMarginWanted(shown); }
    void PrintButton_Click();
    void AutoIndentButton_Click();

    // The text.
    void UpdateCursorPosition();
    void ShowPosition(int line, int column);
    void ShowLineHelp();
    int IndentLine(int position);
    bool AutoIndentAll();
    void RecordChange() { m_history.RecordChange(); }
    void UndoChange();
    void placeCursor(int position);
    void markModified();

    // The prompt.
    void OpenMinibuffer(MinibufferMode mode);
    void CloseMinibuffer();
    void PromptGotoLine();
    void PromptSearch();
    void FindNext();
    void goToTypedLine();
    void showToolbars();

    Desk& m_desk;
    const GameRecord& m_game;
    EditorBars* m_bars;
    CodeView* m_CodeView;
    EditHistory m_history;
    WinCode m_winCode;
    QHash<int, QAction*> m_shortcuts; ///< by key with modifiers
    QAction* m_UndoMnu = nullptr;
    std::function<void(int line)> m_lineAsked;
    std::string m_FileName;
    FileStamp m_stamp; ///< of the file as it was last read or written here
    bool m_Modified = false;
    bool m_AllowClose = false; ///< while false, closing the window only hides it
    forms::KeyRepeats m_promptRepeats;
    MinibufferMode m_MinibufferMode = MinibufferMode::Closed;
    int m_CurrentLine = 1;
    int m_CurrentColumn = 1;
    bool m_isBusy = false;
    bool m_deleteWhenDone = false;
};
