#include "app/PlayInWindow.h"

#include "forms/Forms.h"
#include "platform/qt/QtPictures.h"
#include "play/GamePlayer.h"
#include "runtime/ZBInterpreter.h"

#include <QApplication>

#include <chrono>

bool playInWindow(int& argc, char** argv, ZB& module, const Installation& installation)
{
    QApplication application(argc, argv);
    forms::dressApplication();
    QtPictures pictures;
    GamePlayer player(module, installation, pictures);
    player.interpreter().setSeed(
        static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count()));
    QObject::connect(&player, &GamePlayer::ended, &application, &QApplication::quit, Qt::QueuedConnection);
    if (!player.play())
        return false;
    QApplication::exec();
    return true;
}
