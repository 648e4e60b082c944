// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "editor/CodeView.h"

#include "editor/ProgramText.h"

#include <QKeyEvent>
#include <QMimeData>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// Keys that only change what others mean.
bool isModifier(int key)
{
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
        return true;
    default:
        return false;
    }
}

bool isEnter(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool typesCharacter(const QKeyEvent& event)
{
    if (isEnter(event) || event.key() == Qt::Key_Backspace)
        return true;
    const QString text = event.text();
    return !text.isEmpty() && text[0] >= u' ' && event.key() != Qt::Key_Delete;
}

} // namespace

CodeView::CodeView(KeyHandler usesKey, QWidget* parent)
    : QPlainTextEdit(parent)
    , m_usesKey(std::move(usesKey))
{
    setObjectName(u"CodeView"_s);
    setAccessibleName(u"Program text"_s);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setUndoRedoEnabled(false);
    setLineWrapMode(NoWrap);
    setFrameShape(NoFrame);
    setCursorWidth(2);
    document()->setDocumentMargin(8);
}

QString CodeView::selectedText() const
{
    // Straight from the document: what it gives out elsewhere turns some blanks into others.
    return textCursor().selectedText().replace(QChar::ParagraphSeparator, u'\n');
}

bool CodeView::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->modifiers() == Qt::ControlModifier) {
        event->accept(); // it comes back as a key, ahead of the menu and of the text box's own use for it
        return true;
    }
    return QPlainTextEdit::event(event);
}

/// A key that has been held down since before the text had the focus.
bool CodeView::isMeantForOthers(const QKeyEvent& event)
{
    if (m_repeats.isRepeat(event))
        return event.key() != m_heldKey;
    m_heldKey = event.key();
    return false;
}

void CodeView::keyPressEvent(QKeyEvent* event)
{
    if (isModifier(event->key())) {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    event->accept();
    if (isMeantForOthers(*event) || m_usesKey(*event))
        return;
    if (typesCharacter(*event))
        Q_EMIT characterTyped();
    if (isEnter(*event))
        breakLine();
    else
        QPlainTextEdit::keyPressEvent(event);
}

void CodeView::breakLine()
{
    QTextCursor cursor = textCursor();
    cursor.insertBlock();
    setTextCursor(cursor);
    Q_EMIT lineBroken();
    ensureCursorVisible();
}

void CodeView::keyReleaseEvent(QKeyEvent* event)
{
    m_repeats.release(*event);
    QPlainTextEdit::keyReleaseEvent(event);
    if (!event->isAutoRepeat())
        Q_EMIT keyReleased();
}

void CodeView::mouseReleaseEvent(QMouseEvent* event)
{
    QPlainTextEdit::mouseReleaseEvent(event);
    Q_EMIT mouseReleased();
}

void CodeView::focusInEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusInEvent(event);
    Q_EMIT focused();
}

void CodeView::focusOutEvent(QFocusEvent* event)
{
    m_heldKey = 0;
    QPlainTextEdit::focusOutEvent(event);
}

void CodeView::dropEvent(QDropEvent* event)
{
    QPlainTextEdit::dropEvent(event);
    Q_EMIT mouseReleased(); // a drag swallows the release of the button
}

void CodeView::inputMethodEvent(QInputMethodEvent* event)
{
    if (!event->commitString().isEmpty()) {
        Q_EMIT characterTyped();
        const QString text = ProgramText::fromClipboard(event->commitString());
        event->setCommitString(text, event->replacementStart(), event->replacementLength());
    }
    QPlainTextEdit::inputMethodEvent(event);
}

QMimeData* CodeView::createMimeDataFromSelection() const
{
    auto* data = new QMimeData;
    data->setText(selectedText());
    return data;
}

void CodeView::insertFromMimeData(const QMimeData* source)
{
    if (!source->hasText())
        return;
    textCursor().insertText(ProgramText::fromClipboard(source->text()));
    ensureCursorVisible();
}
