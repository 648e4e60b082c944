// Printing a program text, by way of the window and of a PDF file.
#include "PretendDesk.h"
#include "editor/CodeEditor.h"
#include "editor/TextPrinter.h"
#include "forms/Forms.h"

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

int darkPixels(const QImage& picture)
{
    int dark = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            dark += qGray(picture.pixel(x, y)) < 200 ? 1 : 0;
    }
    return dark;
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
    TemporaryInstallation installation;
    PretendDesk desk{installation.root()};
    CodeEditor editor{desk};
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
    inModal([this](QWidget* form) {
        const auto* list = form->findChild<QComboBox*>(QStringLiteral("PrinterList"));
        EXPECT_EQ(list->count(), 1);
        EXPECT_TRUE(list->currentText().contains(QLatin1String("No printer")));
        inModal([this](QWidget* dialog) {
            auto* files = qobject_cast<QFileDialog*>(dialog);
            if (files == nullptr)
                return false;
            files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(file);
            QTest::keyClick(files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")), Qt::Key_Return);
            return true;
        });
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

TEST_F(PrintTest, APrinterThatFailsIsReported)
{
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder.filePath(QStringLiteral("missing/folder/x.pdf")));
    EXPECT_FALSE(printText(printer, QStringLiteral("x"), editor.font()));
}

TEST_F(PrintTest, ThePrinterOfTheListIsUsed)
{
    const QStringList printers = QPrinterInfo::availablePrinterNames();
    const auto pdf = std::find_if(printers.begin(), printers.end(),
                                  [](const QString& name) { return name.contains(QLatin1String("PDF")); });
    const QString output = qEnvironmentVariable("ZB_PDF_QUEUE_FOLDER");
    const bool canLook = !QStandardPaths::findExecutable(QStringLiteral("pdftoppm")).isEmpty();
    if (pdf == printers.end() || output.isEmpty() || !canLook)
        GTEST_SKIP() << "no queue that prints into PDF files (its folder in ZB_PDF_QUEUE_FOLDER)";
    desk.module().CurrentGame.title = "Zorbino queue test";
    load(numberedLines(100));
    inModal([&](QWidget* form) {
        auto* list = form->findChild<QComboBox*>(QStringLiteral("PrinterList"));
        EXPECT_EQ(list->count(), printers.size());
        const QString usual = QPrinterInfo::defaultPrinterName();
        EXPECT_EQ(list->currentText(), usual.isEmpty() ? printers.first() : usual);
        list->setCurrentText(*pdf);
        press(form, "Ok");
        return true;
    });
    print();
    // On its way through the queue the text becomes pictures of its characters: pages and ink are what is
    // left.
    QStringList files;
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            files = QDir(output).entryList({QStringLiteral("*queue*test*.pdf")});
            return !files.isEmpty() && pageCount(output + u'/' + files.first()) == 2;
        },
        30'000));
    const QString printed = output + u'/' + files.first();
    const QString page = folder.filePath(QStringLiteral("page"));
    asked(QStringLiteral("pdftoppm"), {QStringLiteral("-r"), QStringLiteral("36"), QStringLiteral("-png"),
                                       QStringLiteral("-singlefile"), printed, page});
    EXPECT_GT(darkPixels(QImage(page + QStringLiteral(".png"))), 1000);
    QFile::remove(printed);
}
