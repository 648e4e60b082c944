// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "editor/PrintForm.h"

#include "editor/WinCode.h"
#include "forms/Icons.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPrinterInfo>
#include <QPushButton>
#include <QScreen>
#include <QStandardPaths>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace
{

constexpr int iconSize = 24;

QPushButton* makeButton(const char* name, const char* iconName, const QString& caption, const QString& tip)
{
    auto* button = new QPushButton(caption);
    forms::setUpButton(*button, name, iconName, tip);
    button->setIconSize(QSize(iconSize, iconSize));
    return button;
}

} // namespace

PrintForm::PrintForm(WinCode& module, QWidget* parent)
    : QDialog(parent)
    , m_module(module)
    , m_PrinterList(new QComboBox)
{
    setObjectName(u"PrintForm"_s);
    setWindowTitle(u"Print"_s);
    m_PrinterList->setObjectName(u"PrinterList"_s);
    m_PrinterList->setAccessibleName(u"Select Printer"_s);
    m_PrinterList->setMinimumContentsLength(28);
    auto* label = new QLabel(u"&Select Printer"_s);
    label->setBuddy(m_PrinterList);
    auto* ok = makeButton("Ok", "print", u"&OK"_s, u"Print on this printer"_s);
    auto* cancel = makeButton("Cancel", "cancel", u"&Cancel"_s, u"Do not print"_s);
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
    m_module.setCancelled();
    m_PrinterList->addItems(QPrinterInfo::availablePrinterNames());
    m_hasPrinter = m_PrinterList->count() > 0;
    if (m_hasPrinter)
        m_PrinterList->setCurrentText(QPrinterInfo::defaultPrinterName());
    else
        m_PrinterList->addItem(u"No printer found. OK makes a PDF file."_s);
}

void PrintForm::Ok_Click()
{
    if (m_hasPrinter)
        m_module.choosePrinter(m_PrinterList->currentText());
    else if (!askForFile())
        return;
    accept();
}

bool PrintForm::askForFile()
{
    QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (!QFileInfo::exists(folder))
        folder = QDir::homePath(); // left alone, the dialog would begin in the program's own folder
    const QString name = QString(m_module.documentName()).replace(u'/', u'-');
    const QString proposal = u"%1/%2.pdf"_s.arg(folder, name);
    const QPointer<QFileDialog> dialog(
        new QFileDialog(this, u"Save as a PDF file"_s, proposal, u"PDF files (*.pdf)"_s));
    dialog->setObjectName(u"PdfFile"_s);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(u"pdf"_s);
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    constexpr QSize borders(16, 48); // what a desktop puts around it, at most
    dialog->resize(dialog->size().boundedTo(screen()->availableSize() - borders));
    const bool isAccepted = dialog->exec() == QDialog::Accepted;
    if (dialog.isNull())
        return false; // the windows below went away and took it along
    dialog->deleteLater();
    if (!isAccepted)
        return false;
    m_module.chooseFile(dialog->selectedFiles().constFirst());
    return true;
}

void PrintForm::Cancel_Click()
{
    reject();
}
