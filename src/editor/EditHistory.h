// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/SharedText.h"
#include "editor/UndoRing.h"

#include <QObject>

class QTextDocument;

/// Follows the text of a document change by change and remembers it as it was before. A change that nobody
/// announced (with the mouse, from another program) is noticed too: the text before it is still at hand here.
class EditHistory : public QObject
{
    Q_OBJECT

public:
    explicit EditHistory(QTextDocument& document, QObject* parent = nullptr);

    QString text() const { return m_now.toString(); }
    int undoCount() const { return m_ring.count(); }

    /// Remembers the text as it is, unless it is what was remembered last.
    void RecordChange();
    /// Gives the document the text remembered last; nothing where there is none.
    void UndoChange();
    /// Gives the document a text as a whole and remembers nothing.
    void setText(const QString& text);

Q_SIGNALS:
    /// The text was remembered, or the user changed it.
    void changed();
    void undoCountChanged(int count);

private:
    void follow(int position, int removed, int added);
    QString textOfDocument(int position, int length) const;

    QTextDocument& m_document;
    SharedText m_now;
    UndoRing m_ring;
    bool m_settingText = false; ///< the document is given a text that is known here
};
