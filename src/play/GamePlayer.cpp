// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/GamePlayer.h"

#include "forms/MessageBoxes.h"
#include "forms/Texts.h"
#include "headless/QuietPorts.h"
#include "platform/TextFile.h"
#include "runtime/ZBInterpreter.h"

#include <QApplication>
#include <QTimer>

/// The windows of the workbench that a player does without.
struct GamePlayer::QuietWindows {
    struct Editor : QuietGameEditor {
        void startHaltMeAgain() override { haltMeAgain.start(); }
        QTimer haltMeAgain;
    };
    struct Parse : ParseErrorPort {
        void close() override {}
        void show(std::string_view text) override
        {
            forms::warn(QApplication::activeWindow(), forms::fromUtf8(text));
        }
        void beep() override { QApplication::beep(); }
    };

    Editor editor;
    QuietCodeEditor code;
    QuietSpy spy;
    Parse parseError;
};

GamePlayer::GamePlayer(ZB& module, const Installation& installation, PictureReader& pictures)
    : m_quiet(std::make_unique<QuietWindows>())
    , m_interpreter(std::make_unique<ZBInterpreter>(module, installation, pictures,
                                                    Ports{.screen = m_window,
                                                          .gameEditor = m_quiet->editor,
                                                          .codeEditor = m_quiet->code,
                                                          .spy = m_quiet->spy,
                                                          .parseError = m_quiet->parseError}))
{
    m_window.attach(*m_interpreter);
    // From the event loop: the run may end before play() has come back.
    connect(&m_window, &GameWindow::closed, this, &GamePlayer::ended, Qt::QueuedConnection);
    QTimer& haltMeAgain = m_quiet->editor.haltMeAgain;
    haltMeAgain.setInterval(200);
    haltMeAgain.setSingleShot(true);
    haltMeAgain.callOnTimeout(this, [this] { m_interpreter->StopGame(); });
}

GamePlayer::~GamePlayer() = default;

bool GamePlayer::play()
{
    auto text = m_interpreter->files().readText(m_interpreter->module().gamePath() + "code.txt");
    if (!text)
        return false;
    m_window.follow(m_interpreter->RunGame(withProductLineEnds(std::move(*text)), RunKind::Plain));
    return true;
}
