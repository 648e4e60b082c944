// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "forms/KeyCodes.h"

#include <QPlainTextEdit>

#include <functional>

/// The text box of the code editor. Keeps text that comes from elsewhere free of what a program text cannot
/// hold. The window that holds it is asked about each key and told what has happened.
class CodeView : public QPlainTextEdit
{
    Q_OBJECT

public:
    /// Is handed each key that goes down, before it acts. True where the window has used it up.
    using KeyHandler = std::function<bool(const QKeyEvent& event)>;
    explicit CodeView(KeyHandler usesKey, QWidget* parent = nullptr);

    /// The selected text, lines separated by '\n'.
    QString selectedText() const;

Q_SIGNALS:
    /// A character is about to go in.
    void characterTyped();
    /// The line break of Enter has gone in.
    void lineBroken();
    void keyReleased();
    void mouseReleased();
    void focused();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    bool isMeantForOthers(const QKeyEvent& event);
    void breakLine();

    KeyHandler m_usesKey;
    forms::KeyRepeats m_repeats;
    int m_heldKey = 0; ///< the last key that went down here
};
