#pragma once

#include <QString>

#include <memory>

class QPrinter;
class QWidget;

/// The printer that the program prints on, and the question which one it shall be.
class WinCode
{
public:
    /// Asks for the printer. True where printing should go on.
    bool PrintDialog(QWidget* parent);
    /// The chosen printer, ready to be printed on.
    std::unique_ptr<QPrinter> openPrinter() const;

    // Written by the dialog.
    bool PrintCancelled = true;
    QString currentPrinter; ///< its device name; empty where a file is to be written instead
    QString pdfFile;        ///< the file that takes the place of a printer
    QString documentName;   ///< what the printer's queue shows, and the name proposed for the file
};
