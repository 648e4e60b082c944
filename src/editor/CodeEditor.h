#pragma once

#include "editor/CodeView.h"
#include "editor/TextHistory.h"
#include "editor/WinCode.h"
#include "forms/Desk.h"

#include <QHash>
#include <QMainWindow>

class EditorBars;
class QAction;

/// The window in which the program text of a game is written. The rules about the text itself are in
/// CodeText, Indentation and TextHistory; here keys, menus and buttons find their way to them.
class CodeEditor : public QMainWindow, public CodeEditorForm, private CodeViewOwner
{
    Q_OBJECT

public:
    explicit CodeEditor(Desk& desk);
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

    bool AllowClose = false; ///< while false, closing the window only hides it

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class MinibufferMode { Closed, GotoLine, Search };
    struct MenuItem;
    class Busy;

    void Form_Load();
    void makeMenus();
    void connectButtons();
    QAction* makeAction(const MenuItem& item);

    // Keys and mouse in the text.
    bool CodeView_KeyDown(const QKeyEvent& event) override;
    bool CodeView_KeyPress(QChar character) override;
    void CodeView_LineBroken() override;
    void CodeView_KeyUp() override;
    void CodeView_MouseUp() override { CodeView_KeyUp(); }
    void CodeView_GotFocus() override { UpdateCursorPosition(); }
    void CodeView_BeforeChange() override { RecordChange(); }
    void CodeView_ContextMenu(QPoint globalPosition) override;
    bool wantsShortcut(const QKeyEvent& event) const override;
    void CodeView_Change() { UpdateCursorPosition(); }
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
    void PrintButton_Click();
    void AutoIndentButton_Click();

    // The text.
    void UpdateCursorPosition();
    void ShowPosition(int line, int column);
    void ShowLineHelp();
    int IndentLine(int position);
    void AutoIndentAll();
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
    EditorBars* m_bars;
    CodeView* m_CodeView;
    TextHistory m_history;
    WinCode m_winCode;
    QHash<int, QAction*> m_shortcuts; ///< by key with modifiers
    QAction* m_UndoMnu = nullptr;
    std::string m_FileName;
    bool m_Modified = false;
    forms::KeyRepeats m_promptRepeats;
    MinibufferMode m_MinibufferMode = MinibufferMode::Closed;
    int m_CurrentLine = 1;
    int m_CurrentColumn = 1;
    bool m_isBusy = false;
    bool m_deleteWhenDone = false;
};
