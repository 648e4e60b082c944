// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "editor/WinCode.h"

#include "editor/PrintForm.h"
#include "editor/TextPrinter.h"
#include "platform/DiskFile.h"

#include <QBuffer>
#include <QFile>
#include <QLibrary>
#include <QPdfWriter>
#include <QPointer>
#include <QPrinter>
#include <QPrinterInfo>

#include <string_view>

using namespace Qt::StringLiterals;

namespace
{

constexpr qreal margin = 15; // millimeters: room for a hole punch
constexpr int pdfResolution = 1200;

void setUpPage(QPagedPaintDevice& device)
{
    device.setPageMargins(QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter);
}

bool isWholePdf(const QByteArray& pdf)
{
    return pdf.startsWith("%PDF-") && pdf.trimmed().endsWith("%%EOF");
}

/// Whether the print server took the job that this thread has just handed in. The toolkit does not pass the
/// server's answer on, so its library, which the toolkit has loaded, is asked itself. Where there is none,
/// no job went to a server.
bool wasJobAccepted()
{
    constexpr int libraryVersion = 2;
    constexpr int firstFailure = 0x0100; // statuses below it are kinds of success
    using LastError = int (*)();
    QLibrary cups(u"cups"_s, libraryVersion);
    const auto lastError = reinterpret_cast<LastError>(cups.resolve("cupsLastError"));
    return lastError == nullptr || lastError() < firstFailure;
}

} // namespace

bool WinCode::PrintDialog(QWidget* parent, const QString& documentName)
{
    m_PrintCancelled = false;
    m_documentName = documentName;
    const QPointer<PrintForm> form(new PrintForm(*this, parent));
    form->exec();
    if (form.isNull())
        return false; // the window below went away and took the dialog along
    form->deleteLater();
    return !m_PrintCancelled;
}

void WinCode::choosePrinter(const QString& deviceName)
{
    m_printer = deviceName;
    m_PrintCancelled = false;
}

void WinCode::chooseFile(const QString& pdfFile)
{
    m_printer.clear();
    m_pdfFile = pdfFile;
    m_PrintCancelled = false;
}

bool WinCode::print(const QString& text, const QFont& font) const
{
    return m_printer.isEmpty() ? printIntoFile(text, font) : printOnPaper(text, font);
}

/// Into memory first: what goes wrong on the way to the disk must not cost an older file.
bool WinCode::printIntoFile(const QString& text, const QFont& font) const
{
    QByteArray pdf;
    QBuffer buffer(&pdf);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(pdfResolution);
    writer.setTitle(m_documentName);
    setUpPage(writer);
    const bool isPrinted = printText(writer, text, font);
    const std::string_view bytes(pdf.constData(), static_cast<std::size_t>(pdf.size()));
    return isPrinted && isWholePdf(pdf) && writeFileWhole(QFile::encodeName(m_pdfFile).toStdString(), bytes);
}

bool WinCode::printOnPaper(const QString& text, const QFont& font) const
{
    const QPrinterInfo info = QPrinterInfo::printerInfo(m_printer);
    if (info.isNull())
        return false; // taken away since it was chosen
    QPrinter printer(info, QPrinter::HighResolution);
    setUpPage(printer);
    printer.setDocName(m_documentName);
    return printText(printer, text, font) && printer.printerState() != QPrinter::Error && wasJobAccepted();
}
