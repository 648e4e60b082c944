#include "editor/PrintForm.h"

#include "editor/WinCode.h"
#include "forms/Forms.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPrinterInfo>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

namespace
{

constexpr int iconSize = 24;

QPushButton* makeButton(const char* name, const char* iconName, const QString& caption, const QString& tip)
{
    auto* button = new QPushButton(caption);
    forms::dressButton(*button, name, iconName, tip);
    button->setIconSize(QSize(iconSize, iconSize));
    return button;
}

} // namespace

PrintForm::PrintForm(WinCode& module, QWidget* parent)
    : QDialog(parent)
    , m_module(module)
    , m_PrinterList(new QComboBox)
{
    setObjectName(QStringLiteral("PrintForm"));
    setWindowTitle(QStringLiteral("Print"));
    m_PrinterList->setObjectName(QStringLiteral("PrinterList"));
    m_PrinterList->setAccessibleName(QStringLiteral("Select Printer"));
    m_PrinterList->setMinimumContentsLength(28);
    auto* label = new QLabel(QStringLiteral("&Select Printer"));
    label->setBuddy(m_PrinterList);
    auto* ok = makeButton("Ok", "print", QStringLiteral("&OK"), QStringLiteral("Print on this printer"));
    auto* cancel = makeButton("Cancel", "cancel", QStringLiteral("&Cancel"), QStringLiteral("Do not print"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &PrintForm::Ok_Click);
    connect(cancel, &QPushButton::clicked, this, &PrintForm::Cancel_Click);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(12, 12, 12, 12);
    all->setSpacing(8);
    all->addWidget(label);
    all->addWidget(m_PrinterList);
    all->addSpacing(12);
    all->addLayout(buttons);
    all->setSizeConstraint(QLayout::SetFixedSize);
    Form_Load();
}

void PrintForm::Form_Load()
{
    m_module.PrintCancelled = true;
    m_PrinterList->addItems(QPrinterInfo::availablePrinterNames());
    m_hasPrinter = m_PrinterList->count() > 0;
    if (m_hasPrinter)
        m_PrinterList->setCurrentText(QPrinterInfo::defaultPrinterName());
    else
        m_PrinterList->addItem(QStringLiteral("No printer found. OK makes a PDF file."));
}

void PrintForm::Ok_Click()
{
    if (!m_hasPrinter && !askForFile())
        return;
    if (m_hasPrinter)
        m_module.currentPrinter = m_PrinterList->currentText();
    m_module.PrintCancelled = false;
    accept();
}

bool PrintForm::askForFile()
{
    QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (!QFileInfo::exists(folder))
        folder = QDir::homePath(); // left alone, the dialog would begin in the program's own folder
    const QString name = QString(m_module.documentName).replace(u'/', u'-');
    const QString proposal = QStringLiteral("%1/%2.pdf").arg(folder, name);
    const QPointer<QFileDialog> dialog(new QFileDialog(this, QStringLiteral("Save as a PDF file"), proposal,
                                                       QStringLiteral("PDF files (*.pdf)")));
    dialog->setObjectName(QStringLiteral("PdfFile"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("pdf"));
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    const bool isAccepted = dialog->exec() == QDialog::Accepted;
    if (dialog.isNull())
        return false; // the windows below went away and took it along
    dialog->deleteLater();
    if (!isAccepted)
        return false;
    m_module.currentPrinter.clear();
    m_module.pdfFile = dialog->selectedFiles().constFirst();
    return true;
}

void PrintForm::Cancel_Click()
{
    reject();
}
