// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "app/PlayInWindow.h"

#include "app/GameModule.h"
#include "forms/Style.h"
#include "platform/pictures/PictureFiles.h"
#include "play/GamePlayer.h"
#include "runtime/ZBInterpreter.h"

#include <QApplication>

#include <chrono>

Q_DECL_EXPORT Ending zblPlayInWindow(int* argc, char** argv, const char* game)
{
    const GamePlace place = placeOf(game);
    const Installation installation(place.installation);
    ZB module = moduleOf(installation, place);
    QApplication application(*argc, argv);
    forms::setUpApplication();
    PictureFiles pictures;
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
