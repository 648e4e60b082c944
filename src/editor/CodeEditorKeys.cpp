// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

// Keys, menus and the prompt of the code editor.

#include "editor/CodeEditor.h"

#include "editor/EditorBars.h"
#include "editor/ProgramText.h"
#include "forms/Icons.h"
#include "forms/KeyCodes.h"
#include "forms/MessageBoxes.h"

#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QToolButton>

using namespace Qt::StringLiterals;

struct CodeEditor::MenuItem {
    const char* name; ///< null: the caption of the menu that the following items belong to
    const char* caption;
    const char* icon = nullptr;
    Qt::Key ctrlKey = Qt::Key_unknown;       ///< with Ctrl it is the shortcut
    void (CodeEditor::*handler)() = nullptr; ///< null: shown disabled
    enum { Window, Text } use = Window;      ///< Text: not while a prompt is typed into
};

void CodeEditor::makeMenus()
{
    constexpr Qt::Key none = Qt::Key_unknown;
    // clang-format off
    static constexpr MenuItem items[] = {
        {nullptr,          "&File"},
        {"OpenMnu",        "Return to Checkp&oint...", "checkpoint"},
        {"SaveMnu",        "&Save",                    "save",    none, &CodeEditor::SaveMnu_Click},
        {"SaveAsMnu",      "S&ave Checkpoint...",      "checkpoint"},
        {"PrintMnu",       "&Print",                   "print",   none, &CodeEditor::PrintButton_Click},
        {nullptr,          "&Edit"},
        {"UndoMnu",        "&Undo",                    "undo",    Qt::Key_Z, &CodeEditor::UndoMnu_Click, MenuItem::Text},
        {"CopyMnu",        "&Copy",                    "copy",    none, &CodeEditor::CopyMnu_Click},
        {"PasteMnu",       "&Paste",                   "paste",   none, &CodeEditor::PasteMnu_Click},
        {"CutLineMnu",     "&Cut Line",                "cut",     Qt::Key_K, nullptr, MenuItem::Text},
        {nullptr,          "&Search"},
        {"SearchMnu",      "&Search.../Find Next",     "search",  Qt::Key_S, &CodeEditor::SearchMnu_Click},
        {"FindAndReplace", "&Find and Replace...",     "replace", Qt::Key_R, &CodeEditor::FindAndReplace_Click},
        {"GotoLineMnu",    "&Goto Line...",            "gotoline"},
        {nullptr,          "E&macs"},
        {"UpMnu",          "&Up",                nullptr, Qt::Key_P, &CodeEditor::UpMnu_Click,     MenuItem::Text},
        {"DownMnu",        "&Down",              nullptr, Qt::Key_N, &CodeEditor::DownMnu_Click,   MenuItem::Text},
        {"LeftMnu",        "&Left",              nullptr, Qt::Key_B, &CodeEditor::LeftMnu_Click,   MenuItem::Text},
        {"RightMnu",       "&Right",             nullptr, Qt::Key_F, &CodeEditor::RightMnu_Click,  MenuItem::Text},
        {"DeleteMnu",      "&Delete",            nullptr, Qt::Key_D, &CodeEditor::DeleteMnu_Click, MenuItem::Text},
        {"HomeMnu",        "&Beginning of Line", nullptr, Qt::Key_A, &CodeEditor::HomeMnu_Click,   MenuItem::Text},
        {"EndMnu",         "&End of Line",       nullptr, Qt::Key_E, &CodeEditor::EndMnu_Click,    MenuItem::Text},
        {nullptr,          "&Options"},
        {"FontMnu",        "&Font...",                 "font"},
    };
    // clang-format on
    QMenu* menu = nullptr;
    for (const MenuItem& item : items) {
        if (item.name == nullptr)
            menu = menuBar()->addMenu(QLatin1String(item.caption));
        else
            menu->addAction(makeAction(item));
    }
    m_UndoMnu = findChild<QAction*>(u"UndoMnu"_s);
    m_UndoMnu->setEnabled(false);
    makeViewMenu();
}

void CodeEditor::makeViewMenu()
{
    QMenu* menu = menuBar()->addMenu(u"&View"_s);
    menu->setObjectName(u"ViewMnu"_s);
    QAction* life = menu->addAction(u"Show How the Run &Went"_s);
    life->setObjectName(u"LifeMnu"_s);
    life->setCheckable(true);
    life->setChecked(true);
    connect(life, &QAction::toggled, this, &CodeEditor::LifeMnu_Click);
}

QAction* CodeEditor::makeAction(const MenuItem& item)
{
    auto* action = new QAction(QLatin1String(item.caption), this);
    action->setObjectName(QLatin1String(item.name));
    if (item.icon != nullptr)
        action->setIcon(forms::icon(item.icon));
    if (item.ctrlKey != Qt::Key_unknown) {
        const QKeyCombination keys(Qt::ControlModifier, item.ctrlKey);
        action->setShortcut(keys);
        action->setData(item.use == MenuItem::Text);
        m_shortcuts.insert(keys.toCombined(), action);
    }
    action->setEnabled(item.handler != nullptr);
    if (item.handler != nullptr)
        connect(action, &QAction::triggered, this, item.handler);
    return action;
}

void CodeEditor::connectButtons()
{
    struct Click {
        const char* button;
        void (CodeEditor::*handler)();
    };
    static constexpr Click clicks[] = {
        {"PrintButton", &CodeEditor::PrintButton_Click},
        {"UndoButton", &CodeEditor::UndoChange},
        {"SearchButton", &CodeEditor::SearchMnu_Click},
        {"AutoIndentButton", &CodeEditor::AutoIndentButton_Click},
        {"Gotolinebutton", &CodeEditor::PromptGotoLine},
    };
    for (const Click& click : clicks)
        connect(m_bars->button(click.button), &QToolButton::clicked, this, click.handler);
    m_bars->button("UndoButton")->setEnabled(false);
    m_bars->button("FontButton")->setEnabled(false);
}

// Keys in the text

/// What happens before a key acts. True where nothing is left for the text box to do.
bool CodeEditor::CodeView_KeyDown(const QKeyEvent& event)
{
    const bool isCtrl = event.modifiers().testFlag(Qt::ControlModifier);
    QAction* command = isCtrl ? m_shortcuts.value(event.keyCombination().toCombined()) : nullptr;
    if (command == nullptr || command != m_UndoMnu)
        RecordChange();
    if (command != nullptr) {
        command->trigger(); // nothing where it is disabled
        return true;        // the text box's own use for the key is off all the same
    }
    // Where the digits need Shift, the key of the 1 gives another character.
    if (isCtrl && (event.key() == Qt::Key_1 || forms::virtualKeyCode(event) == '1')) {
        PromptGotoLine();
        return true;
    }
    switch (event.key()) {
    case Qt::Key_Escape:
        if (m_MinibufferMode != MinibufferMode::Closed)
            CloseMinibuffer();
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        if (!isCtrl)
            CodeView_Tab();
        return true;
    default:
        return false;
    }
}

/// A character is about to go in. The text before it is remembered already: nothing has changed since the key
/// went down.
void CodeEditor::CodeView_KeyPress()
{
    if (m_MinibufferMode != MinibufferMode::Closed)
        CloseMinibuffer();
}

/// What Tab does once the text before it is remembered. Its character does not go in, but the text that it
/// would have gone into is remembered as for any other: the indented one.
void CodeEditor::CodeView_Tab()
{
    placeCursor(IndentLine(m_CodeView->textCursor().position()));
    UpdateCursorPosition(); // the change itself was announced before the cursor had its place
    CodeView_KeyPress();
    RecordChange();
}

void CodeEditor::CodeView_KeyUp()
{
    UpdateCursorPosition();
    ShowLineHelp();
}

void CodeEditor::CodeView_ContextMenu(QPoint place)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const bool isSelection = m_CodeView->textCursor().hasSelection();
    const auto add = [menu](const char* icon, const QString& caption, bool enabled, auto&& handler) {
        menu->addAction(forms::icon(icon), caption, handler)->setEnabled(enabled);
    };
    add("undo", u"&Undo"_s, m_history.undoCount() > 0, [this] { UndoMnu_Click(); });
    menu->addSeparator();
    add("cut", u"Cu&t"_s, isSelection, [this] { m_CodeView->cut(); });
    add("copy", u"&Copy"_s, isSelection, [this] { CopyMnu_Click(); });
    add("paste", u"&Paste"_s, m_CodeView->canPaste(), [this] { PasteMnu_Click(); });
    add("duplicate", u"Select &All"_s, true, [this] {
        m_CodeView->selectAll();
        UpdateCursorPosition(); // the menu has kept the release of key or button to itself
    });
    menu->popup(m_CodeView->viewport()->mapToGlobal(place));
}

// The prompt

void CodeEditor::OpenMinibuffer(MinibufferMode mode)
{
    m_MinibufferMode = mode;
    QLineEdit* prompt = m_bars->Minibuffer();
    prompt->clear();
    prompt->show();
    prompt->raise();
    prompt->setFocus();
    showToolbars();
}

void CodeEditor::CloseMinibuffer()
{
    m_MinibufferMode = MinibufferMode::Closed;
    m_CodeView->setFocus();
    m_bars->Minibuffer()->hide();
    showToolbars();
}

void CodeEditor::showToolbars()
{
    m_bars->showToolbars(m_MinibufferMode == MinibufferMode::Closed);
}

void CodeEditor::PromptGotoLine()
{
    m_bars->showStatus(u"Goto Line:"_s);
    OpenMinibuffer(MinibufferMode::GotoLine);
}

void CodeEditor::PromptSearch()
{
    m_bars->showStatus(EditorBars::searchPrompt());
    OpenMinibuffer(MinibufferMode::Search);
}

/// What edits the text must not do so while a prompt is typed into. And the key that opened the prompt, held
/// a little long, must not search at once for what nobody has typed yet.
bool CodeEditor::isKeptFromCommands(const QKeyEvent& event) const
{
    const QAction* command = m_shortcuts.value(event.keyCombination().toCombined());
    return command != nullptr && (command->data().toBool() || m_promptRepeats.isRepeat(event));
}

bool CodeEditor::Minibuffer_KeyDown(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Escape:
        CloseMinibuffer();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_promptRepeats.isRepeat(event))
            return true; // a key held too long answers one question, not many
        if (m_MinibufferMode == MinibufferMode::Search)
            FindNext();
        else
            goToTypedLine();
        return true;
    default:
        return false;
    }
}

void CodeEditor::goToTypedLine()
{
    if (m_MinibufferMode == MinibufferMode::GotoLine)
        SetCursorPos(ProgramText::lineNumberFrom(m_bars->Minibuffer()->text()), 1, false);
    CloseMinibuffer();
}

void CodeEditor::SearchMnu_Click()
{
    if (m_MinibufferMode == MinibufferMode::Search)
        FindNext();
    else
        PromptSearch();
}

void CodeEditor::FindNext()
{
    const std::optional<int> found = ProgramText::findNext(
        *m_CodeView->document(), m_bars->Minibuffer()->text(), m_CodeView->textCursor().position());
    if (found) {
        placeCursor(*found);
        UpdateCursorPosition();
        m_CodeView->setFocus();
        return;
    }
    const QPointer<CodeEditor> self(this);
    forms::tell(this, u"Search string not found!"_s);
    if (self.isNull() || m_MinibufferMode != MinibufferMode::Search)
        return;
    activateWindow();
    m_bars->Minibuffer()->setFocus();
}
