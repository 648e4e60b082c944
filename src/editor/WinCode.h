// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QFont;
class QWidget;

/// The printer that programs are printed on, and the question which one it shall be. A PDF file can take its
/// place.
class WinCode
{
public:
    /// Asks what a document is to be printed on. The printer's queue shows it under `documentName`, which is
    /// proposed for a file as well. True where printing should go on.
    bool PrintDialog(QWidget* parent, const QString& documentName);
    /// Prints a text on what was chosen. False where that failed; an older file is untouched then.
    [[nodiscard]] bool print(const QString& text, const QFont& font) const;

    // For the dialog.
    const QString& documentName() const { return m_documentName; }
    void setCancelled() { m_PrintCancelled = true; }
    void choosePrinter(const QString& deviceName);
    void chooseFile(const QString& pdfFile);

private:
    bool printIntoFile(const QString& text, const QFont& font) const;
    bool printOnPaper(const QString& text, const QFont& font) const;

    bool m_PrintCancelled = true;
    QString m_documentName;
    QString m_printer; ///< its device name; empty where a file is to be written instead
    QString m_pdfFile;
};
