// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "editor/EditHistory.h"

#include <QScopedValueRollback>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

EditHistory::EditHistory(QTextDocument& document, QObject* parent)
    : QObject(parent)
    , m_document(document)
{
    connect(&document, &QTextDocument::contentsChange, this, &EditHistory::follow);
}

void EditHistory::RecordChange()
{
    const int count = m_ring.count();
    if (!m_ring.record(m_now))
        return;
    Q_EMIT changed();
    if (m_ring.count() != count)
        Q_EMIT undoCountChanged(m_ring.count());
}

void EditHistory::UndoChange()
{
    if (m_ring.count() < 1)
        return;
    const SharedText before = m_ring.undo();
    const TextDifference difference = m_now.differenceTo(before);
    m_now = before;
    if (difference.removed > 0 || !difference.inserted.isEmpty()) {
        const QScopedValueRollback setting(m_settingText, true);
        QTextCursor cursor(&m_document);
        cursor.setPosition(static_cast<int>(difference.position));
        cursor.setPosition(static_cast<int>(difference.position + difference.removed),
                           QTextCursor::KeepAnchor);
        cursor.insertText(difference.inserted);
        Q_EMIT changed();
    }
    Q_EMIT undoCountChanged(m_ring.count());
}

void EditHistory::setText(const QString& text)
{
    m_now = SharedText(text);
    const QScopedValueRollback setting(m_settingText, true);
    m_document.setPlainText(text);
}

void EditHistory::follow(int position, int /*removed*/, int added)
{
    if (m_settingText)
        return;
    // The document counts its closing paragraph separator among what was removed and added now and then; the
    // lengths before and after tell exactly.
    const int length = m_document.characterCount() - 1;
    added = std::min(added, length - position);
    const qsizetype removed = m_now.length() + added - length;
    const QString inserted = textOfDocument(position, added);
    if (removed == added && m_now.mid(position, removed) == inserted)
        return; // only its looks have changed
    RecordChange();
    m_now.replace(position, removed, inserted);
    Q_EMIT changed();
}

QString EditHistory::textOfDocument(int position, int length) const
{
    QString text;
    text.reserve(length);
    QTextBlock block = m_document.findBlock(position);
    for (int offset = position - block.position(); text.size() < length; offset = 0) {
        const QString line = block.text();
        text += QStringView(line).mid(offset, length - text.size());
        block = block.next();
        if (text.size() < length)
            text += u'\n';
    }
    return text;
}
