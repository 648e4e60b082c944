// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "app/StartEarly.h"
#include "app/Workbench.h"

#include "forms/MessageBoxes.h"
#include "forms/Style.h"
#include "forms/Texts.h"
#include "games/GameFolders.h"
#include "library/ZorbinoMain.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>

#include <cstdio>
#include <future>
#include <optional>

namespace
{

using namespace Qt::StringLiterals;

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

/// For the start-up benchmark: tells when the tray has been painted for the first time, and ends the program.
constexpr const char* tellFirstPaint = "ZORBINO_TELL_FIRST_PAINT";
/// For the start-up benchmark: starts nothing early.
constexpr const char* startPlain = "ZORBINO_START_PLAIN";

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

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    // Some desktops show it as the caption of a window without one: a game may have no title.
    QApplication::setApplicationName(forms::fromUtf8(ProductName));
    QApplication::setDesktopFileName(u"zorbino"_s); // so that desktops find our icon
    forms::setUpApplication();

    QCommandLineParser arguments;
    QCommandLineOption selfTestOption(u"self-test"_s);
    selfTestOption.setFlags(QCommandLineOption::HiddenFromHelp); // for those who build Zorbino
    arguments.addOption(selfTestOption);
    arguments.process(application);
    const bool isSelfTest = arguments.isSet(selfTestOption);

    Workbench workbench(workingDirectory());
    if (!isProgramIn(workbench.installation())) {
        if (isSelfTest)
            return 1;
        forms::warn(nullptr, wrongFolder.toString());
        return 0;
    }
    std::optional<StartEarly> early;
    if (!isSelfTest && !qEnvironmentVariableIsSet(startPlain))
        early.emplace(workbench.installation().root());
    // Beside the start, which it must not hold up; the end waits for it. Not at all where there is no memory
    // for a thread.
    const auto clearing =
        std::async([root = workbench.installation().root()] { ClearLeavings(Installation(root)); });
    FirstPaint firstPaint;
    if (qEnvironmentVariableIsSet(tellFirstPaint))
        application.installEventFilter(&firstPaint);
    workbench.showTracker();
    workbench.LogProgress(u"ZB.main"_s);
    if (isSelfTest)
        return selfTest(workbench);
    if (early)
        early->keepIcons();
    workbench.start(early ? early->backdrop() : QImage());
    return QApplication::exec();
}
