#include "play/ParseError.h"

#include "forms/Forms.h"
#include "runtime/ZB.h"

#include <QEvent>
#include <QPlainTextEdit>
#include <QVBoxLayout>

ParseError::ParseError(const ZB& module, CodeEditorPort& codeEditor)
    : QWidget(nullptr, Qt::Dialog)
    , m_module(module)
    , m_codeEditor(codeEditor)
    , m_errorText(new QPlainTextEdit)
{
    setObjectName(QStringLiteral("ParseError"));
    setWindowTitle(QStringLiteral("Parse Error"));
    setWindowIcon(forms::icon("error"));

    m_errorText->setObjectName(QStringLiteral("ErrorText"));
    m_errorText->setAccessibleName(QStringLiteral("What is wrong"));
    QFont font = this->font();
    font.setFamilies({QStringLiteral("MS Sans Serif"), font.family()});
    m_errorText->setFont(font);
    m_errorText->setReadOnly(true);
    m_errorText->setFrameShape(QFrame::NoFrame);
    m_errorText->document()->setDocumentMargin(12);
    m_errorText->viewport()->installEventFilter(this);

    auto* layout = new QVBoxLayout(this); // the text always fills the window
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_errorText);
    resize(fontMetrics().averageCharWidth() * 64, fontMetrics().height() * 10);
}

void ParseError::close()
{
    hide();
}

void ParseError::show(std::string_view text)
{
    m_errorText->setPlainText(forms::withoutEndlessLines(forms::fromUtf8(text)));
    Q_EMIT aboutToShow();
    forms::bringUp(*this);
}

void ParseError::ErrorText_DblClick()
{
    m_codeEditor.SetCursorPos(m_module.ErrorLine, 1, false);
    m_codeEditor.show();
    m_codeEditor.focusText();
}

bool ParseError::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::MouseButtonDblClick)
        return QWidget::eventFilter(watched, event);
    ErrorText_DblClick();
    return true; // a word selected behind the user's back would be of no use
}
