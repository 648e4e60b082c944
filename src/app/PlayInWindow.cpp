#include "app/PlayInWindow.h"

#include "forms/Forms.h"
#include "platform/qt/QtPictures.h"
#include "play/GamePlayer.h"
#include "runtime/ZBInterpreter.h"

#include <QApplication>

#include <algorithm>
#include <array>
#include <chrono>

bool hasDisplay()
{
    // What the toolkit itself looks at.
    return std::ranges::any_of(std::array{"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"},
                               [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
}

Ending playInWindow(int& argc, char** argv, ZB& module, const Installation& installation)
{
    QApplication application(argc, argv);
    forms::dressApplication();
    QtPictures pictures;
    GamePlayer player(module, installation, pictures);
    player.interpreter().setSeed(
        static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count()));
    QObject::connect(&player, &GamePlayer::ended, &application, &QApplication::quit, Qt::QueuedConnection);
    if (!player.play())
        return Ending::Unreadable;
    const bool isRead = module.ErrorLine == 0;
    QApplication::exec();
    if (!isRead)
        return Ending::ParseError;
    return module.ErrorLine == 0 ? Ending::Closed : Ending::RuntimeError;
}
