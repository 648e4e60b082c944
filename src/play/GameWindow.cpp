#include "play/GameWindow.h"

#include "play/GameDisplay.h"
#include "runtime/ZBContext.h"
#include "runtime/ZBInterpreter.h"

#include <QCloseEvent>
#include <QVBoxLayout>

#include <utility>

namespace
{

void addHiddenPicture(const QByteArray& name, const Surface& surface, QWidget* window)
{
    auto* picture = new forms::PictureArea(name.constData(), window);
    picture->showSurface(&surface);
    picture->hide();
}

} // namespace

GameWindow::GameWindow()
    : m_display(new GameDisplay)
    , m_gameTimer(new QTimer(this))
{
    setObjectName(QStringLiteral("GameWindow"));
    setWindowTitle(QStringLiteral("Game!"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(m_display);

    m_gameTimer->setObjectName(QStringLiteral("GameTimer"));
    m_gameTimer->setTimerType(Qt::PreciseTimer);
    connect(m_gameTimer, &QTimer::timeout, this, &GameWindow::GameTimer_Timer);
    connect(m_display, &GameDisplay::keyDown, this, &GameWindow::Display_KeyDown);
    connect(m_display, &GameDisplay::keyUp, this, &GameWindow::Display_KeyUp);
}

void GameWindow::attach(ZBInterpreter& interpreter)
{
    m_interpreter = &interpreter;
    const GameSurfaces& surfaces = interpreter.context().surfaces();
    m_display->showSurface(&surfaces.Display);
    addHiddenPicture("Background", surfaces.Background, this);
    addHiddenPicture("temppic", surfaces.temppic, this);
    for (std::size_t slot = 0; slot < surfaces.Graphic.size(); ++slot)
        addHiddenPicture("Graphic_" + QByteArray::number(slot), surfaces.Graphic[slot], this);
}

void GameWindow::load()
{
    m_open = true;
}

void GameWindow::reopen(std::string_view title)
{
    enableTimer(false);
    hide();
    m_open = true;
    setWindowTitle(forms::fromUtf8(title));
}

void GameWindow::show()
{
    m_open = true;
    Q_EMIT aboutToShow();
    forms::bringUp(*this); // also where the last run's window was minimised
    m_display->setFocus();
}

void GameWindow::close()
{
    enableTimer(false);
    hide(); // not QWidget::close: nobody is asked or told
    if (!std::exchange(m_open, false))
        return;
    Q_EMIT closed();
}

void GameWindow::setTimerInterval(std::optional<int> milliseconds)
{
    m_standsStill = !milliseconds.has_value();
    if (milliseconds.has_value())
        m_gameTimer->setInterval(*milliseconds);
    enableTimer(m_timerEnabled);
}

void GameWindow::enableTimer(bool on)
{
    m_timerEnabled = on;
    if (on && !m_standsStill)
        m_gameTimer->start();
    else
        m_gameTimer->stop();
}

void GameWindow::refreshDisplay()
{
    m_display->update();
}

void GameWindow::Display_KeyDown(int keyCode, int shift)
{
    if (m_interpreter != nullptr)
        m_interpreter->context().KeyDown(keyCode, shift);
}

void GameWindow::Display_KeyUp(int keyCode, int shift)
{
    if (m_interpreter != nullptr)
        m_interpreter->context().KeyUp(keyCode, shift);
}

void GameWindow::GameTimer_Timer()
{
    if (m_interpreter != nullptr)
        m_interpreter->timerTick();
}

void GameWindow::closeEvent(QCloseEvent* event)
{
    if (m_interpreter == nullptr || !m_interpreter->context().InterpreterRunning())
        return;
    // The end of the run closes the window: at once, or when the waiting statement has finished.
    event->ignore();
    m_interpreter->StopGame();
}
