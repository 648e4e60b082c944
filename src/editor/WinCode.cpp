#include "editor/WinCode.h"

#include "editor/PrintForm.h"

#include <QPointer>
#include <QPrinter>
#include <QPrinterInfo>

namespace
{

constexpr qreal margin = 15; // millimetres: room for a hole punch

} // namespace

bool WinCode::PrintDialog(QWidget* parent)
{
    PrintCancelled = false;
    const QPointer<PrintForm> form(new PrintForm(*this, parent));
    form->exec();
    if (form.isNull())
        return false; // the window below went away and took the dialog along
    form->deleteLater();
    return !PrintCancelled;
}

std::unique_ptr<QPrinter> WinCode::openPrinter() const
{
    std::unique_ptr<QPrinter> printer;
    if (currentPrinter.isEmpty()) {
        printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(pdfFile);
    } else {
        printer =
            std::make_unique<QPrinter>(QPrinterInfo::printerInfo(currentPrinter), QPrinter::HighResolution);
    }
    printer->setPageMargins(QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter);
    printer->setDocName(documentName);
    return printer;
}
