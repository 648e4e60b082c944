#include "app/Workbench.h"

#include "forms/Forms.h"
#include "library/ZorbinoMain.h"
#include "runtime/GameFolders.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>

#include <cstdio>
#include <dlfcn.h>
#include <future>

namespace
{

constexpr QStringView wrongFolder = u"You must run Zorbino from its own directory!  If you clicked an icon, "
                                    u"set the working directory for the program "
                                    u"to the same directory as the zorbino.exe file.";

std::filesystem::path workingDirectory()
{
    std::error_code error;
    const auto folder = std::filesystem::current_path(error);
    return error ? std::filesystem::path("/nowhere") : folder;
}

bool isProgramIn(const Installation& installation)
{
    // A link to the program is as good as the program.
    std::error_code error;
    return installation.isFile("zorbino.exe") ||
           std::filesystem::is_regular_file(installation.root() / "zorbino.exe", error);
}

/// Lets the system look for its fonts beside the start of the toolkit, which would wait for it later. Where
/// the system has another way with fonts, nothing happens.
std::future<void> lookForFonts()
{
    return std::async(std::launch::async, [] {
        if (auto* initialise = reinterpret_cast<int (*)()>(::dlsym(RTLD_DEFAULT, "FcInit")))
            initialise();
    });
}

/// Says when the tray has been painted for the first time, and leaves. For measuring.
class FirstPaint : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && watched->objectName() == u"GameTray") {
            QTimer::singleShot(0, this, [] {
                std::puts("painted");
                std::fflush(stdout);
                QCoreApplication::exit(0);
            });
        }
        return false;
    }
};

int selfTest(Workbench& workbench)
{
    const bool good = workbench.openEachWindow();
    std::fputs(good ? "Every window opens.\n"
                    : "A window does not open, or there is no game to open it on.\n",
               stdout);
    return good ? 0 : 1;
}

void workOn(Workbench& workbench, const QString& folder)
{
    workbench.module().CurrentGame = readGameRecord(workbench.installation(), forms::toUtf8(folder + u'\\'));
    workbench.showGameEditor();
}

} // namespace

int main(int argc, char* argv[])
{
    const auto fonts = lookForFonts();
    QApplication application(argc, argv);
    // Some desktops show it as the caption of a window without one: a game may have no title.
    QApplication::setApplicationName(forms::fromUtf8(ProductName));
    QApplication::setDesktopFileName(QStringLiteral("zorbino")); // so that desktops find our icon
    forms::dressApplication();

    QCommandLineParser words;
    QCommandLineOption selfTestWord(QStringLiteral("self-test"));
    QCommandLineOption workWord(QStringLiteral("work"), QString(), QStringLiteral("FOLDER"));
    QCommandLineOption firstPaintWord(QStringLiteral("first-paint"));
    for (auto* word : {&selfTestWord, &workWord, &firstPaintWord}) {
        word->setFlags(QCommandLineOption::HiddenFromHelp); // for those who build Zorbino
        words.addOption(*word);
    }
    words.process(application);

    Workbench workbench(workingDirectory());
    if (!isProgramIn(workbench.installation())) {
        if (words.isSet(selfTestWord))
            return 1;
        forms::tell(nullptr, wrongFolder.toString());
        return 0;
    }
    const bool libraryComes = !words.isSet(workWord) && !words.isSet(selfTestWord);
    if (libraryComes)
        ZorbinoMain::readAhead(workbench); // and fetched by the library
    FirstPaint firstPaint;
    if (words.isSet(firstPaintWord))
        application.installEventFilter(&firstPaint);
    workbench.showTracker();
    workbench.LogProgress(QStringLiteral("ZB.main"));
    if (words.isSet(selfTestWord))
        return selfTest(workbench);
    if (libraryComes)
        workbench.showLibrary();
    else
        workOn(workbench, words.value(workWord));
    return QApplication::exec();
}
