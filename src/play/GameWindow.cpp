// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/GameWindow.h"

#include "forms/MessageBoxes.h"
#include "forms/PictureArea.h"
#include "forms/Style.h"
#include "forms/Texts.h"
#include "play/GameDisplay.h"
#include "runtime/ZBInterpreter.h"

#include <QApplication>
#include <QCloseEvent>
#include <QVBoxLayout>

#include <utility>

namespace
{

using namespace Qt::StringLiterals;

/// A hidden picture of the run: shows what the run has there now.
class RunPicture : public forms::PictureArea
{
public:
    RunPicture(const QByteArray& name, std::function<const Surface*()> source, QWidget* window)
        : PictureArea(name.constData(), window)
        , m_source(std::move(source))
    {
        hide();
    }

protected:
    const Surface* surface() const override { return m_source(); }

private:
    std::function<const Surface*()> m_source;
};

} // namespace

GameWindow::GameWindow()
    : m_display(new GameDisplay)
    , m_gameTimer(new QTimer(this))
{
    setObjectName(u"GameWindow"_s);
    setWindowTitle(u"Game!"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(m_display);

    m_gameTimer->setObjectName(u"GameTimer"_s);
    m_gameTimer->setTimerType(Qt::PreciseTimer);
    connect(m_gameTimer, &QTimer::timeout, this, &GameWindow::GameTimer_Timer);
    connect(m_display, &GameDisplay::keyDown, this, &GameWindow::Display_KeyDown);
    connect(m_display, &GameDisplay::keyUp, this, &GameWindow::Display_KeyUp);
    connect(m_display, &GameDisplay::clicked, this, &GameWindow::clicked);
}

void GameWindow::attach(ZBInterpreter& interpreter)
{
    m_interpreter = &interpreter;
    const ZBContext& context = interpreter.context();
    m_display->showSurface(&context.display());
    new RunPicture(
        "Background", [&context] { return &context.background(); }, this);
    new RunPicture(
        "temppic", [] { return nullptr; }, this);
    for (std::size_t place = 0; place < GameAssets::graphicCount; ++place)
        new RunPicture(
            "Graphic_" + QByteArray::number(place), [&context, place] { return context.graphic(place); },
            this);
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

void GameWindow::proceedSoon()
{
    QTimer::singleShot(0, this, [this] { follow(m_interpreter->proceed()); });
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
        follow(m_interpreter->timerTick());
}

void GameWindow::follow(Progress progress)
{
    for (; progress == Progress::Told; progress = m_interpreter->proceed()) {
        const std::vector<RuntimeFault> faults = m_interpreter->takeFaults();
        // One mistake, one message: what it leads to in the rest of its frame is no other mistake.
        if (m_interpreter->isOn()) {
            ReportRuntimeError(faults.front());
            return;
        }
    }
    Q_EMIT advanced();
}

void GameWindow::ReportRuntimeError(const RuntimeFault& fault)
{
    const QString text = forms::fromUtf8(ZBInterpreter::runtimeErrorText(fault));
    m_telling = true;
    forms::warn(QApplication::activeWindow(), text, this, [this, fault] {
        m_telling = false;
        m_interpreter->haltAfter(fault);
        follow(m_interpreter->proceed());
        Q_EMIT told();
    });
}

void GameWindow::holdKeys()
{
    m_display->holdKeys();
}

void GameWindow::letKeysGo()
{
    m_display->letKeysGo();
}

void GameWindow::showPast(const Surface& picture)
{
    m_showsPast = true;
    m_display->showSurface(&picture);
    m_display->setMark(u"Past"_s);
    if (isVisible())
        return;
    setAttribute(Qt::WA_ShowWithoutActivating); // the hand is on the slider
    Q_EMIT aboutToShow();
    QWidget::show();
    setAttribute(Qt::WA_ShowWithoutActivating, false);
}

void GameWindow::showNow()
{
    if (!std::exchange(m_showsPast, false))
        return;
    m_display->setMark(QString());
    m_display->showSurface(&m_interpreter->context().display());
    if (!m_open)
        hide();
}

void GameWindow::setOverlay(std::vector<FieldBox> boxes)
{
    m_display->setOverlay(std::move(boxes));
}

void GameWindow::closeEvent(QCloseEvent* event)
{
    if (m_showsPast && !m_open)
        Q_EMIT pastClosed();
    if (m_interpreter == nullptr || !m_interpreter->context().InterpreterRunning())
        return;
    // The end of the run closes the window: at once, or when the waiting statement has finished.
    event->ignore();
    m_interpreter->StopGame();
}
