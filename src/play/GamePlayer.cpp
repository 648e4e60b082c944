#include "play/GamePlayer.h"

#include "platform/TextFile.h"
#include "runtime/QuietPorts.h"
#include "runtime/ZBInterpreter.h"

#include <QTimer>

/// The windows of the workbench that a player does without.
struct GamePlayer::QuietWindows {
    struct Editor : QuietGameEditor {
        void startHaltMeAgain() override { haltMeAgain.start(); }
        QTimer haltMeAgain;
    };
    struct Parse : ParseErrorPort {
        explicit Parse(UserPort& who)
            : user(who)
        {
        }
        void close() override {}
        void show(std::string_view text) override { user.messageBox(text); }
        UserPort& user;
    };

    explicit QuietWindows(UserPort& user)
        : parseError(user)
    {
    }

    Editor editor;
    QuietCodeEditor code;
    QuietSpy spy;
    Parse parseError;
};

GamePlayer::GamePlayer(ZB& module, const Installation& installation, PictureReader& pictures)
    : m_quiet(std::make_unique<QuietWindows>(m_user))
    , m_interpreter(std::make_unique<ZBInterpreter>(
          module, installation, pictures,
          Ports{m_window, m_quiet->editor, m_quiet->code, m_quiet->spy, m_quiet->parseError, m_user}))
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
    const auto text = m_interpreter->installation().readText(m_interpreter->module().gamePath() + "code.txt");
    if (!text)
        return false;
    m_interpreter->RunGame(withProductLineEnds(*text), 0);
    return true;
}
