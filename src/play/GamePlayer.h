// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Installation.h"
#include "platform/PictureReader.h"
#include "play/GameWindow.h"
#include "runtime/Ports.h"
#include "runtime/ZB.h"

#include <QObject>

#include <memory>

/// Plays a game in its window, without the workbench around it: what goes wrong is told in a message box.
class GamePlayer : public QObject
{
    Q_OBJECT
public:
    GamePlayer(ZB& module, const Installation& installation, PictureReader& pictures);
    ~GamePlayer() override;

    /// Plays CurrentGame. False where its program text cannot be read.
    [[nodiscard]] bool play();
    GameWindow& window() { return m_window; }
    ZBInterpreter& interpreter() { return *m_interpreter; }

Q_SIGNALS:
    /// The game is over: its window was closed, or an error has been told. Sent from the event loop.
    void ended();

private:
    struct QuietWindows;

    GameWindow m_window;
    std::unique_ptr<QuietWindows> m_quiet;
    std::unique_ptr<ZBInterpreter> m_interpreter;
};
