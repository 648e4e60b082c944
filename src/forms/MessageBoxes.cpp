// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "forms/MessageBoxes.h"

#include "forms/Icons.h"
#include "forms/Texts.h"

#include "runtime/ZB.h"

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

#include <algorithm>

// The boxes live on the heap behind a QPointer: while one waits, the window below it may go away and take it
// along.
namespace
{

using namespace Qt::StringLiterals;

constexpr int longestMessage = 4000;
constexpr int typingPause = 600; // milliseconds: who types lets less time pass between two letters
constexpr int besideCaption = 4; // pixels on either side of an icon, on top of what the toolkit leaves

bool isBareLetter(const QKeyEvent& event)
{
    const bool plain = (event.modifiers() & ~Qt::ShiftModifier) == Qt::NoModifier;
    return plain && event.text().size() == 1 && event.text().front().isLetter();
}

bool isTyping()
{
    const QWidget* focused = QApplication::focusWidget();
    return focused != nullptr && focused->testAttribute(Qt::WA_InputMethodEnabled);
}

/// Keeps a box in the middle of its window: one that comes right after its window is there before the desktop
/// has found a place for that.
class Middle : public QObject
{
public:
    explicit Middle(QWidget& box)
        : QObject(&box)
        , m_box(box)
        , m_window(box.parentWidget())
    {
        if (m_window != nullptr)
            m_window->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool isMoved = event->type() == QEvent::Move || event->type() == QEvent::Resize;
        if (isMoved && m_box.isVisible())
            keep();
        return QObject::eventFilter(watched, event);
    }

private:
    void keep()
    {
        QRect place = m_box.frameGeometry();
        place.moveCenter(m_window->frameGeometry().center());
        const QRect screen = m_window->screen()->availableGeometry();
        const QPoint last = screen.bottomRight() - place.bottomRight() + place.topLeft();
        m_box.move(std::clamp(place.x(), screen.x(), std::max(screen.x(), last.x())),
                   std::clamp(place.y(), screen.y(), std::max(screen.y(), last.y())));
    }

    QWidget& m_box;
    QWidget* m_window;
};

/// A box that can come while someone types. Letters that were meant for the text below press no button: none
/// counts before the user has stopped typing, and none that is held down.
class PatientBox : public QMessageBox
{
public:
    explicit PatientBox(QWidget* parent)
        : QMessageBox(parent)
    {
        m_typing.setObjectName(u"TypingPause"_s);
        m_typing.setSingleShot(true);
        m_typing.setInterval(typingPause);
    }

protected:
    void showEvent(QShowEvent* event) override
    {
        if (isTyping())
            m_typing.start();
        QMessageBox::showEvent(event);
    }
    void keyPressEvent(QKeyEvent* event) override
    {
        if (!isBareLetter(*event) || (!m_typing.isActive() && !event->isAutoRepeat()))
            QMessageBox::keyPressEvent(event);
        else
            m_typing.start();
    }

private:
    QTimer m_typing{this};
};

/// Messages may quote anything a program holds; a box must still fit on the screen.
QString shownText(QString text)
{
    text.replace(u"\r\n"_s, u"\n"_s);
    text = forms::withoutEndlessLines(text); // what follows a long line, such as its number, is to be seen
    if (text.size() > longestMessage)
        text = text.left(longestMessage) + u"..."_s;
    return text;
}

void caption(QAbstractButton* button, const QString& text, const char* iconName)
{
    button->setText(text);
    button->setIcon(forms::icon(iconName));
    button->setIconSize(button->iconSize() + QSize(2 * besideCaption, 0)); // it stands in the middle of that
    button->setAccessibleName(QString(text).remove(u'&'));
}

/// Our captions for OK and Cancel of a dialog of the toolkit.
void captionButtons(QDialog& dialog, const char* cancel = "&Cancel")
{
    auto* const buttons = dialog.findChild<QDialogButtonBox*>();
    if (buttons == nullptr)
        return;
    caption(buttons->button(QDialogButtonBox::Ok), u"&OK"_s, "ok");
    caption(buttons->button(QDialogButtonBox::Cancel), QLatin1StringView(cancel), "cancel");
}

QMessageBox* makeBox(QWidget* parent, const QString& title, const QString& text,
                     QMessageBox::StandardButtons buttons)
{
    auto* box = new PatientBox(parent != nullptr ? parent->window() : nullptr);
    new Middle(*box);
    box->setObjectName(u"MessageBox"_s);
    box->setWindowTitle(title);
    box->setTextFormat(Qt::PlainText);
    box->setText(shownText(text));
    box->setStandardButtons(buttons);
    box->setWindowModality(Qt::ApplicationModal);
    struct Caption {
        QMessageBox::StandardButton button;
        QString text;
        const char* icon;
    };
    for (const Caption& entry :
         {Caption{QMessageBox::Ok, u"&OK"_s, "ok"}, Caption{QMessageBox::Yes, u"&Yes"_s, "ok"},
          Caption{QMessageBox::No, u"&No"_s, "remove"},
          Caption{QMessageBox::Cancel, u"&Cancel"_s, "cancel"}}) {
        if (QAbstractButton* button = box->button(entry.button))
            caption(button, entry.text, entry.icon);
    }
    if (buttons.testFlag(QMessageBox::Cancel))
        box->setEscapeButton(QMessageBox::Cancel);
    return box;
}

/// Shows the box and returns the button pressed; Cancel where the box was taken away unanswered.
int answerOf(QMessageBox* box)
{
    const QPointer<QMessageBox> guard(box);
    const int answer = box->exec();
    if (guard.isNull())
        return QMessageBox::Cancel;
    box->deleteLater();
    return answer;
}

void setPicture(QMessageBox* box, const char* iconName)
{
    box->setIconPixmap(forms::icon(iconName).pixmap(QSize(48, 48), box->devicePixelRatioF()));
}

QMessageBox* messageBox(QWidget* parent, const QString& text, const char* iconName)
{
    QMessageBox* box = makeBox(parent, forms::fromUtf8(ProductName), text, QMessageBox::Ok);
    setPicture(box, iconName);
    return box;
}

} // namespace

namespace forms
{

void tell(QWidget* parent, const QString& text)
{
    answerOf(messageBox(parent, text, "info"));
}

void warn(QWidget* parent, const QString& text)
{
    answerOf(messageBox(parent, text, "warning"));
}

void warn(QWidget* parent, const QString& text, QObject* receiver, std::function<void()> then)
{
    QMessageBox* box = messageBox(parent, text, "warning");
    box->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(box, &QDialog::finished, receiver, std::move(then));
    box->show();
}

Answer askYesNoCancel(QWidget* parent, const QString& title, const QString& text)
{
    QMessageBox* box = makeBox(parent, title, text, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    box->setDefaultButton(QMessageBox::Yes);
    setPicture(box, "question");
    switch (answerOf(box)) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}

bool askYesNo(QWidget* parent, const QString& title, const QString& text)
{
    QMessageBox* box = makeBox(parent, title, text, QMessageBox::Yes | QMessageBox::No);
    box->setDefaultButton(QMessageBox::No);
    box->setEscapeButton(QMessageBox::No);
    setPicture(box, "question");
    return answerOf(box) == QMessageBox::Yes;
}

bool askOk(QWidget* parent, const QString& title, const QString& text, DefaultButton defaultButton)
{
    QMessageBox* box = makeBox(parent, title, text, QMessageBox::Ok | QMessageBox::Cancel);
    const bool isSafe = defaultButton == DefaultButton::Ok;
    box->setDefaultButton(isSafe ? QMessageBox::Ok : QMessageBox::Cancel);
    setPicture(box, isSafe ? "question" : "warning");
    return answerOf(box) == QMessageBox::Ok;
}

std::optional<QString> askText(QWidget* parent, const QString& title, const QString& prompt,
                               const QString& start)
{
    const QPointer<QInputDialog> box(new QInputDialog(parent != nullptr ? parent->window() : nullptr));
    box->setObjectName(u"InputBox"_s);
    box->setWindowTitle(title);
    box->setLabelText(prompt);
    box->setTextValue(start);
    box->setWindowModality(Qt::ApplicationModal);
    box->setOkButtonText(u"&OK"_s); // makes the buttons, which are not there before
    captionButtons(*box);
    if (auto* line = box->findChild<QLineEdit*>())
        line->setAccessibleName(prompt);
    const bool accepted = box->exec() == QDialog::Accepted;
    if (box.isNull())
        return std::nullopt;
    QString answer = box->textValue();
    box->deleteLater();
    if (!accepted || answer.isEmpty())
        return std::nullopt;
    return answer;
}

std::optional<Pixel> askColor(QWidget* parent, const QString& title, Pixel start)
{
    const QPointer<QColorDialog> box(
        new QColorDialog(QColor::fromRgb(start), parent != nullptr ? parent->window() : nullptr));
    box->setObjectName(u"ColorBox"_s);
    box->setWindowTitle(title);
    box->setOption(QColorDialog::DontUseNativeDialog);
    captionButtons(*box, "Ca&ncel"); // its custom colors have the C
    const bool accepted = box->exec() == QDialog::Accepted;
    if (box.isNull())
        return std::nullopt;
    const QColor chosen = box->selectedColor();
    box->deleteLater();
    return accepted ? std::optional<Pixel>(chosen.rgb() | opaqueBits) : std::nullopt;
}

} // namespace forms
