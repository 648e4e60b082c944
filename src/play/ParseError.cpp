// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/ParseError.h"

#include "forms/Icons.h"
#include "forms/PlaceWindow.h"
#include "forms/Texts.h"
#include "runtime/ZB.h"

#include <QApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <utility>

using namespace Qt::StringLiterals;

ParseError::ParseError(const ZB& module, CodeEditorPort& codeEditor)
    // The keyboard belongs to the program text, whichever of the two windows the desktop puts up last.
    : QWidget(nullptr, Qt::Window | Qt::WindowDoesNotAcceptFocus)
    , m_module(module)
    , m_codeEditor(codeEditor)
    , m_errorText(new QPlainTextEdit)
{
    setObjectName(u"ParseError"_s);
    setWindowTitle(u"Parse Error"_s);
    setWindowIcon(forms::icon("error"));
    setAttribute(Qt::WA_ShowWithoutActivating);

    m_errorText->setObjectName(u"ErrorText"_s);
    m_errorText->setAccessibleName(u"What is wrong"_s);
    QFont font = this->font();
    font.setFamilies({u"MS Sans Serif"_s, font.family()});
    m_errorText->setFont(font);
    m_errorText->setReadOnly(true);
    m_errorText->setFrameShape(QFrame::NoFrame);
    m_errorText->document()->setDocumentMargin(12);
    m_errorText->viewport()->installEventFilter(this);

    auto* layout = new QVBoxLayout(this); // the text always fills the window
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_errorText);
    resize(fontMetrics().averageCharWidth() * 64, fontMetrics().height() * 10);
    setMinimumSize(fontMetrics().averageCharWidth() * 44, fontMetrics().height() * 9); // a usual message
}

void ParseError::beep()
{
    QApplication::beep();
}

void ParseError::close()
{
    hide();
}

void ParseError::show(std::string_view text)
{
    m_errorText->setPlainText(forms::withoutEndlessLines(forms::fromUtf8(text)));
    forms::placeWindow(*this);
    setWindowState(windowState() & ~Qt::WindowMinimized);
    m_comesUp = true;
    QWidget::show();
    raise();
    QTimer::singleShot(0, this, &ParseError::makeWay); // by then the code editor shows the line
}

void ParseError::makeWay()
{
    if (!isVisible())
        return;
    forms::placeWindow(*this);
    raise();
    if (m_codeWindow && m_codeWindow->windowHandle() != nullptr)
        m_codeWindow->windowHandle()->installEventFilter(this);
}

void ParseError::accompany(QWidget* codeWindow)
{
    m_codeWindow = codeWindow;
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* focused) {
        const bool isCode = m_codeWindow && focused != nullptr && focused == m_codeWindow->windowHandle();
        if (isCode && isVisible() && std::exchange(m_comesUp, false))
            raise();
    });
}

void ParseError::ErrorText_DblClick()
{
    m_codeEditor.SetCursorPos(m_module.ErrorLine, 1, false);
    m_codeEditor.show();
    m_codeEditor.focusText();
}

bool ParseError::eventFilter(QObject* watched, QEvent* event)
{
    // Not every desktop raises a window that is clicked.
    if (event->type() == QEvent::MouseButtonPress) {
        m_comesUp = false;
        QWidget* clicked = watched == m_errorText->viewport() ? this : m_codeWindow.data();
        if (clicked != nullptr)
            clicked->raise();
    }
    if (event->type() != QEvent::MouseButtonDblClick || watched != m_errorText->viewport())
        return QWidget::eventFilter(watched, event);
    ErrorText_DblClick();
    return true; // a word selected behind the user's back would be of no use
}
