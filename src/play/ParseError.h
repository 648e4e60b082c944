// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "runtime/Ports.h"

#include <QPointer>
#include <QWidget>

class QPlainTextEdit;
struct ZB;

/// Shows what is wrong with a program text. A double click goes to the line. It comes up above the code
/// editor once, but never over the line that it is about, and leaves it the keyboard.
class ParseError : public QWidget, public ParseErrorPort
{
    Q_OBJECT
public:
    ParseError(const ZB& module, CodeEditorPort& codeEditor);

    void close() override;
    void show(std::string_view text) override;
    void beep() override;

    void ErrorText_DblClick();
    /// The window of the code editor, if it has one; it outlives the messages.
    void accompany(QWidget* codeWindow);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeWay();

    const ZB& m_module;
    CodeEditorPort& m_codeEditor;
    QPlainTextEdit* m_errorText;
    QPointer<QWidget> m_codeWindow;
    bool m_comesUp = false; ///< above the code editor, when that comes up
};
