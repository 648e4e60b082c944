#include "forms/Forms.h"

#include "runtime/ZB.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

// The boxes live on the heap behind a QPointer: while one waits, the window below it may go away and take it
// along.
namespace
{

constexpr int longestMessage = 4000;

/// Messages may quote anything a program holds; a box must still fit on the screen.
QString shownText(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text = forms::withoutEndlessLines(text); // what follows a long line, such as its number, is to be seen
    if (text.size() > longestMessage)
        text = text.left(longestMessage) + QStringLiteral("...");
    return text;
}

void caption(QAbstractButton* button, const QString& text, const char* iconName)
{
    button->setText(text);
    button->setIcon(forms::icon(iconName));
    button->setAccessibleName(QString(text).remove(u'&'));
}

/// Our captions for OK and Cancel of a dialog of the toolkit.
void captionButtons(QDialog& dialog, const char* cancel = "&Cancel")
{
    auto* const buttons = dialog.findChild<QDialogButtonBox*>();
    if (buttons == nullptr)
        return;
    caption(buttons->button(QDialogButtonBox::Ok), QStringLiteral("&OK"), "ok");
    caption(buttons->button(QDialogButtonBox::Cancel), QLatin1StringView(cancel), "cancel");
}

QMessageBox* makeBox(QWidget* parent, const QString& title, const QString& text,
                     QMessageBox::StandardButtons buttons)
{
    auto* box = new QMessageBox(parent != nullptr ? parent->window() : nullptr);
    box->setObjectName(QStringLiteral("MessageBox"));
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
    for (const Caption& entry : {Caption{QMessageBox::Ok, QStringLiteral("&OK"), "ok"},
                                 Caption{QMessageBox::Yes, QStringLiteral("&Yes"), "ok"},
                                 Caption{QMessageBox::No, QStringLiteral("&No"), "remove"},
                                 Caption{QMessageBox::Cancel, QStringLiteral("&Cancel"), "cancel"}}) {
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

} // namespace

namespace forms
{

void tell(QWidget* parent, const QString& text)
{
    QMessageBox* box = makeBox(parent, fromUtf8(ProductName), text, QMessageBox::Ok);
    setPicture(box, "info");
    answerOf(box);
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

bool askOk(QWidget* parent, const QString& title, const QString& text)
{
    QMessageBox* box = makeBox(parent, title, text, QMessageBox::Ok | QMessageBox::Cancel);
    box->setDefaultButton(QMessageBox::Ok);
    setPicture(box, "question");
    return answerOf(box) == QMessageBox::Ok;
}

std::optional<QString> askText(QWidget* parent, const QString& title, const QString& prompt,
                               const QString& start)
{
    const QPointer<QInputDialog> box(new QInputDialog(parent != nullptr ? parent->window() : nullptr));
    box->setObjectName(QStringLiteral("InputBox"));
    box->setWindowTitle(title);
    box->setLabelText(prompt);
    box->setTextValue(start);
    box->setWindowModality(Qt::ApplicationModal);
    box->setOkButtonText(QStringLiteral("&OK")); // makes the buttons, which are not there before
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

std::optional<Pixel> askColour(QWidget* parent, const QString& title, Pixel start)
{
    const QPointer<QColorDialog> box(
        new QColorDialog(QColor::fromRgb(start), parent != nullptr ? parent->window() : nullptr));
    box->setObjectName(QStringLiteral("ColorBox"));
    box->setWindowTitle(title);
    box->setOption(QColorDialog::DontUseNativeDialog);
    captionButtons(*box, "Ca&ncel"); // its custom colours have the C
    const bool accepted = box->exec() == QDialog::Accepted;
    if (box.isNull())
        return std::nullopt;
    const QColor chosen = box->selectedColor();
    box->deleteLater();
    return accepted ? std::optional<Pixel>(chosen.rgb() | opaqueBits) : std::nullopt;
}

} // namespace forms
