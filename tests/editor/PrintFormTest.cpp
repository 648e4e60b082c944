// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

// Printing a program text, by way of the window and of a PDF file.
#include "editor/CodeEditor.h"
#include "editor/TextPrinter.h"
#include "editor/WinCode.h"
#include "forms/Style.h"
#include "forms/Texts.h"
#include "support/Dialogs.h"
#include "support/FullDisk.h"
#include "support/PretendDesk.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace
{

/// What a tool of poppler says about a PDF file; nothing where it is not installed.
std::optional<QString> asked(const QString& tool, const QStringList& arguments)
{
    const QString program = QStandardPaths::findExecutable(tool);
    if (program.isEmpty())
        return std::nullopt;
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        return QStringLiteral("the tool failed");
    return QString::fromUtf8(process.readAllStandardOutput());
}

void expectPdf(const QString& file, const QStringList& lines, int leastPages)
{
    QFile pdf(file);
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    EXPECT_TRUE(pdf.read(5) == "%PDF-");
    if (const auto text =
            asked(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), file, QStringLiteral("-")})) {
        for (const QString& line : lines)
            EXPECT_TRUE(text->contains(line)) << line.toStdString() << "\nin\n"
                                              << text->left(200).toStdString();
        EXPECT_GE(text->count(u'\f'), leastPages);
    }
    if (const auto fonts = asked(QStringLiteral("pdffonts"), {file})) {
        EXPECT_TRUE(fonts->contains(QLatin1String("Mono")) || fonts->contains(QLatin1String("Courier")))
            << fonts->toStdString();
    }
}

/// -1 where poppler's tools are not installed.
int pageCount(const QString& file)
{
    const auto info = asked(QStringLiteral("pdfinfo"), {file});
    return info ? info->section(QStringLiteral("Pages:"), 1).section(u'\n', 0, 0).trimmed().toInt() : -1;
}

QString numberedLines(int count)
{
    QString text;
    for (int i = 1; i <= count; ++i)
        text += QStringLiteral("  move line%1\n").arg(i);
    return text;
}

/// Does something in the next modal window, while one is open.
void inModal(const std::function<bool(QWidget*)>& deed)
{
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, deed] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal != nullptr && deed(modal))
            timer->deleteLater();
    });
    timer->start(5);
}

void press(QWidget* window, const char* button)
{
    QTest::mouseClick(window->findChild<QAbstractButton*>(QLatin1String(button)), Qt::LeftButton);
}

class PrintTest : public testing::Test
{
protected:
    ScratchFolder installation;
    PretendDesk desk{installation.path()};
    CodeEditor editor{desk, desk.module().CurrentGame};
    QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("page.pdf"));

    void load(const QString& text)
    {
        installation.write("games/00000001/code.txt", text.toStdString());
        ASSERT_TRUE(editor.LoadFile(QStringLiteral("games\\00000001\\code.txt")));
    }
    void print() { press(&editor, "PrintButton"); }
    std::string status()
    {
        return editor.findChild<QLabel*>(QStringLiteral("ShowStatus"))->text().toStdString();
    }
};

} // namespace

TEST(TextPrinter, FlowsOverPagesAndBreaksLongLines)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("long.pdf"));
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    const QString longLine = QString(300, u'w') + QStringLiteral("end");
    ASSERT_TRUE(printText(printer, numberedLines(300) + longLine, forms::fixedFont(12)));
    expectPdf(file, {QStringLiteral("move line1\n"), QStringLiteral("move line300"), QStringLiteral("wend")},
              5);
}

TEST(TextPrinter, UsesTheFontThatItIsGiven)
{
    const QTemporaryDir folder;
    const auto pages = [&folder](int points) {
        const QString file = folder.filePath(QStringLiteral("%1.pdf").arg(points));
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file);
        EXPECT_TRUE(printText(printer, numberedLines(200), forms::fixedFont(points)));
        return pageCount(file);
    };
    const int small = pages(10);
    if (small < 0)
        GTEST_SKIP() << "poppler's tools are not installed";
    EXPECT_GE(pages(30), 2 * small);
}

TEST_F(PrintTest, CancelPrintsNothingAndChangesNothing)
{
    load(numberedLines(3));
    for (const bool byEscape : {false, true}) {
        inModal([byEscape](QWidget* form) {
            EXPECT_EQ(form->objectName(), QStringLiteral("PrintForm"));
            EXPECT_EQ(form->windowTitle(), QStringLiteral("Print"));
            byEscape ? QTest::keyClick(form, Qt::Key_Escape) : press(form, "Cancel");
            return true;
        });
        print();
        EXPECT_EQ(status(), "");
        EXPECT_TRUE(editor.isEnabled());
    }
}

TEST_F(PrintTest, WithoutAPrinterAPdfFileIsOffered)
{
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        GTEST_SKIP() << "there is a printer";
    load(numberedLines(200));
    const Dialogs dialogs({QString(), file});
    inModal([](QWidget* form) {
        const auto* list = form->findChild<QComboBox*>(QStringLiteral("PrinterList"));
        EXPECT_EQ(list->count(), 1);
        EXPECT_TRUE(list->currentText().contains(QLatin1String("No printer")));
        press(form, "Ok");
        return true;
    });
    press(&editor, "SearchButton"); // the prompt that it opens must not stay without its caption
    editor.findChild<QAction*>(QStringLiteral("PrintMnu"))->trigger();
    EXPECT_EQ(status(), "Printing...");
    EXPECT_TRUE(editor.isEnabled());
    EXPECT_TRUE(editor.findChild<QWidget*>(QStringLiteral("Toolbar1"))->isVisible());
    expectPdf(file, {QStringLiteral("move line1\n"), QStringLiteral("move line200")}, 3);
}

TEST(WinCode, ReplacesAFileWholeOrNotAtAll)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("old.pdf"));
    const auto contents = [&path] {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("gone");
    };
    WinCode module;
    module.chooseFile(path);
    const auto print = [&module](int lines) {
        return module.print(numberedLines(lines), forms::fixedFont(12));
    };
    ASSERT_TRUE(print(1));
    const QByteArray old = contents();
    EXPECT_TRUE(old.trimmed().endsWith("%%EOF"));
    for (const rlim_t space :
         {rlim_t{0}, rlim_t{1}, rlim_t{100}, rlim_t{4096}, rlim_t(old.size() - 1), rlim_t(old.size())}) {
        const FullDisk full(space);
        EXPECT_FALSE(print(300)) << space;
        EXPECT_TRUE(contents() == old) << space;
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1) << space;
    }
    EXPECT_TRUE(print(300));
    EXPECT_GT(contents().size(), old.size());
    for (const char* place : {"missing/folder/x.pdf", "."}) {
        module.chooseFile(folder.filePath(QLatin1String(place)));
        EXPECT_FALSE(print(1)) << place;
    }
}

TEST_F(PrintTest, AFullDiskIsTold)
{
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        GTEST_SKIP() << "there is a printer";
    load(numberedLines(3));
    const Dialogs dialogs({QString(), file});
    inModal([](QWidget* form) {
        press(form, "Ok");
        return true;
    });
    {
        const FullDisk full;
        print();
    }
    EXPECT_NE(dialogs.onlyText().find("I could not print your program"), std::string::npos);
    EXPECT_TRUE(editor.isEnabled());
    EXPECT_FALSE(QFile::exists(file));
}

namespace
{

/// With a print server of its own; see withPdfQueue.
class PrintQueueTest : public PrintTest
{
protected:
    const QString output = qEnvironmentVariable("ZB_PDF_QUEUE_FOLDER");
    const QStringList printers = QPrinterInfo::availablePrinterNames();

    void SetUp() override
    {
        if (output.isEmpty())
            GTEST_SKIP() << "no queue that prints into PDF files (its folder in ZB_PDF_QUEUE_FOLDER)";
        load(numberedLines(100));
    }
    /// Prints on one of the queues, and does something else while the dialog is open.
    void printOn(
        const QString& queue, const std::function<void()>& meanwhile = [] {})
    {
        inModal([queue, meanwhile](QWidget* form) {
            if (form->objectName() != u"PrintForm")
                return false;
            form->findChild<QComboBox*>(QStringLiteral("PrinterList"))->setCurrentText(queue);
            meanwhile();
            press(form, "Ok");
            return true;
        });
        print();
    }
};

} // namespace

TEST_F(PrintQueueTest, ThePrinterOfTheListIsUsed)
{
    desk.module().CurrentGame.title = "Zorbino queue test";
    inModal([this](QWidget* form) {
        const auto* list = form->findChild<QComboBox*>(QStringLiteral("PrinterList"));
        EXPECT_EQ(list->count(), printers.size());
        EXPECT_EQ(list->currentText(), QPrinterInfo::defaultPrinterName());
        press(form, "Ok");
        return true;
    });
    print();
    const QString printed = output + QStringLiteral("/Zorbino queue test.pdf");
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(printed); }, 30'000));
    expectPdf(printed, {QStringLiteral("move line1\n"), QStringLiteral("move line100")}, 2);
}

TEST_F(PrintQueueTest, WhatTheQueueRefusesIsTold)
{
    const struct {
        const char* queue;
        QStringList order; ///< to the print server, before the printer is chosen
    } rows[] = {
        {"ZorbinoPDF", {QStringLiteral("cupsreject"), QStringLiteral("ZorbinoPDF")}},
        {"Passing", {QStringLiteral("lpadmin"), QStringLiteral("-x"), QStringLiteral("Passing")}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.queue);
        ASSERT_TRUE(printers.contains(QLatin1String(row.queue)));
        const Dialogs dialogs;
        printOn(QLatin1String(row.queue),
                [&row] { EXPECT_EQ(QProcess::execute(row.order.first(), row.order.mid(1)), 0); });
        EXPECT_NE(dialogs.onlyText().find("I could not print your program"), std::string::npos)
            << dialogs.onlyText();
        EXPECT_TRUE(editor.isEnabled());
    }
}
