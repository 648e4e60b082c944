#pragma once

#include "forms/KeyCodes.h"

#include <QPlainTextEdit>

/// What the text box tells the window that holds it, in the order in which it happens.
class CodeViewOwner
{
public:
    virtual ~CodeViewOwner() = default;
    /// A key goes down and has not acted yet. False where it shall not act at all.
    virtual bool CodeView_KeyDown(const QKeyEvent& event) = 0;
    /// A character is about to go in ('\r' for Enter, '\t' for Tab). False where it shall not.
    virtual bool CodeView_KeyPress(QChar character) = 0;
    /// The line break of Enter has gone in.
    virtual void CodeView_LineBroken() = 0;
    virtual void CodeView_KeyUp() = 0;
    virtual void CodeView_MouseUp() = 0;
    virtual void CodeView_GotFocus() = 0;
    /// The text is about to be changed with the mouse.
    virtual void CodeView_BeforeChange() = 0;
    virtual void CodeView_ContextMenu(QPoint globalPosition) = 0;
    /// Whether the window wants this key for a command of its own, before the text box has a use for it.
    virtual bool wantsShortcut(const QKeyEvent& event) const = 0;
};

/// The text box of the code editor. Keeps text that comes from elsewhere free of what a program text cannot
/// hold; otherwise passes on what happens.
class CodeView : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit CodeView(CodeViewOwner& owner, QWidget* parent = nullptr);

    /// The selected text, lines separated by '\n'.
    QString selectedText() const;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void breakLine();

    CodeViewOwner& m_owner;
    forms::KeyRepeats m_repeats;
    int m_heldKey = 0; ///< the last key that went down here
};
