// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

class QComboBox;
class WinCode;

/// Asks which printer to print on. Where there is none it offers to write a PDF file.
class PrintForm : public QDialog
{
    Q_OBJECT

public:
    PrintForm(WinCode& module, QWidget* parent);

private:
    void Form_Load();
    void Ok_Click();
    void Cancel_Click();
    bool askForFile();

    WinCode& m_module;
    QComboBox* m_PrinterList;
    bool m_hasPrinter = false;
};
