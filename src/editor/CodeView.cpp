// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "editor/CodeView.h"

#include "editor/LifeMargin.h"
#include "editor/ProgramText.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>

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
    , m_runLines(*document())
    , m_margin(new LifeMargin(*this, m_runLines))
{
    setObjectName(u"CodeView"_s);
    setAccessibleName(u"Program text"_s);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setUndoRedoEnabled(false);
    setLineWrapMode(NoWrap);
    setFrameShape(NoFrame);
    setCursorWidth(2);
    document()->setDocumentMargin(8);
    connect(this, &QPlainTextEdit::updateRequest, m_margin, &LifeMargin::follow);
    connect(m_margin, &LifeMargin::lineAsked, this, &CodeView::lineAsked);
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

// How the last run went through the lines

QTextBlock CodeView::blockAt(int y) const
{
    QTextBlock found;
    forEachSeenLine(QRect(0, y, 1, 1), [&found](const QTextBlock& block, const QRectF&) { found = block; });
    return found;
}

void CodeView::forEachSeenLine(const QRect& part, const SeenLine& visit) const
{
    QTextBlock block = firstVisibleBlock();
    for (qreal top = blockBoundingGeometry(block).translated(contentOffset()).top();
         block.isValid() && top <= part.bottom(); block = block.next()) {
        const QRectF place(0, top, viewport()->width(), blockBoundingRect(block).height());
        top = place.bottom();
        if (top > part.top())
            visit(block, place);
    }
}

void CodeView::runBegins()
{
    m_runLines.begin();
    showRun();
}

void CodeView::forgetRun()
{
    m_runLines.forget();
    showRun();
}

void CodeView::showLineMarks(std::vector<LineMark> marks)
{
    m_runLines.setMarks(std::move(marks));
    showRun();
}

void CodeView::showMomentAt(int line)
{
    m_runLines.setMoment(line);
    showRun();
    const QTextBlock block = m_runLines.momentBlock();
    if (block.isValid() && isVisible())
        bringIntoView(block);
}

void CodeView::setMarginWanted(bool wanted)
{
    m_isMarginWanted = wanted;
    placeMargin();
}

void CodeView::showRun()
{
    placeMargin();
    m_margin->update();
    viewport()->update();
}

void CodeView::placeMargin()
{
    const bool isShown = m_isMarginWanted && m_runLines.hasMarks();
    const int width = isShown ? m_margin->wishedWidth() : 0;
    if (viewportMargins().left() != width)
        setViewportMargins(width, 0, 0, 0);
    m_margin->setGeometry(viewport()->x() - width, viewport()->y(), width, viewport()->height());
    m_margin->setVisible(isShown);
}

/// With some lines around it. Where it is seen already nothing moves: stepping on should not make one dizzy.
void CodeView::bringIntoView(const QTextBlock& block)
{
    bool isSeen = false;
    int lines = 0;
    forEachSeenLine(viewport()->rect(), [&](const QTextBlock& seen, const QRectF& place) {
        ++lines;
        isSeen |= seen == block && viewport()->rect().contains(place.toAlignedRect());
    });
    if (!isSeen)
        verticalScrollBar()->setValue(block.blockNumber() - lines / 3); // a line is a step of the bar
}

void CodeView::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        placeMargin();
}

void CodeView::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    placeMargin();
}

void CodeView::paintEvent(QPaintEvent* event)
{
    if (m_runLines.hasMoment())
        paintMoment(event->rect());
    QPlainTextEdit::paintEvent(event);
}

void CodeView::paintMoment(const QRect& part)
{
    QPainter painter(viewport());
    forEachSeenLine(part, [&](const QTextBlock& block, const QRectF& place) {
        if (m_runLines.isMomentAt(block))
            painter.fillRect(place, LifeMargin::bandColor(palette()));
    });
}
