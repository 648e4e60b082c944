#pragma once

#include "runtime/Ports.h"

#include <QWidget>

class QPlainTextEdit;
struct ZB;

/// Shows what is wrong with a program text. A double click goes to the line.
class ParseError : public QWidget, public ParseErrorPort
{
    Q_OBJECT
public:
    ParseError(const ZB& module, CodeEditorPort& codeEditor);

    void close() override;
    void show(std::string_view text) override;

    void ErrorText_DblClick();

Q_SIGNALS:
    /// The window is about to be seen.
    void aboutToShow();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const ZB& m_module;
    CodeEditorPort& m_codeEditor;
    QPlainTextEdit* m_errorText;
};
