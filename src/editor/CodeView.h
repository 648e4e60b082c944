// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/RunLines.h"
#include "forms/KeyCodes.h"

#include <QPlainTextEdit>

#include <functional>
#include <vector>

class LifeMargin;

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

    /// The line at a height in the viewport. Invalid where there is none.
    QTextBlock blockAt(int y) const;
    using SeenLine = std::function<void(const QTextBlock& block, const QRectF& place)>;
    /// Hands over the lines within a part of the viewport, from the top.
    void forEachSeenLine(const QRect& part, const SeenLine& visit) const;

    // How the last run went through the lines. Until there are marks there is no margin.
    RunLines& runLines() { return m_runLines; }
    void runBegins();
    void forgetRun();
    void showLineMarks(std::vector<LineMark> marks);
    void showMomentAt(int line);
    void setMarginWanted(bool wanted);

Q_SIGNALS:
    /// A character is about to go in.
    void characterTyped();
    /// The line break of Enter has gone in.
    void lineBroken();
    void keyReleased();
    void mouseReleased();
    void focused();
    /// The mark of a line of the run was clicked.
    void lineAsked(int line);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
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
    void showRun();
    void placeMargin();
    void paintMoment(const QRect& part);
    void bringIntoView(const QTextBlock& block);

    KeyHandler m_usesKey;
    forms::KeyRepeats m_repeats;
    int m_heldKey = 0; ///< the last key that went down here
    RunLines m_runLines;
    LifeMargin* m_margin;
    bool m_isMarginWanted = true;
};
