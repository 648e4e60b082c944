#include "editor/CodeView.h"

#include "editor/CodeText.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMimeData>

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

/// What the key types; NUL for a key that types nothing.
QChar typedCharacter(const QKeyEvent& event)
{
    if (isEnter(event))
        return u'\r';
    if (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab)
        return u'\t';
    if (event.key() == Qt::Key_Backspace)
        return u'\b';
    const QString text = event.text();
    return text.isEmpty() || text[0] < u' ' || event.key() == Qt::Key_Delete ? QChar() : text[0];
}

} // namespace

CodeView::CodeView(CodeViewOwner& owner, QWidget* parent)
    : QPlainTextEdit(parent)
    , m_owner(owner)
{
    setObjectName(QStringLiteral("CodeView"));
    setAccessibleName(QStringLiteral("Program text"));
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
    if (event->type() == QEvent::ShortcutOverride && m_owner.wantsShortcut(*static_cast<QKeyEvent*>(event))) {
        event->accept(); // it comes back as a key, ahead of the menu and of the text box's own use for it
        return true;
    }
    return QPlainTextEdit::event(event);
}

void CodeView::keyPressEvent(QKeyEvent* event)
{
    if (isModifier(event->key())) {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    event->accept();
    if (!m_repeats.isRepeat(*event))
        m_heldKey = event->key();
    else if (event->key() != m_heldKey)
        return; // held down since before the text had the focus: the key was meant for somebody else
    if (!m_owner.CodeView_KeyDown(*event))
        return;
    const QChar character = typedCharacter(*event);
    if (!character.isNull() && !m_owner.CodeView_KeyPress(character))
        return;
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
    m_owner.CodeView_LineBroken();
    ensureCursorVisible();
}

void CodeView::keyReleaseEvent(QKeyEvent* event)
{
    m_repeats.release(*event);
    QPlainTextEdit::keyReleaseEvent(event);
    if (!event->isAutoRepeat())
        m_owner.CodeView_KeyUp();
}

void CodeView::mouseReleaseEvent(QMouseEvent* event)
{
    QPlainTextEdit::mouseReleaseEvent(event);
    m_owner.CodeView_MouseUp();
}

void CodeView::focusInEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusInEvent(event);
    m_owner.CodeView_GotFocus();
}

void CodeView::focusOutEvent(QFocusEvent* event)
{
    m_heldKey = 0;
    QPlainTextEdit::focusOutEvent(event);
}

void CodeView::dropEvent(QDropEvent* event)
{
    m_owner.CodeView_BeforeChange();
    QPlainTextEdit::dropEvent(event);
    m_owner.CodeView_MouseUp(); // a drag swallows the release of the button
}

void CodeView::inputMethodEvent(QInputMethodEvent* event)
{
    if (!event->commitString().isEmpty()) {
        m_owner.CodeView_KeyPress(event->commitString().at(0));
        const QString text = CodeText::fromClipboard(event->commitString());
        event->setCommitString(text, event->replacementStart(), event->replacementLength());
    }
    QPlainTextEdit::inputMethodEvent(event);
}

void CodeView::contextMenuEvent(QContextMenuEvent* event)
{
    m_owner.CodeView_ContextMenu(event->globalPos());
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
    m_owner.CodeView_BeforeChange();
    textCursor().insertText(CodeText::fromClipboard(source->text()));
    ensureCursorVisible();
}
